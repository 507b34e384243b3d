// Placing a proposal in its band by relevance, and the money arithmetic
// under it.
#include <gtest/gtest.h>

#include "avlor/core/Error.h"
#include "avlor/engine/AmountMath.h"
#include "avlor/engine/Relevance.h"

namespace avlor {
namespace {

Currency amount(const char* text) { return Currency::fromText(text); }

TEST(Relevance, EndPointsGiveTheBandLimits)
{
    EXPECT_EQ(proposalByRelevance(amount("15000"), amount("50000"), 0).toFixed4(), "15000.0000");
    EXPECT_EQ(proposalByRelevance(amount("15000"), amount("50000"), 100).toFixed4(), "50000.0000");
}

TEST(Relevance, BetweenTheEndsTheProposalIsInterpolated)
{
    // 15,000 + 35,000 x 37 / 100.
    EXPECT_EQ(proposalByRelevance(amount("15000"), amount("50000"), 37).toFixed4(), "27950.0000");
    EXPECT_EQ(proposalByRelevance(amount("7.75"), amount("25.82"), 37).toFixed4(), "14.4359");
    EXPECT_EQ(proposalByRelevance(amount("7.75"), amount("25.82"), 1).toFixed4(), "7.9307");
}

TEST(Relevance, AnInvertedBandInterpolatesDownwards)
{
    EXPECT_EQ(interpolateByRelevance(amount("30"), amount("10"), 1).toFixed4(), "29.8000");
    EXPECT_EQ(interpolateByRelevance(amount("30"), amount("10"), 99).toFixed4(), "10.2000");
}

TEST(Relevance, InterpolationAtTheEndPointsGivesTheLimitsToo)
{
    EXPECT_EQ(interpolateByRelevance(amount("10"), amount("30"), 0).toFixed4(), "10.0000");
    EXPECT_EQ(interpolateByRelevance(amount("10"), amount("30"), 100).toFixed4(), "30.0000");
}

TEST(Relevance, RelevanceOutsideZeroToHundredExtrapolates)
{
    EXPECT_EQ(proposalByRelevance(amount("10"), amount("30"), -1).toFixed4(), "9.8000");
    EXPECT_EQ(proposalByRelevance(amount("10"), amount("30"), 150).toFixed4(), "40.0000");
    EXPECT_EQ(proposalByRelevance(amount("10"), amount("30"), 32767).toFixed4(), "6563.4000");
    EXPECT_EQ(proposalByRelevance(amount("10"), amount("30"), -32768).toFixed4(), "-6543.6000");
}

TEST(Relevance, TheDivisionByHundredRoundsToTenThousandths)
{
    // 0.0001 x 33 / 100 = 0.000033 -> 0.
    EXPECT_EQ(interpolateByRelevance(amount("1"), amount("1.0001"), 33).toFixed4(), "1.0000");
}

TEST(Relevance, ADifferenceOutOfRangeFails)
{
    EXPECT_THROW(static_cast<void>(interpolateByRelevance(Currency::min(), Currency::max(), 50)), ValueError);
}

TEST(AmountMath, ScaledProductIsExactAndRoundsHalvesToEven)
{
    // 5,164,600.01 x 0.000103 = 531.95380103.
    EXPECT_EQ(scaledProduct(amount("5164600.01"), 103, 1'000'000).toFixed4(), "531.9538");
    // 0.0001 x 1 / 2 = 0.00005 -> 0 (even); 0.0003 / 2 = 0.00015 -> 0.0002.
    EXPECT_EQ(scaledProduct(amount("0.0001"), 1, 2).toFixed4(), "0.0000");
    EXPECT_EQ(scaledProduct(amount("0.0003"), 1, 2).toFixed4(), "0.0002");
    EXPECT_EQ(scaledProduct(amount("-0.0003"), 1, 2).toFixed4(), "-0.0002");
    EXPECT_EQ(scaledProduct(amount("-0.0001"), 3, 4).toFixed4(), "-0.0001");
}

TEST(AmountMath, ScaledProductFailsOutOfRangeOrOnZero)
{
    EXPECT_THROW(static_cast<void>(scaledProduct(Currency::max(), 2, 1)), ValueError);
    EXPECT_THROW(static_cast<void>(scaledProduct(amount("1"), 1, 0)), ValueError);
}

TEST(AmountMath, CurrencyProductMultipliesTwoAmounts)
{
    EXPECT_EQ(currencyProduct(amount("1.2"), amount("1000000")).toFixed4(), "1200000.0000");
    EXPECT_EQ(currencyProduct(amount("0.0001"), amount("0.5")).toFixed4(), "0.0000");
    EXPECT_EQ(currencyProduct(amount("0.0003"), amount("0.5")).toFixed4(), "0.0002");
}

TEST(AmountMath, HundredthOfGoesThroughADouble)
{
    EXPECT_EQ(hundredthOf(amount("1295000")).toFixed4(), "12950.0000");
    EXPECT_EQ(hundredthOf(amount("-20")).toFixed4(), "-0.2000");
}

} // namespace
} // namespace avlor
