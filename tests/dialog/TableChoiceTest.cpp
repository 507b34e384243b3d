// The kind options, the table edition chosen by the date, and the dates
// for which there is no fee table.
#include "DialogFixture.h"

namespace avlor::test {
namespace {

class TableChoice : public DialogTest {
protected:
    void SetUp() override
    {
        DialogTest::SetUp();
        addUser(1, "Avv. Rossi", "150", "250000");
        addCase(7, "NULL", "EURO", 0, "Tribunale");
        addItem("Diritti2004Euro", 391, "D391", "Sessione");
        addItem("Diritti94Euro", 132, "D132", "Sessione");
    }

    // The kind clicked with `day` in the date field.
    std::string tableFor(dialog::frmOKParcella& form, const char* option, const std::string& day)
    {
        form.setText("FData", day);
        form.click(option);
        return form.state().sTabella;
    }
};

TEST_F(TableChoice, EuroEditionsByTheDateShownBeforeTheClick)
{
    const auto form = open(7, "15/03/2005");
    EXPECT_EQ(tableFor(*form, "optDiritti", "01/06/2004"), "Diritti94Euro");
    EXPECT_EQ(tableFor(*form, "optDiritti", "02/06/2004"), "Diritti2004Euro");
    EXPECT_EQ(tableFor(*form, "optOnorari", "15/03/2003"), "Onorari2004Euro");
    EXPECT_EQ(tableFor(*form, "optOnorari", "31/12/1993"), "Onorari94Euro");
    EXPECT_EQ(tableFor(*form, "optPenale", "01/01/1994"), "OnorariPenali2004Euro");
    EXPECT_EQ(tableFor(*form, "optStragiudiziale", "15/03/2003"), "OnorariStrag2004Euro");
    // The click then resets the date to today.
    EXPECT_EQ(form->control("FData").text, "15/03/2005");
}

TEST_F(TableChoice, LireEditionWhateverTheDate)
{
    setDefaultCurrency("LIRA");
    const auto form = open(7, "15/03/2005");
    EXPECT_EQ(tableFor(*form, "optDiritti", "02/06/2004"), "Diritti94");
    EXPECT_EQ(tableFor(*form, "optOnorari", "15/03/2003"), "Onorari94");
    EXPECT_EQ(tableFor(*form, "optPenale", "15/03/2003"), "OnorariPenali94");
    EXPECT_EQ(tableFor(*form, "optStragiudiziale", "15/03/2003"), "OnorariStrag94");
    form->typeText("FData", "01/06/2004");
    EXPECT_EQ(form->state().sTabella, "OnorariStrag94");
}

TEST_F(TableChoice, DateFieldThatIsNoDateLeavesTheTable)
{
    const auto form = open(7, "15/03/2005");
    EXPECT_EQ(tableFor(*form, "optOnorari", "not a date"), "Diritti2004Euro");
    form->typeText("FData", "32/01/2004");
    EXPECT_EQ(form->state().sTabella, "Diritti2004Euro");
}

TEST_F(TableChoice, KindClickStartsANewEntry)
{
    const auto form = open(7, "15/03/2005");
    form->open("cmbCodice");
    form->choose("cmbCodice", 0);
    ASSERT_EQ(form->state().idTariffa, 391);
    form->setText("FImponibili", "12,00");
    form->click("optOnorari");
    const dialog::FormState s = form->state();
    EXPECT_EQ(s.idTariffa, 0);
    EXPECT_EQ(s.ImportoVoce, Currency{});
    for (const char* name : {"cmbCodice", "cmbVoce", "FImporto", "FDenMaxS", "FDenMaxT", "FDenMinS", "FDenMinT"}) {
        EXPECT_EQ(form->control(name).text, "") << name;
    }
    EXPECT_TRUE(form->control("cmbCodice").rows.empty());
    // Expenses are not part of the item: they stay.
    EXPECT_EQ(form->control("FImponibili").text, "12,00");
    EXPECT_TRUE(form->control("cmdModifica").enabled);
    EXPECT_TRUE(form->control("cmdCancella").enabled);
    EXPECT_TRUE(form->control("optOnorari").value);
    EXPECT_FALSE(form->control("optDiritti").value);
}

TEST_F(TableChoice, EuroDateChangeChoosesAgainAndClearsTheItem)
{
    const auto form = open(7, "15/03/2005");
    form->open("cmbCodice");
    form->choose("cmbCodice", 0);
    ASSERT_EQ(form->control("FImporto").text, "10,00");
    // The same edition: the item must be chosen again all the same.
    form->typeText("FData", "16/03/2005");
    EXPECT_EQ(form->state().sTabella, "Diritti2004Euro");
    for (const char* name : {"cmbCodice", "cmbVoce", "FImporto", "FDenMaxS", "FDenMaxT", "FDenMinS", "FDenMinT"}) {
        EXPECT_EQ(form->control(name).text, "") << name;
    }
    EXPECT_TRUE(form->control("cmbCodice").rows.empty());
    form->typeText("FData", "01/06/2004");
    EXPECT_EQ(form->state().sTabella, "Diritti94Euro");
}

TEST_F(TableChoice, DateChangeWithoutAFamilyLeavesTheTable)
{
    const auto form = open(7, "15/03/2005");
    form->click("optOraria");
    form->typeText("FData", "01/06/2004");
    EXPECT_EQ(form->state().sTabella, "Diritti2004Euro");
    form->click("optParcellaBase");
    form->typeText("FData", "01/06/2004");
    EXPECT_EQ(form->state().sTabella, "Diritti2004Euro");
}

TEST_F(TableChoice, BeforeOctober1994TheItemIsRefused)
{
    const auto form = open(7, "15/03/2005");
    form->open("cmbCodice");
    form->choose("cmbCodice", 0);
    forgetMessages();
    form->setText("FData", "30/09/1994");
    form->open("cmbVoce");
    form->choose("cmbVoce", 0);
    EXPECT_EQ(messages(), std::vector<Shown>{information("ATTENZIONE : Il tariffario ante 94 non e' disponibile.")});
    // Nothing is taken: the list shows what it showed after opening (its
    // item made current again), the item and the amounts stay.
    EXPECT_EQ(form->control("cmbVoce").current, 0);
    EXPECT_EQ(form->control("cmbVoce").text, "Sessione");
    EXPECT_EQ(form->state().idTariffa, 391);
    EXPECT_EQ(form->control("FImporto").text, "10,00");
}

TEST_F(TableChoice, FirstOctober1994IsAccepted)
{
    const auto form = open(7, "15/03/2005");
    form->setText("FData", "01/10/1994");
    form->open("cmbCodice");
    form->choose("cmbCodice", 0);
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_EQ(form->state().idTariffa, 391);
}

TEST_F(TableChoice, EmptyDateIsAccepted)
{
    const auto form = open(7, "15/03/2005");
    form->setText("FData", "");
    form->open("cmbCodice");
    form->choose("cmbCodice", 0);
    EXPECT_EQ(messages(), std::vector<Shown>{});
    EXPECT_EQ(form->control("FImporto").text, "10,00");
}

TEST_F(TableChoice, ChangingTheKindLeavesChangeModeAndRefillsTheGrid)
{
    Action action;
    action.descr = "Sessione";
    const std::int32_t id = addAction(action);
    const auto form = open(7, "15/03/2005");
    form->choose("GrigliaParcella", 0);
    ASSERT_TRUE(form->state().bModifica);
    ASSERT_EQ(form->state().idAzioneCorrente, id);
    view.events.clear();
    form->click("optOnorari");
    EXPECT_FALSE(form->state().bModifica);
    EXPECT_EQ(form->state().idAzioneCorrente, 0);
    EXPECT_EQ(view.count("grid"), 1);
    EXPECT_EQ(form->control("GrigliaParcella").rows.size(), 1U);
}

TEST_F(TableChoice, ChangingTheKindOutsideChangeModeKeepsTheGrid)
{
    const auto form = open(7, "15/03/2005");
    view.events.clear();
    form->click("optOnorari");
    EXPECT_EQ(view.count("grid"), 0);
}

} // namespace
} // namespace avlor::test
