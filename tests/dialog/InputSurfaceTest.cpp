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
    const std::string unknown = "Il dialogo \"Parcellazione Adempimento\" non ha un controllo di nome \"cmdSalva\"";
    expectRefused([&] { form->setText("cmdSalva", "x"); }, unknown);
    expectRefused([&] { form->typeText("cmdSalva", "x"); }, unknown);
    expectRefused([&] { form->click("cmdSalva"); }, unknown);
    expectRefused([&] { form->open("cmdSalva"); }, unknown);
    expectRefused([&] { form->choose("cmdSalva", 0); }, unknown);
    expectRefused([&] { form->chooseKey("cmdSalva", 1); }, unknown);
}

TEST_F(InputSurface, EventsAControlDoesNotHaveAreRefused)
{
    expectRefused([&] { form->click("FData"); }, "Il controllo \"FData\" (DateField) non si clicca");
    expectRefused([&] { form->click("lblImporto"); }, "Il controllo \"lblImporto\" (Label) non si clicca");
    expectRefused([&] { form->setText("cmdAggiungi", "x"); }, "Nel controllo \"cmdAggiungi\" (Button) non si scrive");
    expectRefused([&] { form->typeText("optDiritti", "x"); }, "Nel controllo \"optDiritti\" (Option) non si scrive");
    expectRefused([&] { form->open("FImporto"); },
                  "Il controllo \"FImporto\" (MoneyField) non è un elenco che si apre");
    expectRefused([&] { form->choose("txtDescrizione", 0); },
                  "Il controllo \"txtDescrizione\" (TextBox) non ha righe da scegliere");
}

TEST_F(InputSurface, RowsThatAreNotThereAreRefused)
{
    expectRefused([&] { form->choose("cmbCodice", 0); }, "Il controllo \"cmbCodice\" non ha la riga 0 (ne ha 0)");
    form->open("cmbCodice");
    expectRefused([&] { form->choose("cmbCodice", 1); }, "Il controllo \"cmbCodice\" non ha la riga 1 (ne ha 1)");
    expectRefused([&] { form->choose("cmbCodice", -1); }, "Il controllo \"cmbCodice\" non ha la riga -1 (ne ha 1)");
    expectRefused([&] { form->chooseKey("cmbCodice", 5); }, "L'elenco \"cmbCodice\" non ha una riga con chiave 5");
    expectRefused([&] { form->chooseKey("GrigliaParcella", 5); }, "La griglia \"GrigliaParcella\" non ha l'azione 5");
    expectRefused([&] { form->choose("GrigliaParcella", 0); },
                  "Il controllo \"GrigliaParcella\" non ha la riga 0 (ne ha 0)");
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
