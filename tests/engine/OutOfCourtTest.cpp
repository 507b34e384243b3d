// Out-of-court fees: the items of each edition, priced without reading any
// row.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <ostream>
#include <string>

#include "EngineCall.h"
#include "EngineExpect.h"
#include "avlor/core/Messages.h"
#include "avlor/engine/OutOfCourt.h"

namespace avlor {
namespace {

using test::amount;
using test::EngineCall;
using test::expectCleared;
using test::expectOneMessage;
using test::expectUntouched;
using test::noProposal;

struct OutOfCourtCase {
    std::string sTabella;
    std::int32_t idTariffa;
    std::string value;
    std::int16_t vRil;
    std::string result;
    std::string MinTar;
    std::string MaxTar;
    std::int16_t bInd = 0;
    friend void PrintTo(const OutOfCourtCase& c, std::ostream* os)
    {
        *os << c.sTabella << " item " << c.idTariffa << " value " << c.value << " bInd " << c.bInd << " vRil " << c.vRil
            << " -> " << c.result << " [" << c.MinTar << ", " << c.MaxTar << "]";
    }
};

class OutOfCourtPricedTest : public testing::TestWithParam<OutOfCourtCase> { };

TEST_P(OutOfCourtPricedTest, SetsTheBandAndProposesByRelevance)
{
    const OutOfCourtCase& c = GetParam();
    ScopedMessageRecorder messages;
    EngineCall call;
    call.sTabella = c.sTabella;
    call.idTariffa = c.idTariffa;
    call.cValore = amount(c.value.c_str());
    call.vRil = c.vRil;
    call.bInd = c.bInd;
    EXPECT_EQ(call.run().toFixed4(), amount(c.result.c_str()).toFixed4());
    EXPECT_EQ(call.MinTar.toFixed4(), amount(c.MinTar.c_str()).toFixed4());
    EXPECT_EQ(call.MaxTar.toFixed4(), amount(c.MaxTar.c_str()).toFixed4());
    EXPECT_EQ(call.MinS, Currency{});
    EXPECT_EQ(call.MaxS, Currency{});
    EXPECT_TRUE(messages.recorder().shown().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Euro2004Percentage, OutOfCourtPricedTest,
    testing::Values(OutOfCourtCase{"OnorariStrag2004Euro", 10, "5200", 0, "156", "156", "312"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 10, "5200", 100, "312", "156", "312"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 10, "5200", 50, "234", "156", "312"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 10, "25900", 0, "518.25", "518.25", "1398.75"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 10, "0.01", 0, "0.0003", "0.0003", "0.0006"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 10, "1", 100, "0.06", "0.03", "0.06"},
                    // 156 + 0.01 x 1.75 % and 312 + 0.01 x 5.25 %.
                    OutOfCourtCase{"OnorariStrag2004Euro", 10, "5200.01", 0, "156.0002", "156.0002", "312.0005"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 10, "2582300.01", 0, "18981", "18981", "69698.2501"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 11, "5200", 0, "78", "78", "156"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 11, "5200", 50, "117", "78", "156"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 11, "25900", 100, "699.375", "259.125", "699.375"},
                    // 18,981 + 417,700 x 0.25 % and 69,698.25 + 417,700 x 1 %.
                    OutOfCourtCase{"OnorariStrag2004Euro", 12, "3000000", 0, "20025.25", "20025.25", "73875.25"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 12, "3000000", 37, "39949.75", "20025.25", "73875.25"},
                    // The indeterminate-value flag plays no part in the percentage items.
                    OutOfCourtCase{"OnorariStrag2004Euro", 10, "5200", 0, "156", "156", "312", -1},
                    OutOfCourtCase{"OnorariStrag2004Euro", 12, "5200", 0, "156", "156", "312", 3}));

INSTANTIATE_TEST_SUITE_P(Euro2004FixedBand, OutOfCourtPricedTest,
                         testing::Values(OutOfCourtCase{"OnorariStrag2004Euro", 1, "1000", 0, "15", "15", "150"},
                                         OutOfCourtCase{"OnorariStrag2004Euro", 1, "1000", 100, "150", "15", "150"},
                                         OutOfCourtCase{"OnorariStrag2004Euro", 1, "1000", 50, "82.5", "15", "150"},
                                         OutOfCourtCase{"OnorariStrag2004Euro", 1, "0", 50, "82.5", "15", "150", -1},
                                         OutOfCourtCase{"OnorariStrag2004Euro", 5, "1000", 50, "12.5", "10", "15"},
                                         OutOfCourtCase{"OnorariStrag2004Euro", 7, "1000", 0, "35", "35", "60"},
                                         OutOfCourtCase{"OnorariStrag2004Euro", 8, "1000", 100, "125", "65", "125"},
                                         OutOfCourtCase{"OnorariStrag2004Euro", 13, "1000", 1, "47.3", "40", "770"},
                                         // Item 4 is a fixed amount that bypasses the band.
                                         OutOfCourtCase{"OnorariStrag2004Euro", 4, "1000", 0, "13", "0", "0"},
                                         OutOfCourtCase{"OnorariStrag2004Euro", 4, "0", 37, "13", "0", "0"},
                                         OutOfCourtCase{"OnorariStrag2004Euro", 4, "-5", 100, "13", "0", "0", -1},
                                         OutOfCourtCase{"OnorariStrag2004Euro", 4, "10000000", 99, "13", "0", "0"}));

INSTANTIATE_TEST_SUITE_P(
    Euro2004ValueBracket, OutOfCourtPricedTest,
    testing::Values(OutOfCourtCase{"OnorariStrag2004Euro", 2, "600", 0, "20", "20", "75"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 2, "0", 100, "75", "20", "75"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 2, "-1", 0, "20", "20", "75"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 2, "600.01", 0, "50", "50", "120"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 2, "5164600", 50, "845", "530", "1160"},
                    // Above 5,164,600: 0.000103 and 0.000225 per euro of the value.
                    OutOfCourtCase{"OnorariStrag2004Euro", 2, "5164600.01", 0, "531.9538", "531.9538", "1162.035"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 2, "10000000", 50, "1640", "1030", "2250"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 2, "1000", 50, "337.5", "150", "525", -1},
                    OutOfCourtCase{"OnorariStrag2004Euro", 3, "1600", 0, "50", "50", "240"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 3, "1600.01", 100, "360", "125", "360"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 3, "10000000", 0, "2960", "2960", "6500"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 3, "10000000", 0, "385", "385", "1525", -1},
                    OutOfCourtCase{"OnorariStrag2004Euro", 6, "25900", 0, "180", "180", "690"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 6, "25900.01", 0, "530", "530", "1125"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 6, "10000000", 100, "5980", "2730", "5980"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 6, "0", 100, "1405", "530", "1405", -1},
                    OutOfCourtCase{"OnorariStrag2004Euro", 9, "5164600", 0, "570", "570", "1250"},
                    OutOfCourtCase{"OnorariStrag2004Euro", 9, "600", 100, "50", "10", "50"}));

INSTANTIATE_TEST_SUITE_P(
    Euro94, OutOfCourtPricedTest,
    testing::Values(OutOfCourtCase{"OnorariStrag94Euro", 10, "5164.57", 0, "154.9371", "154.9371", "309.8742"},
                    // 154.94 + 20,658.27 x 1.75 % and 309.87 + 20,658.27 x 5.25 %.
                    OutOfCourtCase{"OnorariStrag94Euro", 10, "25822.84", 0, "516.4597", "516.4597", "1394.4292"},
                    // 17,688.65 + 417,715.52 x 0.25 % and 64,531.29 + 417,715.52 x 1 %.
                    OutOfCourtCase{"OnorariStrag94Euro", 12, "3000000.02", 0, "18732.9388", "18732.9388", "68708.4452"},
                    OutOfCourtCase{"OnorariStrag94Euro", 11, "5000", 100, "150", "75", "150"},
                    OutOfCourtCase{"OnorariStrag94Euro", 1, "100", 0, "10.33", "10.33", "74.89"},
                    OutOfCourtCase{"OnorariStrag94Euro", 1, "100", 50, "42.61", "10.33", "74.89"},
                    OutOfCourtCase{"OnorariStrag94Euro", 5, "100", 100, "12.91", "5.16", "12.91"},
                    OutOfCourtCase{"OnorariStrag94Euro", 7, "100", 0, "25.82", "25.82", "51.65"},
                    OutOfCourtCase{"OnorariStrag94Euro", 8, "100", 100, "103.29", "51.65", "103.29"},
                    OutOfCourtCase{"OnorariStrag94Euro", 13, "100", 0, "28.41", "28.41", "516.46"},
                    OutOfCourtCase{"OnorariStrag94Euro", 4, "100", 50, "10.33", "0", "0"}));

// The lire edition: proposals are rounded up to 5,000 lire, bands are not.
INSTANTIATE_TEST_SUITE_P(
    Lire94, OutOfCourtPricedTest,
    testing::Values(OutOfCourtCase{"OnorariStrag94", 10, "10000000", 0, "300000", "300000", "600000"},
                    OutOfCourtCase{"OnorariStrag94", 10, "10000000", 50, "450000", "300000", "600000"},
                    OutOfCourtCase{"OnorariStrag94", 10, "7777777", 0, "235000", "233333.31", "466666.62"},
                    OutOfCourtCase{"OnorariStrag94", 10, "7777777", 100, "470000", "233333.31", "466666.62"},
                    OutOfCourtCase{"OnorariStrag94", 10, "50000000", 0, "1000000", "1000000", "2700000"},
                    OutOfCourtCase{"OnorariStrag94", 12, "6000000000", 0, "36750000", "36750000", "134950000"},
                    OutOfCourtCase{"OnorariStrag94", 11, "10000000", 100, "300000", "150000", "300000"},
                    // 20,000 + 125,000 x 37 % = 66,250 -> 70,000.
                    OutOfCourtCase{"OnorariStrag94", 1, "1000000", 37, "70000", "20000", "145000"},
                    OutOfCourtCase{"OnorariStrag94", 4, "1000000", 37, "20000", "0", "0"},
                    OutOfCourtCase{"OnorariStrag94", 5, "1000000", 50, "20000", "10000", "25000"},
                    OutOfCourtCase{"OnorariStrag94", 7, "1000000", 0, "50000", "50000", "100000"},
                    OutOfCourtCase{"OnorariStrag94", 8, "1000000", 100, "200000", "100000", "200000"},
                    OutOfCourtCase{"OnorariStrag94", 13, "1000000", 50, "530000", "55000", "1000000"},
                    OutOfCourtCase{" onorariSTRAG94 ", 13, "1000000", 0, "55000", "55000", "1000000"}));

struct NothingCase {
    std::string sTabella;
    std::int32_t idTariffa;
    std::string value;
    std::int16_t bInd = 0;
    friend void PrintTo(const NothingCase& c, std::ostream* os)
    {
        *os << c.sTabella << " item " << c.idTariffa << " value " << c.value << " bInd " << c.bInd;
    }
};

class OutOfCourtNothingTest : public testing::TestWithParam<NothingCase> { };

// Where the official table gives no figure nothing is proposed, nothing is
// written, and the message has neither kind nor code.
TEST_P(OutOfCourtNothingTest, ProposesNothingAndWritesNothing)
{
    const NothingCase& c = GetParam();
    ScopedMessageRecorder messages;
    EngineCall call;
    call.sTabella = c.sTabella;
    call.idTariffa = c.idTariffa;
    call.cValore = amount(c.value.c_str());
    call.bInd = c.bInd;
    call.vRil = 50;
    EXPECT_EQ(call.run(), Currency{});
    expectUntouched(call);
    ASSERT_NO_FATAL_FAILURE(expectOneMessage(messages, noProposal("", "")));
    EXPECT_EQ(messages.recorder().shown()[0].title, "Attenzione");
}

INSTANTIATE_TEST_SUITE_P(
    NotHeld, OutOfCourtNothingTest,
    testing::Values(
        // 2.e) above 5,164,600 and for an indeterminate value: not printed.
        NothingCase{"OnorariStrag2004Euro", 9, "5164600.01"}, NothingCase{"OnorariStrag2004Euro", 9, "1000", -1},
        // Items after 13, among them 16 and 18 (charged like court fees).
        NothingCase{"OnorariStrag2004Euro", 14, "1000"}, NothingCase{"OnorariStrag2004Euro", 16, "1000"},
        NothingCase{"OnorariStrag2004Euro", 18, "1000"}, NothingCase{"OnorariStrag2004Euro", 0, "1000"},
        NothingCase{"OnorariStrag2004Euro", -1, "1000"}, NothingCase{"OnorariStrag94Euro", 16, "1000"},
        NothingCase{"OnorariStrag94", 18, "1000"},
        // The 1994 value-bracket items are not held in either currency.
        NothingCase{"OnorariStrag94Euro", 2, "1000"}, NothingCase{"OnorariStrag94Euro", 3, "1000"},
        NothingCase{"OnorariStrag94Euro", 6, "1000"}, NothingCase{"OnorariStrag94Euro", 9, "1000"},
        NothingCase{"OnorariStrag94", 2, "1000000"}, NothingCase{"OnorariStrag94", 3, "1000000"},
        NothingCase{"OnorariStrag94", 6, "1000000"}, NothingCase{"OnorariStrag94", 9, "1000000"}));

TEST(OutOfCourt, PercentageItemsLeaveTheBandWithoutAPositiveValue)
{
    for (const char* table : {"OnorariStrag94", "OnorariStrag94Euro", "OnorariStrag2004Euro"}) {
        for (const char* value : {"0", "-1", "-0.0001"}) {
            ScopedMessageRecorder messages;
            EngineCall call;
            call.sTabella = table;
            call.idTariffa = 10;
            call.cValore = amount(value);
            call.MinTar = amount("0");
            call.MaxTar = amount("0");
            call.vRil = 50;
            // A caller that cleared its outputs gets nothing proposed.
            EXPECT_EQ(call.run(), Currency{}) << table << " " << value;
            expectCleared(call);
            expectOneMessage(messages, noProposal("", ""));
        }
    }
}

TEST(OutOfCourt, ABandLeftAsItWasIsStillProposedFrom)
{
    ScopedMessageRecorder messages;
    EngineCall call;
    call.sTabella = "OnorariStrag2004Euro";
    call.idTariffa = 12;
    call.cValore = amount("0");
    call.MinTar = amount("100");
    call.MaxTar = amount("200");
    call.vRil = 50;
    EXPECT_EQ(call.run().toFixed4(), "150.0000");
    EXPECT_EQ(call.MinTar.toFixed4(), "100.0000");
    EXPECT_EQ(call.MaxTar.toFixed4(), "200.0000");
    EXPECT_EQ(call.MinS, Currency{});
    EXPECT_EQ(call.MaxS, Currency{});
    // Item 11 halves whatever band it proposes from, when positive.
    call.idTariffa = 11;
    EXPECT_EQ(call.run().toFixed4(), "75.0000");
    EXPECT_EQ(call.MinTar.toFixed4(), "50.0000");
    EXPECT_EQ(call.MaxTar.toFixed4(), "100.0000");
    call.MinTar = amount("-8");
    call.MaxTar = amount("0");
    call.vRil = 0;
    EXPECT_EQ(call.run().toFixed4(), "-8.0000");
    EXPECT_EQ(call.MinTar.toFixed4(), "-8.0000");
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST(OutOfCourt, ValueBracketItemsLeaveTheBandInAGapOrWithAnOddFlag)
{
    ScopedMessageRecorder messages;
    EngineCall call;
    call.sTabella = "OnorariStrag2004Euro";
    call.idTariffa = 2;
    call.cValore = amount("600.005"); // between 600 and 600.01
    call.MinTar = amount("1");
    call.MaxTar = amount("3");
    call.vRil = 50;
    EXPECT_EQ(call.run().toFixed4(), "2.0000");
    EXPECT_EQ(call.MinTar.toFixed4(), "1.0000");
    EXPECT_EQ(call.MaxTar.toFixed4(), "3.0000");
    EXPECT_EQ(call.MinS, Currency{});
    EXPECT_EQ(call.MaxS, Currency{});
    call.cValore = amount("1000");
    call.bInd = 1;
    EXPECT_EQ(call.run().toFixed4(), "2.0000");
    EXPECT_EQ(call.MinTar.toFixed4(), "1.0000");
    EXPECT_TRUE(messages.recorder().shown().empty());
}

// Each base of the percentage items is the band of the bracket below at its
// upper bound: exactly in 2004 and in lire. The 1994 euro table was converted
// figure by figure, each rounded to the cent on its own, so there the band
// carries on to within a cent.
TEST(OutOfCourt, PercentageBandsAreContinuous)
{
    for (Edition edition : {Edition::Lire94, Edition::Euro94, Edition::Euro2004}) {
        const auto brackets = outOfCourtTable(edition).percentageBrackets;
        ASSERT_EQ(brackets.size(), 8u);
        EXPECT_EQ(brackets.front().lower, Currency{});
        for (std::size_t i = 0; i + 1 < brackets.size(); ++i) {
            EXPECT_EQ(brackets[i].upper, brackets[i + 1].lower);
            const std::optional<FeeBand> atUpper = percentageBand(edition, brackets[i].upper);
            ASSERT_TRUE(atUpper.has_value());
            if (edition == Edition::Euro94) {
                EXPECT_LE(std::llabs((atUpper->min - brackets[i + 1].minBase).raw()), 100) << i;
                EXPECT_LE(std::llabs((atUpper->max - brackets[i + 1].maxBase).raw()), 100) << i;
            } else {
                EXPECT_EQ(atUpper->min, brackets[i + 1].minBase) << i;
                EXPECT_EQ(atUpper->max, brackets[i + 1].maxBase) << i;
            }
        }
        EXPECT_EQ(brackets.back().upper, Currency::max());
    }
}

TEST(OutOfCourt, TheTopBracketsOfTheTwo1994TablesAreTheSameBounds)
{
    // The sixth bracket ends at 2,000 million lire, 1,032,913.80 euro.
    const auto lire = outOfCourtTable(Edition::Lire94).percentageBrackets;
    const auto euro = outOfCourtTable(Edition::Euro94).percentageBrackets;
    EXPECT_EQ(lire[5].upper.toFixed4(), "2000000000.0000");
    EXPECT_EQ(euro[5].upper.toFixed4(), "1032913.8000");
    EXPECT_EQ(outOfCourtTable(Edition::Euro2004).percentageBrackets[5].upper.toFixed4(), "1549400.0000");
}

// The lire figures are those whose conversion at 1,936.27 lire per euro gives
// the euro figures of the same item, to the cent. Two euro bases of the
// converted table stand one cent below the rounded conversion (19,950,000
// lire = 10,303.3151 euro, printed 10,303.31; 19,250,000 lire = 9,941.7953
// euro, printed 9,941.79); the euro table keeps its printed figures and
// those two are the only differences.
constexpr double LirePerEuro = 1936.27;

long long lireToEuroCents(Currency lire) { return std::llround(lire.toDouble() / LirePerEuro * 100.0); }
long long cents(Currency euro) { return euro.raw() / 100; }

TEST(OutOfCourt, EveryLireFigureConvertsToTheEuroFigure)
{
    const OutOfCourtEditionTable& lire = outOfCourtTable(Edition::Lire94);
    const OutOfCourtEditionTable& euro = outOfCourtTable(Edition::Euro94);
    ASSERT_EQ(lire.percentageBrackets.size(), euro.percentageBrackets.size());
    for (std::size_t i = 0; i < lire.percentageBrackets.size(); ++i) {
        const PercentageBracket& l = lire.percentageBrackets[i];
        const PercentageBracket& e = euro.percentageBrackets[i];
        EXPECT_EQ(lireToEuroCents(l.lower), cents(e.lower)) << "bracket " << i;
        if (i + 1 < lire.percentageBrackets.size()) {
            EXPECT_EQ(lireToEuroCents(l.upper), cents(e.upper)) << "bracket " << i;
        }
        const long long minPrintedBelow = (i == 6) ? 1 : 0;
        const long long maxPrintedBelow = (i == 4) ? 1 : 0;
        EXPECT_EQ(lireToEuroCents(l.minBase) - minPrintedBelow, cents(e.minBase)) << "bracket " << i;
        EXPECT_EQ(lireToEuroCents(l.maxBase) - maxPrintedBelow, cents(e.maxBase)) << "bracket " << i;
        EXPECT_EQ(l.minRate.hundredths, e.minRate.hundredths);
        EXPECT_EQ(l.maxRate.hundredths, e.maxRate.hundredths);
    }
    EXPECT_EQ(lire.percentageBrackets[4].maxBase.toFixed4(), "19950000.0000");
    EXPECT_EQ(euro.percentageBrackets[4].maxBase.toFixed4(), "10303.3100");
    EXPECT_EQ(lire.percentageBrackets[6].minBase.toFixed4(), "19250000.0000");
    EXPECT_EQ(euro.percentageBrackets[6].minBase.toFixed4(), "9941.7900");
    ASSERT_EQ(lire.fixedBands.size(), euro.fixedBands.size());
    for (std::size_t i = 0; i < lire.fixedBands.size(); ++i) {
        EXPECT_EQ(lire.fixedBands[i].id, euro.fixedBands[i].id);
        EXPECT_EQ(lireToEuroCents(lire.fixedBands[i].band.min), cents(euro.fixedBands[i].band.min))
            << "item " << lire.fixedBands[i].id;
        EXPECT_EQ(lireToEuroCents(lire.fixedBands[i].band.max), cents(euro.fixedBands[i].band.max))
            << "item " << lire.fixedBands[i].id;
    }
    EXPECT_EQ(lire.fixedAmountItem, euro.fixedAmountItem);
    EXPECT_EQ(lireToEuroCents(lire.fixedAmount), cents(euro.fixedAmount));
    // Every euro figure is whole cents.
    for (const PercentageBracket& e : euro.percentageBrackets) {
        EXPECT_EQ(e.minBase.raw() % 100, 0);
        EXPECT_EQ(e.maxBase.raw() % 100, 0);
    }
}

TEST(OutOfCourt, LireFiguresAreWholeThousandsOfLire)
{
    const OutOfCourtEditionTable& lire = outOfCourtTable(Edition::Lire94);
    EXPECT_TRUE(lire.lire);
    EXPECT_FALSE(outOfCourtTable(Edition::Euro94).lire);
    EXPECT_FALSE(outOfCourtTable(Edition::Euro2004).lire);
    for (const FixedBandItem& item : lire.fixedBands) {
        EXPECT_EQ(item.band.min.raw() % (1000 * Currency::Scale), 0) << item.id;
        EXPECT_EQ(item.band.max.raw() % (1000 * Currency::Scale), 0) << item.id;
    }
}

} // namespace
} // namespace avlor
