// The order number proposed for a new action, as the entry shows it.
#include "DialogFixture.h"

namespace avlor::test {
namespace {

class OrderNumber : public DialogTest {
protected:
    void SetUp() override
    {
        DialogTest::SetUp();
        addUser(1, "Avv. Rossi", "150", "250000");
        addCase(7, "NULL", "EURO", 0, "Tribunale");
    }

    std::string proposed(const std::string& day) { return open(7, day)->control("FNumOrdine").text; }
};

TEST_F(OrderNumber, FirstActionOfTheCaseIsOne) { EXPECT_EQ(proposed("15/03/2005"), "1"); }

TEST_F(OrderNumber, AfterTheLastActionDatedOnOrBeforeTheDay)
{
    Action a;
    a.nOrdine = 1;
    a.data = "01/02/2005";
    addAction(a);
    a.nOrdine = 2;
    a.data = "10/03/2005";
    addAction(a);
    a.nOrdine = 3;
    a.data = "20/04/2005";
    addAction(a);
    EXPECT_EQ(proposed("10/03/2005"), "3");
    // Later actions already hold 3: adding makes room.
    EXPECT_EQ(proposed("09/03/2005"), "2");
    EXPECT_EQ(proposed("31/01/2005"), "1");
    EXPECT_EQ(proposed("21/04/2005"), "4");
}

TEST_F(OrderNumber, SameDayTakesTheHighestNumber)
{
    Action a;
    a.nOrdine = 7;
    a.data = "10/03/2005";
    addAction(a);
    a.nOrdine = 5;
    addAction(a);
    EXPECT_EQ(proposed("10/03/2005"), "8");
}

TEST_F(OrderNumber, TheTwoSequencesAreApart)
{
    Action a;
    a.tariffa = false;
    a.nOrdine = 12;
    addAction(a);
    EXPECT_EQ(proposed("15/03/2005"), "1");
    const auto form = open(7, "15/03/2005");
    form->click("optOraria");
    EXPECT_EQ(form->control("FNumOrdine").text, "13");
}

TEST_F(OrderNumber, TheNumberAfter32767IsShownForTheSaveToRefuse)
{
    Action a;
    a.nOrdine = 32767;
    addAction(a);
    EXPECT_EQ(proposed("15/03/2005"), "32768");
}

TEST_F(OrderNumber, UnreadableActionsProposeZero)
{
    db.dropTable("Azioni");
    EXPECT_EQ(proposed("15/03/2005"), "0");
    EXPECT_EQ(view.count("busy on"), view.count("busy off"));
}

} // namespace
} // namespace avlor::test
