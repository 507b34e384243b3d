// The generic input surface: what it refuses, what it raises, and what the
// view hears.
#include "DialogFixture.h"
#include "Snapshot.h"

namespace avlor::test {
namespace {

using dialog::DialogError;

class InputSurface : public DialogTest {
protected:
    void SetUp() override
    {
        DialogTest::SetUp();
        addUser(1, "Avv. Rossi", "150", "250000");
        addCase(7, "NULL", "EURO", 0, "Tribunale");
        addItem("Diritti2004Euro", 391, "D391", "Sessione");
        form = open(7, "15/03/2005");
    }

    // Runs `request`, which must be refused with `message` and change
    // nothing.
    template <class Request>
    void expectRefused(Request request, const std::string& message)
    {
        const std::string before = describe(*form);
        try {
            request();
            ADD_FAILURE() << "not refused: " << message;
        } catch (const DialogError& error) {
            EXPECT_EQ(error.what(), message);
        }
        EXPECT_EQ(describe(*form), before);
    }

    std::unique_ptr<dialog::frmOKParcella> form;
};

TEST_F(InputSurface, UnknownControlsAreRefusedByName)
{
    const std::string unknown = "The dialog \"Parcellazione Adempimento\" has no control named \"cmdSalva\"";
    expectRefused([&] { form->setText("cmdSalva", "x"); }, unknown);
    expectRefused([&] { form->typeText("cmdSalva", "x"); }, unknown);
    expectRefused([&] { form->click("cmdSalva"); }, unknown);
    expectRefused([&] { form->open("cmdSalva"); }, unknown);
    expectRefused([&] { form->choose("cmdSalva", 0); }, unknown);
    expectRefused([&] { form->chooseKey("cmdSalva", 1); }, unknown);
}

TEST_F(InputSurface, EventsAControlDoesNotHaveAreRefused)
{
    expectRefused([&] { form->click("FData"); }, "The control \"FData\" (DateField) cannot be clicked");
    expectRefused([&] { form->click("lblImporto"); }, "The control \"lblImporto\" (Label) cannot be clicked");
    expectRefused([&] { form->setText("cmdAggiungi", "x"); },
                  "The control \"cmdAggiungi\" (Button) takes no typed text");
    expectRefused([&] { form->typeText("optDiritti", "x"); },
                  "The control \"optDiritti\" (Option) takes no typed text");
    expectRefused([&] { form->open("FImporto"); }, "The control \"FImporto\" (MoneyField) is not a list that opens");
    expectRefused([&] { form->choose("txtDescrizione", 0); },
                  "The control \"txtDescrizione\" (TextBox) has no rows to choose from");
}

TEST_F(InputSurface, RowsThatAreNotThereAreRefused)
{
    expectRefused([&] { form->choose("cmbCodice", 0); }, "The control \"cmbCodice\" has no row 0 (it holds 0)");
    form->open("cmbCodice");
    expectRefused([&] { form->choose("cmbCodice", 1); }, "The control \"cmbCodice\" has no row 1 (it holds 1)");
    expectRefused([&] { form->choose("cmbCodice", -1); }, "The control \"cmbCodice\" has no row -1 (it holds 1)");
    expectRefused([&] { form->chooseKey("cmbCodice", 5); }, "The list \"cmbCodice\" has no row with key 5");
    expectRefused([&] { form->chooseKey("GrigliaParcella", 5); }, "The grid \"GrigliaParcella\" has no action 5");
    expectRefused([&] { form->choose("GrigliaParcella", 0); },
                  "The control \"GrigliaParcella\" has no row 0 (it holds 0)");
}

TEST_F(InputSurface, SetTextRaisesNoEventAndTypeTextDoes)
{
    form->open("cmbCodice");
    form->choose("cmbCodice", 0);
    form->setText("FData", "01/06/2004");
    EXPECT_EQ(form->state().sTabella, "Diritti2004Euro");
    EXPECT_EQ(form->control("FImporto").text, "10,00");
    form->typeText("FData", "01/06/2004");
    EXPECT_EQ(form->state().sTabella, "Diritti94Euro");
    EXPECT_EQ(form->control("FImporto").text, "");
    // Fields without change handling just take the text.
    form->typeText("txtDescrizione", "Nota");
    form->typeText("FImporto", "12,50");
    EXPECT_EQ(form->control("txtDescrizione").text, "Nota");
    EXPECT_EQ(form->amountOf("FImporto"), Currency::fromText("12.5"));
}

TEST_F(InputSurface, CheckBoxesToggle)
{
    form->click("chkIncludi");
    EXPECT_TRUE(form->control("chkIncludi").value);
    form->click("chkIncludi");
    EXPECT_FALSE(form->control("chkIncludi").value);
}

TEST_F(InputSurface, OptionsFormOneGroup)
{
    form->click("optPenale");
    int on = 0;
    for (const char* option :
         {"optOraria", "optDiritti", "optOnorari", "optStragiudiziale", "optPenale", "optParcellaBase"}) {
        on += form->control(option).value ? 1 : 0;
    }
    EXPECT_EQ(on, 1);
    EXPECT_TRUE(form->control("optPenale").value);
}

TEST_F(InputSurface, TheViewHearsOfEveryChange)
{
    view.events.clear();
    form->typeText("FMinuti", "-");
    EXPECT_EQ(view.events, (std::vector<std::string>{"changed FMinuti", "changed FMinuti", "changed FImporto"}));
    view.events.clear();
    form->open("cmbVoce");
    EXPECT_EQ(view.events, (std::vector<std::string>{"busy on", "changed cmbVoce", "busy off"}));
}

TEST_F(InputSurface, WithoutAViewNothingIsShownAndAllStillWorks)
{
    dialog::frmOKParcella quiet(clock, Locale::italian());
    quiet.Setta(7, "", "", "15/03/2005");
    quiet.Form_Load();
    quiet.open("cmbCodice");
    quiet.choose("cmbCodice", 0);
    EXPECT_EQ(quiet.control("FImporto").text, "10,00");
}

} // namespace
} // namespace avlor::test
