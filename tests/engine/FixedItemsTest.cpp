// The one item of each rights and civil table whose band is constant: it is
// priced without reading any row.
#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "EngineCall.h"
#include "avlor/core/Messages.h"

namespace avlor {
namespace {

using test::amount;
using test::EngineCall;

struct FixedCase {
    std::string sTabella;
    std::int32_t idTariffa;
    std::int16_t vRil;
    std::string result;
    std::string MinTar;
    std::string MaxTar;
    friend void PrintTo(const FixedCase& c, std::ostream* os)
    {
        *os << c.sTabella << " item " << c.idTariffa << " vRil " << c.vRil << " -> " << c.result;
    }
};

// One fixed item at each relevance given with its proposal: the band is the
// same at every relevance.
std::vector<FixedCase> fixedItemCases(const char* sTabella, std::int32_t idTariffa, const char* MinTar,
                                      const char* MaxTar,
                                      std::initializer_list<std::pair<std::int16_t, const char*>> proposals)
{
    std::vector<FixedCase> cases;
    for (const auto& [vRil, result] : proposals)
        cases.push_back({sTabella, idTariffa, vRil, result, MinTar, MaxTar});
    return cases;
}

class FixedItemTest : public testing::TestWithParam<FixedCase> { };

TEST_P(FixedItemTest, PricesFromTheConstantBand)
{
    const FixedCase& c = GetParam();
    ScopedMessageRecorder messages;
    EngineCall call;
    call.sTabella = c.sTabella;
    call.idTariffa = c.idTariffa;
    call.vRil = c.vRil;
    call.cValore = amount("1000");
    EXPECT_EQ(call.run().toFixed4(), amount(c.result.c_str()).toFixed4());
    EXPECT_EQ(call.MinTar.toFixed4(), amount(c.MinTar.c_str()).toFixed4());
    EXPECT_EQ(call.MaxTar.toFixed4(), amount(c.MaxTar.c_str()).toFixed4());
    // The extraordinary band is not touched.
    EXPECT_EQ(call.MinS, test::MinSBefore);
    EXPECT_EQ(call.MaxS, test::MaxSBefore);
    EXPECT_TRUE(messages.recorder().shown().empty());
}

// 15,000 + 35,000 x vRil / 100, rounded up to 5,000 lire.
INSTANTIATE_TEST_SUITE_P(
    Diritti94, FixedItemTest,
    testing::ValuesIn(
        fixedItemCases("Diritti94", 132, "15000", "50000",
                       {{0, "15000"}, {1, "20000"}, {37, "30000"}, {50, "35000"}, {99, "50000"}, {100, "50000"}})));

INSTANTIATE_TEST_SUITE_P(
    Diritti94Euro, FixedItemTest,
    testing::ValuesIn(fixedItemCases(
        "Diritti94Euro", 132, "7.75", "25.82",
        {{0, "7.75"}, {1, "7.9307"}, {37, "14.4359"}, {50, "16.785"}, {99, "25.6393"}, {100, "25.82"}})));

// The band is stored inverted (30 to 10) while the end points give 10 and 30.
INSTANTIATE_TEST_SUITE_P(
    Diritti2004Euro, FixedItemTest,
    testing::ValuesIn(fixedItemCases("Diritti2004Euro", 391, "30", "10",
                                     {{0, "10"}, {1, "29.8"}, {37, "22.6"}, {50, "20"}, {99, "10.2"}, {100, "30"}})));

INSTANTIATE_TEST_SUITE_P(
    Onorari94, FixedItemTest,
    testing::ValuesIn(
        fixedItemCases("Onorari94", 62, "15000", "50000",
                       {{0, "15000"}, {1, "20000"}, {37, "30000"}, {50, "35000"}, {99, "50000"}, {100, "50000"}})));

INSTANTIATE_TEST_SUITE_P(
    Onorari94Euro, FixedItemTest,
    testing::ValuesIn(fixedItemCases(
        "Onorari94Euro", 62, "7.75", "25.82",
        {{0, "7.75"}, {1, "7.9307"}, {37, "14.4359"}, {50, "16.785"}, {99, "25.6393"}, {100, "25.82"}})));

INSTANTIATE_TEST_SUITE_P(Onorari2004Euro, FixedItemTest,
                         testing::ValuesIn(fixedItemCases("Onorari2004Euro", 62, "10", "30",
                                                          {{0, "10"},
                                                           {1, "10.2"},
                                                           {37, "17.4"},
                                                           {50, "20"},
                                                           {99, "29.8"},
                                                           {100, "30"},
                                                           {-1, "9.8"},
                                                           {32767, "6563.4"}})));

// The rights' fixed items are not those of the civil tables, and vice versa:
// 62 is not fixed in a rights table, 132 and 391 not in a civil one, and
// each is read from its row (a database test covers those reads).

TEST(FixedItem, NeitherTheFlagNorAGapInTheValueMatters)
{
    ScopedMessageRecorder messages;
    EngineCall call;
    call.sTabella = "Onorari94Euro";
    call.idTariffa = 62;
    call.vRil = 100;
    call.bInd = 5;
    call.cValore = amount("129.115"); // between two brackets
    EXPECT_EQ(call.run().toFixed4(), "25.8200");
    call.sTabella = "Diritti94Euro";
    call.idTariffa = 132;
    call.bInd = -1;
    EXPECT_EQ(call.run().toFixed4(), "25.8200");
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST(FixedItem, TheDocumentedDiritti94Example)
{
    ScopedMessageRecorder messages;
    EngineCall call;
    call.sTabella = "Diritti94";
    call.idTariffa = 132;
    call.vRil = 37;
    // 15,000 + 35,000 x 37 / 100 = 27,950, rounded up to 30,000.
    EXPECT_EQ(call.run().toFixed4(), "30000.0000");
    EXPECT_EQ(call.MinTar.toFixed4(), "15000.0000");
    EXPECT_EQ(call.MaxTar.toFixed4(), "50000.0000");
}

} // namespace
} // namespace avlor
