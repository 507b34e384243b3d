// Filling the two item lists, templates included, and the proposal when an
// item is chosen.
#include "DialogFixture.h"

namespace avlor::test {
namespace {

class ItemChoice : public DialogTest {
protected:
    void SetUp() override
    {
        DialogTest::SetUp();
        addUser(1, "Avv. Rossi", "150", "250000");
        addCase(7, "NULL", "EURO", 0, "Tribunale");
        addCase(8, "NULL", "EURO", 0, "NULL");
        addItem("Diritti2004Euro", 391, "D391", "Sessione");
        addItem("Diritti2004Euro", 12, "D012", "Atto", "Corte");
        addItem("Diritti2004Euro", 3, "D003", "Posizione", "Giudice di pace");
    }

    void addCivilItem(std::int32_t id, const std::string& code, const std::string& azione) const
    {
        addItem("Onorari2004Euro", id, code, azione, "Tribunale",
                "MININDET, MAXINDET, MINSTRAORDIMP, MAXSTRAORDIMP|" + TestDatabase::amount("100") + ", " +
                    TestDatabase::amount("300") + ", " + TestDatabase::amount("50") + ", " +
                    TestDatabase::amount("900.5"));
    }

    static std::vector<std::int32_t> keys(const dialog::frmOKParcella& form, const char* list)
    {
        return form.control(list).keys;
    }
};

TEST_F(ItemChoice, CodeListIsOrderedByCodeAndItemListByDescription)
{
    const auto form = open(7, "15/03/2005");
    form->open("cmbCodice");
    form->open("cmbVoce");
    EXPECT_EQ(keys(*form, "cmbCodice"), (std::vector<std::int32_t>{3, 12, 391}));
    EXPECT_EQ(form->control("cmbCodice").rows,
              (std::vector<std::vector<std::string>>{{"D003", "Posizione"}, {"D012", "Atto"}, {"D391", "Sessione"}}));
    EXPECT_EQ(keys(*form, "cmbVoce"), (std::vector<std::int32_t>{12, 3, 391}));
    // Rights depend on the authority: the item list shows it.
    EXPECT_EQ(form->control("cmbVoce").rows,
              (std::vector<std::vector<std::string>>{
                  {"Atto", "D012", "Corte"}, {"Posizione", "D003", "Giudice di pace"}, {"Sessione", "D391", ""}}));
    EXPECT_EQ(form->control("cmbCodice").current, -1);
}

TEST_F(ItemChoice, CivilFeesLeaveTheAuthorityColumnEmpty)
{
    addCivilItem(20, "O20", "Studio della controversia");
    const auto form = open(7, "15/03/2005");
    form->click("optOnorari");
    form->open("cmbVoce");
    EXPECT_EQ(form->control("cmbVoce").rows,
              (std::vector<std::vector<std::string>>{{"Studio della controversia", "O20", ""}}));
}

TEST_F(ItemChoice, ChoosingByDescriptionShowsTheCodeInTheOtherList)
{
    addCivilItem(20, "O20", "Studio della controversia");
    const auto form = open(7, "15/03/2005");
    form->click("optOnorari");
    form->open("cmbVoce");
    form->chooseKey("cmbVoce", 20);
    EXPECT_EQ(form->control("cmbVoce").text, "Studio della controversia");
    EXPECT_EQ(form->control("cmbCodice").text, "O20");
    EXPECT_EQ(form->state().idTariffa, 20);
    EXPECT_EQ(form->state().ImportoVoce, Currency::fromText("100"));
    EXPECT_EQ(form->control("FImporto").text, "100,00");
    EXPECT_EQ(form->control("FDenMinT").text, "100,00");
    EXPECT_EQ(form->control("FDenMaxT").text, "300,00");
    EXPECT_EQ(form->control("FDenMinS").text, "50,00");
    EXPECT_EQ(form->control("FDenMaxS").text, "900,50");
    EXPECT_EQ(messages(), std::vector<Shown>{});
}

TEST_F(ItemChoice, ReopeningKeepsTheItemShown)
{
    const auto form = open(7, "15/03/2005");
    form->open("cmbCodice");
    form->chooseKey("cmbCodice", 12);
    form->open("cmbCodice");
    EXPECT_EQ(form->control("cmbCodice").current, 1);
    EXPECT_EQ(form->control("cmbCodice").text, "D012");
    // Gone from the table: no row is current.
    db.exec("DELETE FROM Diritti2004Euro WHERE Id = 12");
    form->open("cmbCodice");
    EXPECT_EQ(form->control("cmbCodice").current, -1);
    EXPECT_EQ(form->control("cmbCodice").rows.size(), 2U);
}

TEST_F(ItemChoice, QuantityMultipliesTheUnitAmount)
{
    const auto form = open(7, "15/03/2005");
    form->open("cmbCodice");
    form->setText("FQuantita", "3");
    form->chooseKey("cmbCodice", 391);
    EXPECT_EQ(form->state().ImportoVoce, Currency::fromText("10"));
    EXPECT_EQ(form->control("FImporto").text, "30,00");
    form->setText("FQuantita", "32767");
    form->chooseKey("cmbCodice", 391);
    EXPECT_EQ(form->control("FImporto").text, "327.670,00");
}

TEST_F(ItemChoice, QuantityZeroEmptyOrNotANumberProposesZeroWithTheBand)
{
    const auto form = open(7, "15/03/2005");
    form->open("cmbCodice");
    for (const char* quantity : {"0", "", "abc"}) {
        form->setText("FQuantita", quantity);
        form->chooseKey("cmbCodice", 391);
        EXPECT_EQ(form->control("FImporto").text, ",00") << quantity;
        EXPECT_EQ(form->control("FDenMinT").text, "30,00") << quantity;
        EXPECT_EQ(form->control("FDenMaxT").text, "10,00") << quantity;
    }
}

TEST_F(ItemChoice, QuantityBeyond32767ProposesNothingButShowsTheBand)
{
    const auto form = open(7, "15/03/2005");
    form->open("cmbCodice");
    form->setText("FQuantita", "32768");
    form->chooseKey("cmbCodice", 391);
    EXPECT_EQ(form->control("FImporto").text, "");
    EXPECT_EQ(form->control("FDenMinT").text, "30,00");
    EXPECT_EQ(form->state().ImportoVoce, Currency::fromText("10"));
}

TEST_F(ItemChoice, LireAmountsWithoutDecimals)
{
    setDefaultCurrency("LIRA");
    addItem("Diritti94", 132, "D132", "Sessione");
    const auto form = open(7, "15/03/2005");
    form->open("cmbCodice");
    form->setText("FQuantita", "2");
    form->chooseKey("cmbCodice", 132);
    EXPECT_EQ(form->control("FImporto").text, "30.000");
    EXPECT_EQ(form->control("FDenMinT").text, "15.000");
    EXPECT_EQ(form->control("FDenMaxT").text, "50.000");
    EXPECT_EQ(form->control("FDenMinS").text, "");
}

TEST_F(ItemChoice, CriminalListsWarnWhenTheCaseHasNoAuthority)
{
    addItem("OnorariPenali2004Euro", 5, "P05", "Udienza", "Tribunale");
    const auto form = open(8, "15/03/2005");
    form->click("optPenale");
    form->open("cmbVoce");
    EXPECT_EQ(messages(),
              std::vector<Shown>{
                  information("ATTENZIONE : Non e' selezionata nessuna Autorita' per la Pratica. \rSara' impossibile "
                              "calcolare in automatico l'importo degli Onorari di Tipo Penale.")});
    // The list is filled all the same.
    EXPECT_EQ(form->control("cmbVoce").rows, (std::vector<std::vector<std::string>>{{"Udienza", "P05", "Tribunale"}}));
}

TEST_F(ItemChoice, NoWarningWithAnAuthorityOrForOtherKinds)
{
    addItem("OnorariPenali2004Euro", 5, "P05", "Udienza", "Tribunale");
    const auto withAuthority = open(7, "15/03/2005");
    withAuthority->click("optPenale");
    withAuthority->open("cmbCodice");
    const auto rights = open(8, "15/03/2005");
    rights->open("cmbCodice");
    EXPECT_EQ(messages(), std::vector<Shown>{});
}

class Templates : public ItemChoice {
protected:
    void SetUp() override
    {
        ItemChoice::SetUp();
        addTemplate(1, "PB2", "Zeta: separazione", false);
        addTemplate(2, "PB1", "Alfa: difesa penale", true);
        addTemplate(3, "PB3", "Beta: decreto penale", true);
    }
};

TEST_F(Templates, AfterCivilWorkEveryTemplateByCode)
{
    const auto form = open(7, "15/03/2005");
    form->click("optParcellaBase");
    form->open("cmbCodice");
    form->open("cmbVoce");
    EXPECT_EQ(keys(*form, "cmbCodice"), (std::vector<std::int32_t>{2, 1, 3}));
    EXPECT_EQ(form->control("cmbCodice").rows,
              (std::vector<std::vector<std::string>>{
                  {"PB1", "Alfa: difesa penale"}, {"PB2", "Zeta: separazione"}, {"PB3", "Beta: decreto penale"}}));
    EXPECT_EQ(keys(*form, "cmbVoce"), (std::vector<std::int32_t>{2, 1, 3}));
    EXPECT_EQ(form->control("cmbVoce").rows[0], (std::vector<std::string>{"Alfa: difesa penale", "PB1", ""}));
}

TEST_F(Templates, AfterCriminalWorkTheCriminalOnesWhenTheCaseHasAnAuthority)
{
    const auto form = open(7, "15/03/2005");
    form->click("optPenale");
    form->click("optParcellaBase");
    form->open("cmbCodice");
    form->open("cmbVoce");
    EXPECT_EQ(keys(*form, "cmbCodice"), (std::vector<std::int32_t>{2, 3}));
    EXPECT_EQ(keys(*form, "cmbVoce"), (std::vector<std::int32_t>{2, 3}));
    EXPECT_EQ(messages(), std::vector<Shown>{});
}

TEST_F(Templates, AfterCriminalWorkWithoutAuthorityAllByName)
{
    const auto form = open(8, "15/03/2005");
    form->click("optPenale");
    form->click("optParcellaBase");
    form->open("cmbCodice");
    EXPECT_EQ(keys(*form, "cmbCodice"), (std::vector<std::int32_t>{2, 3, 1}));
    // The warning belongs to criminal fee items, not to templates.
    EXPECT_EQ(messages(), std::vector<Shown>{});
}

TEST_F(Templates, ChoosingATemplateTakesItsKeyWithoutPricing)
{
    const auto form = open(7, "15/03/2005");
    form->click("optParcellaBase");
    form->open("cmbVoce");
    form->chooseKey("cmbVoce", 3);
    EXPECT_EQ(form->state().idTariffa, 3);
    EXPECT_EQ(form->state().ImportoVoce, Currency{});
    EXPECT_EQ(form->control("cmbCodice").text, "PB3");
    EXPECT_EQ(form->control("FImporto").text, "");
    EXPECT_EQ(messages(), std::vector<Shown>{});
}

TEST_F(Templates, TheTableInUseStays)
{
    const auto form = open(7, "15/03/2005");
    form->click("optOnorari");
    form->click("optParcellaBase");
    EXPECT_EQ(form->state().sTabella, "Onorari2004Euro");
}

} // namespace
} // namespace avlor::test
