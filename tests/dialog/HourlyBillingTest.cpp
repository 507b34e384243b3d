// Time entry: the performer list, the amount from hours and minutes and its
// rounding, and the switch between the two kinds of entry.
#include "DialogFixture.h"

namespace avlor::test {
namespace {

class HourlyBilling : public DialogTest {
protected:
    void SetUp() override
    {
        DialogTest::SetUp();
        addUser(1, "Avv. Rossi", "150", "50000");
        addUser(2, "Dott. Verdi", "99.99", "40000");
        addUser(3, "Praticante", "0.4", "60000");
        addCase(7, "NULL", "LIRA", 0, "Tribunale");
        addCase(8, "NULL", "EURO", 0, "Tribunale");
    }

    std::string amountFor(std::int32_t pratica, std::int32_t user, const std::string& ore, const std::string& minuti)
    {
        const auto form = open(pratica, "15/03/2005");
        form->click("optOraria");
        form->chooseKey("cmbEseguito", user);
        form->typeText("FOre", ore);
        form->typeText("FMinuti", minuti);
        return form->control("FImporto").text;
    }
};

TEST_F(HourlyBilling, LireAmountsRoundUpToTheThousandByTheTestOn5000)
{
    EXPECT_EQ(amountFor(7, 1, "2", "0"), "100.000"); // a multiple of 5000
    EXPECT_EQ(amountFor(7, 2, "1", "30"), "60.000"); // 40000 + 20000
    EXPECT_EQ(amountFor(7, 3, "0", "10"), "10.000"); // 10000 stays
    EXPECT_EQ(amountFor(7, 3, "0", "6"), "7.000"); // 6000 becomes 7000
    EXPECT_EQ(amountFor(7, 3, "0", "5"), "5.000"); // 5000 stays
    EXPECT_EQ(amountFor(7, 2, "1.5", ""), "60.000"); // fractions of an hour
    EXPECT_EQ(amountFor(7, 2, "0", "1"), "1.000"); // 666.67 up to 1000
    EXPECT_EQ(amountFor(7, 1, "0", "0.4"), ""); // minutes rounded to 0
}

TEST_F(HourlyBilling, EuroAmountsBelowAThousandBecomeAThousand)
{
    EXPECT_EQ(amountFor(8, 1, "2", ""), "1.000,00");
    EXPECT_EQ(amountFor(8, 2, "10", ""), "1.000,00"); // 999.90
    EXPECT_EQ(amountFor(8, 1, "40", ""), "7.000,00"); // 6000
    // The test is on the whole value: 0.40 rounds to 0 and stays 0.
    EXPECT_EQ(amountFor(8, 3, "1", ""), ",00");
}

TEST_F(HourlyBilling, EmptyHoursAndMinutesGiveZeroUnrounded)
{
    EXPECT_EQ(amountFor(7, 1, "", ""), "");
    EXPECT_EQ(amountFor(8, 1, "", ""), ",00");
    EXPECT_EQ(amountFor(8, 1, "abc", "xyz"), ",00");
}

TEST_F(HourlyBilling, LoneMinusSignIsCleared)
{
    const auto form = open(7, "15/03/2005");
    form->click("optOraria");
    form->typeText("FOre", " - ");
    EXPECT_EQ(form->control("FOre").text, "");
    form->typeText("FMinuti", "-");
    EXPECT_EQ(form->control("FMinuti").text, "");
    form->typeText("FMinuti", "-5");
    EXPECT_EQ(form->control("FMinuti").text, "-5");
}

TEST_F(HourlyBilling, ChoosingAPerformerTakesTheRatesAndPricesAgain)
{
    const auto form = open(7, "15/03/2005");
    form->click("optOraria");
    form->typeText("FOre", "1");
    EXPECT_EQ(form->control("FImporto").text, "50.000");
    form->chooseKey("cmbEseguito", 2);
    EXPECT_EQ(form->control("FImporto").text, "40.000");
    const dialog::FormState s = form->state();
    EXPECT_EQ(s.idEseguitoDa, 2);
    EXPECT_EQ(s.TariffaEuro, Currency::fromText("99.99"));
    EXPECT_EQ(s.TariffaLira, Currency::fromText("40000"));
    EXPECT_EQ(form->control("cmbEseguito").text, "Dott. Verdi");
}

TEST_F(HourlyBilling, PerformerListShowsTheRatesAndSelectsTheCurrentUser)
{
    setCurrentUser("2");
    const auto form = open(7, "15/03/2005");
    const dialog::Control& list = form->control("cmbEseguito");
    EXPECT_EQ(list.columns, (std::vector<std::string>{"Utente", "TAREURO", "TARLIRE"}));
    EXPECT_EQ(list.keys, (std::vector<std::int32_t>{1, 2, 3}));
    EXPECT_EQ(list.rows,
              (std::vector<std::vector<std::string>>{{"Avv. Rossi", "150,00", "50.000"},
                                                     {"Dott. Verdi", "99,99", "40.000"},
                                                     {"Praticante", ",40", "60.000"}}));
    EXPECT_EQ(list.current, 1);
    EXPECT_EQ(list.text, "Dott. Verdi");
    // Selecting the current user's row does not price anything.
    EXPECT_EQ(form->control("FImporto").text, "");
}

TEST_F(HourlyBilling, UnknownUserSelectsNoPerformer)
{
    setCurrentUser("42");
    const auto form = open(7, "15/03/2005");
    form->click("optOraria");
    EXPECT_EQ(form->control("cmbEseguito").current, -1);
    EXPECT_EQ(form->control("cmbEseguito").text, "");
    EXPECT_EQ(form->state().idEseguitoDa, 0);
    form->typeText("FOre", "3");
    EXPECT_EQ(form->control("FImporto").text, "");
}

TEST_F(HourlyBilling, TimeEntryShowsItsFramesAndProposesAnHourlyNumber)
{
    Action a;
    a.tariffa = false;
    a.nOrdine = 4;
    a.data = "01/03/2005";
    a.valuta = "LIRA";
    addAction(a);
    a.tariffa = true;
    a.nOrdine = 9;
    addAction(a);
    const auto form = open(7, "15/03/2005");
    EXPECT_EQ(form->control("FNumOrdine").text, "10");
    form->typeText("FOre", "1");
    form->click("optOraria");
    EXPECT_EQ(form->control("FNumOrdine").text, "5");
    for (const char* name : {"fraTempo", "fraEseguito", "fraDescrizione"}) {
        EXPECT_TRUE(form->control(name).visible) << name;
    }
    for (const char* name : {"fraMinMax", "fraStaord", "fraCodice", "fraN", "fraVoce", "lblMINMAXS", "lblMINMAXT"}) {
        EXPECT_FALSE(form->control(name).visible) << name;
    }
    // The switch itself leaves the values as they are.
    EXPECT_EQ(form->control("FOre").text, "1");
    form->click("optDiritti");
    EXPECT_EQ(form->control("FNumOrdine").text, "10");
    for (const char* name : {"fraTempo", "fraEseguito", "fraDescrizione"}) {
        EXPECT_FALSE(form->control(name).visible) << name;
    }
    for (const char* name : {"fraMinMax", "fraStaord", "fraCodice", "fraN", "fraVoce", "lblMINMAXS", "lblMINMAXT"}) {
        EXPECT_TRUE(form->control(name).visible) << name;
    }
}

TEST_F(HourlyBilling, LoadedActionKeepsItsNumberWhenTheEntrySwitches)
{
    Action a;
    a.nOrdine = 6;
    a.valuta = "LIRA";
    const std::int32_t id = addAction(a);
    const auto form = open(7, "15/03/2005");
    form->chooseKey("GrigliaParcella", id);
    ASSERT_EQ(form->control("FNumOrdine").text, "6");
    // A different kind abandons the change only after switching the entry,
    // so the number of the loaded action stays.
    form->click("optOnorari");
    EXPECT_EQ(form->control("FNumOrdine").text, "6");
    EXPECT_EQ(form->state().idAzioneCorrente, 0);
}

} // namespace
} // namespace avlor::test
