// The grid's text array: filters, order, amounts, hours.
#include "DialogFixture.h"

namespace avlor::test {
namespace {

class ActionsGrid : public DialogTest {
protected:
    void SetUp() override
    {
        DialogTest::SetUp();
        addUser(1, "Avv. Rossi", "150", "250000");
        addUser(2, "Dott. Verdi", "80", "120000");
        addCase(7, "NULL", "EURO", 0, "Tribunale");
        addCase(8, "NULL", "EURO", 0, "Tribunale");
    }

    static std::vector<std::string> column(const dialog::frmOKParcella& form, std::size_t index)
    {
        std::vector<std::string> result;
        for (const auto& row : form.control("GrigliaParcella").rows) {
            result.push_back(row.at(index));
        }
        return result;
    }
};

TEST_F(ActionsGrid, CaseWithoutActionsGivesAnEmptyGridWithoutPosition)
{
    const auto form = open(7, "15/03/2005");
    EXPECT_TRUE(form->control("GrigliaParcella").rows.empty());
    EXPECT_EQ(form->control("GrigliaParcella").current, -1);
    EXPECT_TRUE(form->state().ArrayAzioni.empty());
}

TEST_F(ActionsGrid, TariffActionsOfTheCaseInOrderNumber)
{
    Action a;
    a.descr = "Terza";
    a.nOrdine = 3;
    addAction(a);
    a.descr = "Prima";
    a.nOrdine = 1;
    addAction(a);
    a.descr = "Oraria";
    a.tariffa = false;
    addAction(a);
    a.descr = "Altra pratica";
    a.tariffa = true;
    a.pratica = 8;
    addAction(a);
    a.descr = "Utente sconosciuto";
    a.pratica = 7;
    a.eseguitoDa = 99;
    addAction(a);
    const auto form = open(7, "15/03/2005");
    EXPECT_EQ(column(*form, 4), (std::vector<std::string>{"Prima", "Terza"}));
    EXPECT_EQ(column(*form, 2), (std::vector<std::string>{"1", "3"}));
    EXPECT_EQ(form->control("GrigliaParcella").current, 0);
    EXPECT_EQ(form->state().ArrayAzioni, form->control("GrigliaParcella").rows);
}

TEST_F(ActionsGrid, AmountsWithTheirCurrencySign)
{
    Action a;
    a.valuta = "LIRA";
    a.diritti = "12345.60";
    a.onorari = "0";
    a.imponibili = "12344.50";
    a.esenti = "7";
    addAction(a);
    a.nOrdine = 2;
    a.valuta = " euro ";
    a.diritti = "1234.5";
    a.imponibili = "0.25";
    a.esenti = "1000000";
    addAction(a);
    const auto form = open(7, "15/03/2005");
    const auto& rows = form->control("GrigliaParcella").rows;
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(std::vector<std::string>(rows[0].begin() + 6, rows[0].begin() + 10),
              (std::vector<std::string>{"L. 12.346", "0", "L. 12.344", "L. 7"}));
    EXPECT_EQ(std::vector<std::string>(rows[1].begin() + 6, rows[1].begin() + 10),
              (std::vector<std::string>{"\u20AC  1.234,50", "0", "\u20AC  ,25", "\u20AC  1.000.000,00"}));
}

TEST_F(ActionsGrid, HoursAndMinutes)
{
    Action a;
    a.tariffa = false;
    a.minuti = 45;
    addAction(a);
    a.nOrdine = 2;
    a.minuti = 0;
    addAction(a);
    a.nOrdine = 3;
    a.ore = 2;
    a.minuti = 30;
    addAction(a);
    const auto form = open(7, "15/03/2005");
    form->click("optOraria");
    EXPECT_EQ(column(*form, 11), (std::vector<std::string>{"0:45''", "", "2:30''"}));
}

TEST_F(ActionsGrid, EveryColumnOfARow)
{
    Action a;
    a.nOrdine = 4;
    a.data = "02/06/2004";
    a.descr = "Udienza";
    a.quantita = "2";
    a.onorari = "250";
    a.eseguitoDa = 2;
    a.inNotaSpese = true;
    a.fattura = true;
    const std::int32_t id = addAction(a);
    const auto form = open(7, "15/03/2005");
    EXPECT_EQ(form->control("GrigliaParcella").rows,
              (std::vector<std::vector<std::string>>{{std::to_string(id), "True", "4", "02/06/2004", "Udienza", "2",
                                                      "0", "\u20AC  250,00", "0", "0", "Dott. Verdi", "", "2", "-1"}}));
}

TEST_F(ActionsGrid, ShowAllListsBothSequences)
{
    Action a;
    a.descr = "Tariffa";
    addAction(a);
    a.descr = "Oraria";
    a.tariffa = false;
    addAction(a);
    const auto form = open(7, "15/03/2005");
    EXPECT_EQ(column(*form, 4), (std::vector<std::string>{"Tariffa"}));
    form->click("chkMosTut");
    EXPECT_TRUE(form->control("chkMosTut").value);
    EXPECT_EQ(column(*form, 4), (std::vector<std::string>{"Tariffa", "Oraria"}));
    form->click("chkMosTut");
    EXPECT_EQ(column(*form, 4), (std::vector<std::string>{"Tariffa"}));
    form->click("optOraria");
    EXPECT_EQ(column(*form, 4), (std::vector<std::string>{"Oraria"}));
}

TEST_F(ActionsGrid, ColumnCaptionsFollowTheKindOfEntry)
{
    const auto form = open(7, "15/03/2005");
    const std::vector<std::string> tariff = {
        "IDAZIONE",   "",           "",           "Data",        "Azione",      "",
        "Diritti",    "Onorari  ",  "Spese Imp.", "Spese Esen.", "Eseguito da", "HH:MM",
        "IdEseguito", "IsNotaSpese"};
    EXPECT_EQ(form->control("GrigliaParcella").columns, tariff);
    form->click("optOraria");
    EXPECT_EQ(form->control("GrigliaParcella").columns[7], "Importo  ");
    form->click("optPenale");
    EXPECT_EQ(form->control("GrigliaParcella").columns, tariff);
}

} // namespace
} // namespace avlor::test
