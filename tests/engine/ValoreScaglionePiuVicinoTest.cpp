// The bracket amount of a rights row nearest to a given amount.
#include <gtest/gtest.h>

#include "EngineCall.h"
#include "FeeRowFixture.h"
#include "avlor/data/DataError.h"
#include "avlor/engine/ValoreScaglionePiuVicino.h"

namespace avlor {
namespace {

using test::amount;
using test::FeeColumns;
using test::FeeRowFixture;

// Columns 1 and 2 as given, the others null.
FeeColumns twoColumns(const char* first, const char* second)
{
    FeeColumns columns{{"VALORESCA1", first}, {"VALORESCA2", second}};
    for (int k = 3; k <= 13; ++k)
        columns.emplace_back("VALORESCA" + std::to_string(k), "NULL");
    return columns;
}

class ValoreScaglionePiuVicinoTest : public test::FeeDatabaseTest {
protected:
    void SetUp() override
    {
        FeeRowFixture::deleteRows("Diritti2004Euro");
        FeeRowFixture::deleteRows("Diritti94");
    }
};

TEST_F(ValoreScaglionePiuVicinoTest, ATieKeepsTheLowerColumn)
{
    FeeRowFixture::insertRow("Diritti2004Euro", 1, "1", twoColumns("100", "200"));
    const Value nearest = ValoreScaglionePiuVicino(amount("150"), 1, "Diritti2004Euro");
    EXPECT_EQ(nearest.toCurrency().toFixed4(), "100.0000");
}

TEST_F(ValoreScaglionePiuVicinoTest, TheNearestWins)
{
    FeeRowFixture::insertRow("Diritti2004Euro", 1, "1", twoColumns("100", "200"));
    EXPECT_EQ(ValoreScaglionePiuVicino(amount("150.0001"), 1, "Diritti2004Euro").toCurrency().toFixed4(), "200.0000");
    EXPECT_EQ(ValoreScaglionePiuVicino(amount("-1000"), 1, "Diritti2004Euro").toCurrency().toFixed4(), "100.0000");
    EXPECT_EQ(ValoreScaglionePiuVicino(amount("1000000"), 1, "Diritti2004Euro").toCurrency().toFixed4(), "200.0000");
}

TEST_F(ValoreScaglionePiuVicinoTest, TheAnswerIsTheColumnAsStored)
{
    FeeRowFixture::insertRow("Diritti2004Euro", 1, "1", twoColumns("100.25", "NULL"));
    const Value nearest = ValoreScaglionePiuVicino(amount("500"), 1, "Diritti2004Euro");
    EXPECT_EQ(nearest.kind(), ValueKind::Currency);
    EXPECT_EQ(nearest.asCurrency().toFixed4(), "100.2500");
}

TEST_F(ValoreScaglionePiuVicinoTest, NullColumnsNeverWin)
{
    FeeRowFixture::insertRow("Diritti2004Euro", 1, "1", twoColumns("NULL", "900"));
    EXPECT_EQ(ValoreScaglionePiuVicino(amount("0"), 1, "Diritti2004Euro").toCurrency().toFixed4(), "900.0000");
}

TEST_F(ValoreScaglionePiuVicinoTest, WithoutAnyAmountTheAnswerIsEmpty)
{
    FeeRowFixture::insertRow("Diritti2004Euro", 1, "1", twoColumns("NULL", "NULL"));
    const Value nearest = ValoreScaglionePiuVicino(amount("10"), 1, "Diritti2004Euro");
    EXPECT_TRUE(nearest.isEmpty());
    EXPECT_EQ(nearest.toCurrency(), Currency{});
}

TEST_F(ValoreScaglionePiuVicinoTest, TheLastOfThirteenColumnsIsConsidered)
{
    FeeColumns columns;
    for (int k = 1; k <= 13; ++k)
        columns.emplace_back("VALORESCA" + std::to_string(k), std::to_string(k * 10));
    FeeRowFixture::insertRow("Diritti94", 2, "2", columns);
    EXPECT_EQ(ValoreScaglionePiuVicino(amount("1000"), 2, "Diritti94").toCurrency().toFixed4(), "130.0000");
    EXPECT_EQ(ValoreScaglionePiuVicino(amount("64"), 2, "Diritti94").toCurrency().toFixed4(), "60.0000");
    EXPECT_EQ(ValoreScaglionePiuVicino(amount("66"), 2, "Diritti94").toCurrency().toFixed4(), "70.0000");
}

TEST_F(ValoreScaglionePiuVicinoTest, AMissingRowOrTableFails)
{
    EXPECT_THROW(static_cast<void>(ValoreScaglionePiuVicino(amount("10"), 99, "Diritti2004Euro")), DataError);
    EXPECT_THROW(static_cast<void>(ValoreScaglionePiuVicino(amount("10"), 1, "NoSuchTable")), DataError);
}

} // namespace
} // namespace avlor
