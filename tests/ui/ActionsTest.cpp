// Adding, changing and deleting actions from the window: typed into the real
// widgets, the buttons clicked, the questions answered in real message
// boxes, then the practice database and the grid compared.
#include <algorithm>

#include "WindowFixture.h"
#include "avlor/dialog/MoneyText.h"

namespace avlor::test {
namespace {

const auto* const qtEnvironment = testing::AddGlobalTestEnvironment(new QtEnvironment);

class WindowActions : public WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        addUser(1, "Avv. Rossi", "150", "250000");
        addUser(2, "Dott. Verdi", "90", "170000");
        addCase(7, "NULL", "EURO", 50, "Tribunale");
        // A case of indeterminate value: proposal 100, band 100 to 300.
        addItem("Onorari2004Euro", 20, "O20", "Studio della controversia", "Tribunale",
                "MININDET, MAXINDET, MINSTRAORDIMP, MAXSTRAORDIMP|" + TestDatabase::amount("100") + ", " +
                    TestDatabase::amount("300") + ", " + TestDatabase::amount("50") + ", " +
                    TestDatabase::amount("900"));
    }

    [[nodiscard]] std::int64_t actions() const { return db.value("SELECT COUNT(*) FROM Azioni").toLong(); }

    void chooseStudio()
    {
        clickOn("optOnorari");
        pickFromList("cmbVoce", "Studio della controversia");
        ASSERT_EQ(form->state().idTariffa, 20);
    }

    // The grid on screen is the dialog's array, which is the database's.
    void expectGridIsTheDialogs() const { EXPECT_EQ(gridShown(), form->control("GrigliaParcella").rows); }

    // Answers every question with its first button (OK or Sì), noting them.
    static BoxAnswerer::Answer firstButton()
    {
        return [](const SeenBox& box) { return box.buttons.empty() ? std::string() : box.buttons.front(); };
    }
};

TEST_F(WindowActions, AddingATariffAction)
{
    openWindow(7, "15/03/2005");
    chooseStudio();
    const std::string amount = shown("FImporto");
    BoxAnswerer answers(firstButton());
    clickOn("cmdAggiungi");
    ASSERT_EQ(actions(), 1);
    const auto row = db.rows("SELECT Descr, Onorari, IsTariffa, TabellaTariffa, IdPra FROM Azioni");
    EXPECT_EQ(row[0][0].toText(), "Studio della controversia");
    EXPECT_EQ(row[0][1].toCurrency(), dialog::readAmount(amount, Locale::italian()));
    EXPECT_TRUE(row[0][2].toBool());
    EXPECT_EQ(row[0][3].toText(), "Onorari2004Euro");
    EXPECT_EQ(row[0][4].toLong(), 7);
    ASSERT_EQ(gridShown().size(), 1u);
    expectGridIsTheDialogs();
    EXPECT_EQ(gridShown()[0][4], "Studio della controversia");
}

TEST_F(WindowActions, AddingAboveTheMaximumAndCancelling)
{
    openWindow(7, "15/03/2005");
    chooseStudio();
    typeInto("FImporto", "500");
    BoxAnswerer answers([](const SeenBox& box) {
        // The question about the maximum is declined.
        return std::find(box.buttons.begin(), box.buttons.end(), "Annulla") != box.buttons.end() ? "Annulla" : "OK";
    });
    clickOn("cmdAggiungi");
    ASSERT_FALSE(answers.seen.empty());
    EXPECT_EQ(answers.seen[0].buttons, (std::vector<std::string>{"OK", "Annulla"}));
    EXPECT_EQ(actions(), 0);
    EXPECT_TRUE(gridShown().empty());
}

TEST_F(WindowActions, ChangingAnAction)
{
    Action a;
    a.descr = "Studio della controversia";
    a.onorari = "120";
    a.tabella = "Onorari2004Euro";
    a.voce = 20;
    a.tipo = 2;
    const std::int32_t id = addAction(a);
    openWindow(7, "15/03/2005");
    clickGridRowOf(id);
    ASSERT_EQ(form->state().idAzioneCorrente, id);
    typeInto("FImporto", "250");
    BoxAnswerer answers(firstButton());
    clickOn("cmdModifica");
    EXPECT_EQ(actions(), 1);
    EXPECT_EQ(db.value("SELECT Onorari FROM Azioni WHERE IdAzione = " + std::to_string(id)).toCurrency(),
              Currency::fromText("250"));
    expectGridIsTheDialogs();
}

TEST_F(WindowActions, DeletingAnInvoicedActionAndDeclining)
{
    Action a;
    a.descr = "Udienza";
    a.onorari = "150";
    a.fattura = true;
    const std::int32_t id = addAction(a);
    openWindow(7, "15/03/2005");
    clickGridRowOf(id);
    // Whatever is asked before, the deletion of an invoiced action is
    // declined.
    // The invoiced question comes while the dialog works on the database:
    // the pointer is the ordinary one over the question and the wait cursor
    // under it.
    std::vector<Qt::CursorShape> pointers;
    BoxAnswerer answers([&pointers](const SeenBox& box) -> std::string {
        const bool invoiced = box.text.find("attur") != std::string::npos;
        if (invoiced && QApplication::overrideCursor() != nullptr) {
            pointers.push_back(QApplication::overrideCursor()->shape());
            QApplication::restoreOverrideCursor();
            pointers.push_back(QApplication::overrideCursor() != nullptr ? QApplication::overrideCursor()->shape()
                                                                         : Qt::BitmapCursor);
            QApplication::setOverrideCursor(Qt::ArrowCursor);
        }
        if (std::find(box.buttons.begin(), box.buttons.end(), "No") != box.buttons.end())
            return invoiced ? "No" : "Sì";
        if (std::find(box.buttons.begin(), box.buttons.end(), "Annulla") != box.buttons.end())
            return invoiced ? "Annulla" : "OK";
        return "OK";
    });
    clickOn("cmdCancella");
    ASSERT_FALSE(answers.seen.empty());
    EXPECT_EQ(pointers, (std::vector<Qt::CursorShape>{Qt::ArrowCursor, Qt::WaitCursor}));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(actions(), 1);
    EXPECT_EQ(gridShown().size(), 1u);
    expectGridIsTheDialogs();
}

TEST_F(WindowActions, AddingAnHourlyAction)
{
    openWindow(7, "15/03/2005");
    clickOn("optOraria");
    pickFromList("cmbEseguito", "Dott. Verdi");
    typeInto("FOre", "2");
    typeInto("FMinuti", "30");
    typeInto("txtDescrizione", "Ricerca di giurisprudenza");
    const Currency amount = form->amountOf("FImporto");
    ASSERT_NE(amount, Currency{});
    BoxAnswerer answers(firstButton());
    clickOn("cmdAggiungi");
    ASSERT_EQ(actions(), 1);
    const auto row = db.rows("SELECT Descr, Onorari, IsTariffa, IdEseguitoDa, Ore, Minuti FROM Azioni");
    EXPECT_EQ(row[0][0].toText(), "Ricerca di giurisprudenza");
    EXPECT_EQ(row[0][1].toCurrency(), amount);
    EXPECT_FALSE(row[0][2].toBool());
    EXPECT_EQ(row[0][3].toLong(), 2);
    ASSERT_EQ(gridShown().size(), 1u);
    expectGridIsTheDialogs();
}

} // namespace
} // namespace avlor::test
