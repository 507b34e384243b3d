// Taking the context, reading the case file and the configuration, the
// default table and the money fields.
#include "DialogFixture.h"

namespace avlor::test {
namespace {

using dialog::DialogError;

class Startup : public DialogTest {
protected:
    void SetUp() override
    {
        DialogTest::SetUp();
        addUser(1, "Avv. Rossi", "150", "250000");
    }
};

TEST_F(Startup, CurrentUserFromTheSettingsStore)
{
    addCase(7, "NULL", "EURO", 0, "");
    const std::vector<std::pair<std::string, std::int32_t>> cases = {{"1", 1},   {"abc", 0},     {"7.5", 8},
                                                                     {"2.5", 2}, {" 12xyz", 12}, {"-4", -4}};
    for (const auto& [setting, expected] : cases) {
        setCurrentUser(setting);
        dialog::frmOKParcella form(clock, Locale::italian());
        form.Setta(7, "", "", "15/03/2005");
        EXPECT_EQ(form.state().idUtenteCorrente, expected) << setting;
    }
}

TEST_F(Startup, MissingSettingGivesMinusOne)
{
    EnvironmentGuard::set("AVLOR_SETTINGS", (db.folder() / "none.ini").string());
    dialog::frmOKParcella form(clock, Locale::italian());
    form.Setta(7, "parti", "adempimento", "15/03/2005");
    const dialog::FormState s = form.state();
    EXPECT_EQ(s.idUtenteCorrente, -1);
    EXPECT_EQ(s.idPratica, 7);
    EXPECT_EQ(s.sParti, "parti");
    EXPECT_EQ(s.sAdempEff, "adempimento");
    EXPECT_EQ(s.sData, "15/03/2005");
}

TEST_F(Startup, EuroWordIsComparedTrimmedButWithItsCase)
{
    addCase(7, "NULL", " EURO ", 0, "");
    addCase(8, "NULL", "Euro", 0, "");
    EXPECT_EQ(open(7, "15/03/2005")->state().ValutaPratica, "EURO");
    EXPECT_EQ(open(8, "15/03/2005")->state().ValutaPratica, "LIRA");
}

TEST_F(Startup, CaseWithoutPositiveValueIsOfIndeterminateValue)
{
    addCase(7, "0", "EURO", 0, "");
    addCase(8, "-250", "EURO", 0, "");
    addCase(9, "NULL", "EURO", 0, "");
    addCase(10, "1500.25", "EURO", 40, "Tribunale");
    for (std::int32_t id : {7, 8, 9}) {
        const dialog::FormState s = open(id, "15/03/2005")->state();
        EXPECT_EQ(s.Valore, Currency{}) << id;
        EXPECT_TRUE(s.bIndeterminato) << id;
    }
    const dialog::FormState s = open(10, "15/03/2005")->state();
    EXPECT_EQ(s.Valore, Currency::fromText("1500.25"));
    EXPECT_FALSE(s.bIndeterminato);
    EXPECT_EQ(s.Rilevanza, 40);
    EXPECT_EQ(s.Autorita, "Tribunale");
    EXPECT_EQ(s.ValutaDefault, "EURO");
    EXPECT_EQ(s.CambioLiraEuro, Currency::fromText("1936.27"));
}

TEST_F(Startup, DefaultTableFromTheWorkDateAndTheDefaultCurrency)
{
    addCase(7, "NULL", "EURO", 0, "");
    EXPECT_EQ(open(7, "02/06/2004")->state().sTabella, "Diritti2004Euro");
    EXPECT_EQ(open(7, "01/06/2004")->state().sTabella, "Diritti94Euro");
    // The work date decides, not the day the dialog is opened.
    clock->set(Date::fromDayFirst("01/01/2001"));
    EXPECT_EQ(open(7, "15/03/2005")->state().sTabella, "Diritti2004Euro");
    setDefaultCurrency("LIRA");
    EXPECT_EQ(open(7, "15/03/2005")->state().sTabella, "Diritti94");
    EXPECT_EQ(open(7, "01/06/2004")->state().sTabella, "Diritti94");
    // A default currency that is neither word counts as euro here.
    setDefaultCurrency("DOLLARO");
    EXPECT_EQ(open(7, "15/03/2005")->state().sTabella, "Diritti2004Euro");
}

TEST_F(Startup, TheEntryStartsOnRightsWithTheWorkDateAndTheNextNumber)
{
    addCase(7, "NULL", "EURO", 0, "");
    const auto form = open(7, "5/3/2005");
    EXPECT_TRUE(form->control("optDiritti").value);
    EXPECT_EQ(form->control("FData").text, "05/03/2005");
    EXPECT_EQ(form->control("FNumOrdine").text, "1");
    EXPECT_EQ(form->control("FQuantita").text, "1");
    EXPECT_EQ(form->control("lblClienteContro").caption, "Rossi Mario / Bianchi SpA");
    EXPECT_EQ(form->control("lblAdempimento").caption, "Atto di citazione");
    EXPECT_EQ(form->state().NomiCampi, dialog::gridFieldNames());
    EXPECT_FALSE(form->state().bModifica);
    for (const char* name : {"FDenMaxS", "FDenMaxT", "FDenMinT", "FDenMinS", "FImporto", "FImponibili", "FEsenti"}) {
        EXPECT_EQ(form->control(name).currency, "EURO") << name;
        EXPECT_EQ(form->control(name).exchangeRate, Currency::fromText("1936.27")) << name;
    }
    EXPECT_FALSE(form->closed());
}

TEST_F(Startup, EveryDatabaseRoutineShowsTheBusyPointer)
{
    addCase(7, "NULL", "EURO", 0, "");
    const auto form = open(7, "15/03/2005");
    // The numbers proposed by the option click and by the switch to tariff
    // entry, the case file, the start-up's number, the grid and the
    // performers: each routine on and off again.
    std::vector<std::string> busy;
    for (const std::string& event : view.events) {
        if (event.starts_with("busy")) {
            busy.push_back(event);
        }
    }
    EXPECT_EQ(busy,
              (std::vector<std::string>{"busy on", "busy off", "busy on", "busy off", "busy on", "busy off", "busy on",
                                        "busy off", "busy on", "busy off", "busy on", "busy off"}));
}

TEST_F(Startup, UnreadableConfigurationClosesTheDialog)
{
    addCase(7, "NULL", "EURO", 0, "");
    db.exec("DELETE FROM ConfigGenerale");
    const auto form = open(7, "15/03/2005");
    EXPECT_TRUE(form->closed());
    EXPECT_EQ(view.count("close"), 1);
    EXPECT_EQ(view.count("busy on"), view.count("busy off"));
    EXPECT_TRUE(messages().empty());
}

TEST_F(Startup, CaseOfAnotherFileIsNotRead)
{
    addCase(8, "1000", "EURO", 0, "");
    const auto form = open(7, "15/03/2005");
    EXPECT_TRUE(form->closed());
    EXPECT_TRUE(form->control("GrigliaParcella").rows.empty());
    EXPECT_TRUE(form->control("cmbEseguito").rows.empty());
}

TEST_F(Startup, UnreadableUsersLeaveThePerformerListEmpty)
{
    addCase(7, "NULL", "EURO", 0, "");
    db.dropTable("Utenti");
    const auto form = open(7, "15/03/2005");
    EXPECT_FALSE(form->closed());
    EXPECT_TRUE(form->control("cmbEseguito").rows.empty());
    EXPECT_EQ(form->control("cmbEseguito").current, -1);
    EXPECT_EQ(view.count("busy on"), view.count("busy off"));
}

TEST_F(Startup, WorkDateThatIsNoDateIsRefused)
{
    addCase(7, "NULL", "EURO", 0, "");
    dialog::frmOKParcella form(clock, Locale::italian());
    form.Setta(7, "", "", "31/02/2005");
    try {
        form.Form_Load();
        FAIL() << "the load accepted 31/02/2005";
    } catch (const DialogError& error) {
        EXPECT_STREQ(error.what(),
                     "La data del lavoro \"31/02/2005\" data al dialogo non è una data nella forma GG/MM/AAAA");
    }
}

} // namespace
} // namespace avlor::test
