// Loading a recorded action for change by choosing its grid row.
#include "DialogFixture.h"

namespace avlor::test {
namespace {

class ActionLoading : public DialogTest {
protected:
    void SetUp() override
    {
        DialogTest::SetUp();
        addUser(1, "Avv. Rossi", "150", "250000");
        addUser(2, "Dott. Verdi", "80", "120000");
        addCase(7, "NULL", "EURO", 0, "Tribunale");
        addItem("Diritti2004Euro", 391, "D391", "Sessione");
        addItem("Onorari2004Euro", 20, "O20", "Studio", "",
                "MININDET, MAXINDET, MINSTRAORDIMP, MAXSTRAORDIMP|" + TestDatabase::amount("100") + ", " +
                    TestDatabase::amount("300") + ", " + TestDatabase::amount("50") + ", " +
                    TestDatabase::amount("900"));
    }
};

TEST_F(ActionLoading, TariffActionIntoTheEntryWithTheBandOfItsStoredTable)
{
    Action a;
    a.nOrdine = 5;
    a.data = "10/03/2005";
    a.tipo = 1;
    a.codice = "O20";
    a.descr = "Studio";
    a.quantita = "3";
    a.onorari = "450.5";
    a.diritti = "99";
    a.esenti = "12";
    a.imponibili = "30.25";
    a.tabella = "Onorari2004Euro";
    a.voce = 20;
    a.inNotaSpese = true;
    const std::int32_t id = addAction(a);
    const auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", id);
    EXPECT_TRUE(form->control("optOnorari").value);
    EXPECT_FALSE(form->control("optDiritti").value);
    EXPECT_EQ(form->control("FData").text, "10/03/2005");
    EXPECT_EQ(form->control("FNumOrdine").text, "5");
    EXPECT_TRUE(form->control("chkIncludi").value);
    EXPECT_EQ(form->control("cmbCodice").text, "O20");
    EXPECT_EQ(form->control("cmbVoce").text, "Studio");
    EXPECT_EQ(form->control("FQuantita").text, "3");
    // The stored amount stays; the engine gives only the band.
    EXPECT_EQ(form->control("FImporto").text, "450,50");
    EXPECT_EQ(form->control("FEsenti").text, "12,00");
    EXPECT_EQ(form->control("FImponibili").text, "30,25");
    EXPECT_EQ(form->control("FDenMinT").text, "100,00");
    EXPECT_EQ(form->control("FDenMaxT").text, "300,00");
    EXPECT_EQ(form->control("FDenMinS").text, "50,00");
    EXPECT_EQ(form->control("FDenMaxS").text, "900,00");
    const dialog::FormState s = form->state();
    EXPECT_EQ(s.idAzioneCorrente, id);
    EXPECT_TRUE(s.bModifica);
    EXPECT_EQ(s.idTariffa, 20);
    // The kind was not selected: its click reset the date to today, from
    // which the edition is chosen.
    EXPECT_EQ(s.sTabella, "Onorari2004Euro");
    EXPECT_EQ(messages(), std::vector<Shown>{});
}

TEST_F(ActionLoading, ItemZeroLeavesTheBandAsItWas)
{
    Action a;
    a.descr = "Voce libera";
    a.diritti = "40";
    const std::int32_t id = addAction(a);
    const auto form = open(7, "15/03/2005");
    form->open("cmbCodice");
    form->chooseKey("cmbCodice", 391);
    ASSERT_EQ(form->control("FDenMinT").text, "30,00");
    form->chooseKey("GrigliaParcella", id);
    EXPECT_EQ(form->control("FImporto").text, "40,00");
    EXPECT_EQ(form->control("FDenMinT").text, "30,00");
    EXPECT_EQ(form->control("FDenMaxT").text, "10,00");
    EXPECT_EQ(form->state().idTariffa, 0);
    EXPECT_EQ(messages(), std::vector<Shown>{});
}

TEST_F(ActionLoading, KindFourIsRightsLikeKindZero)
{
    Action a;
    a.tipo = 4;
    a.diritti = "25";
    a.onorari = "70";
    const std::int32_t id = addAction(a);
    const auto form = open(7, "15/03/2005");
    form->click("optOnorari");
    form->chooseKey("GrigliaParcella", id);
    EXPECT_TRUE(form->control("optDiritti").value);
    EXPECT_EQ(form->state().sTabella, "Diritti2004Euro");
    // Only kind 0 takes its amount from Diritti.
    EXPECT_EQ(form->control("FImporto").text, "70,00");
}

TEST_F(ActionLoading, AlreadySelectedKindTakesTheEditionFromTheDateShown)
{
    Action a;
    a.data = "10/03/2003";
    const std::int32_t id = addAction(a);
    const auto form = open(7, "15/03/2005");
    form->setText("FData", "01/06/2004");
    form->chooseKey("GrigliaParcella", id);
    EXPECT_EQ(form->state().sTabella, "Diritti94Euro");
    EXPECT_EQ(form->control("FData").text, "10/03/2003");
}

TEST_F(ActionLoading, LireFirmTakesTheLireEdition)
{
    setDefaultCurrency("LIRA");
    Action a;
    a.tipo = 3;
    a.valuta = "LIRA";
    a.onorari = "150000";
    const std::int32_t id = addAction(a);
    const auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", id);
    EXPECT_TRUE(form->control("optPenale").value);
    EXPECT_EQ(form->state().sTabella, "OnorariPenali94");
    EXPECT_EQ(form->control("FImporto").text, "150.000");
}

TEST_F(ActionLoading, UnknownKindSelectsNoOption)
{
    Action a;
    a.tipo = 9;
    a.onorari = "5";
    const std::int32_t id = addAction(a);
    const auto form = open(7, "15/03/2005");
    form->click("optStragiudiziale");
    form->chooseKey("GrigliaParcella", id);
    EXPECT_TRUE(form->control("optStragiudiziale").value);
    EXPECT_EQ(form->state().sTabella, "OnorariStrag2004Euro");
    EXPECT_EQ(form->control("FImporto").text, "5,00");
}

TEST_F(ActionLoading, HourlyActionIntoTheTimeEntry)
{
    Action a;
    a.tariffa = false;
    a.nOrdine = 3;
    a.descr = "Ricerca giurisprudenza";
    a.onorari = "225";
    a.esenti = "10";
    a.ore = 1;
    a.minuti = 30;
    a.eseguitoDa = 2;
    const std::int32_t id = addAction(a);
    const auto form = open(7, "15/03/2005");
    form->click("optOraria");
    form->chooseKey("GrigliaParcella", id);
    EXPECT_EQ(form->control("txtDescrizione").text, "Ricerca giurisprudenza");
    EXPECT_EQ(form->control("FImporto").text, "225,00");
    EXPECT_EQ(form->control("FEsenti").text, "10,00");
    EXPECT_EQ(form->control("FImponibili").text, ",00");
    EXPECT_EQ(form->control("FNumOrdine").text, "3");
    EXPECT_EQ(form->control("FOre").text, "1");
    EXPECT_EQ(form->control("FMinuti").text, "30");
    EXPECT_EQ(form->control("cmbEseguito").text, "Dott. Verdi");
    EXPECT_EQ(form->state().idEseguitoDa, 2);
    EXPECT_EQ(form->state().TariffaEuro, Currency::fromText("80"));
    EXPECT_TRUE(form->state().bModifica);
    EXPECT_EQ(form->state().idAzioneCorrente, id);
}

TEST_F(ActionLoading, HourlyRowShownByShowAllSwitchesToTimeEntry)
{
    Action a;
    a.tariffa = false;
    a.descr = "Telefonata";
    const std::int32_t id = addAction(a);
    const auto form = open(7, "15/03/2005");
    form->click("chkMosTut");
    form->chooseKey("GrigliaParcella", id);
    EXPECT_TRUE(form->control("optOraria").value);
    EXPECT_EQ(form->control("txtDescrizione").text, "Telefonata");
    EXPECT_EQ(form->state().idAzioneCorrente, id);
}

TEST_F(ActionLoading, ActionGoneMeanwhileLoadsNothing)
{
    Action a;
    a.descr = "Sparita";
    const std::int32_t id = addAction(a);
    const auto form = open(7, "15/03/2005");
    db.exec("DELETE FROM Azioni");
    const dialog::FormState before = form->state();
    form->chooseKey("GrigliaParcella", id);
    EXPECT_FALSE(form->state().bModifica);
    EXPECT_EQ(form->control("cmbVoce").text, "");
    EXPECT_EQ(view.count("busy on"), view.count("busy off"));
    EXPECT_EQ(form->state().sTabella, before.sTabella);
}

} // namespace
} // namespace avlor::test
