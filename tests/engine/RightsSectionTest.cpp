// The rights family read from its rows: one amount per bracket, or a band
// for an indeterminate value.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "BracketBounds.h"
#include "EngineCall.h"
#include "EngineExpect.h"
#include "FeeRowFixture.h"
#include "avlor/core/Messages.h"
#include "avlor/data/DataError.h"

namespace avlor {
namespace {

using test::amount;
using test::EngineCall;
using test::expectOneMessage;
using test::expectUntouched;
using test::FeeColumns;
using test::FeeRowFixture;
using test::noProposal;
using test::valueCall;

// VALORESCAk holds k x 100 + 0.25, so the column read shows in the amount.
FeeColumns everyBracket()
{
    FeeColumns columns;
    for (int k = 1; k <= 13; ++k)
        columns.emplace_back("VALORESCA" + std::to_string(k), std::to_string(k * 100) + ".25");
    return columns;
}

struct RightsCase {
    std::string sTabella;
    std::string value;
    int bracket; // 1 ... 13
    friend void PrintTo(const RightsCase& c, std::ostream* os)
    {
        *os << c.sTabella << " value " << c.value << " -> VALORESCA" << c.bracket;
    }
};

std::vector<RightsCase> bracketCases()
{
    const std::pair<const char*, const test::Bounds*> tables[] = {{"Diritti94", &test::RightsLire94},
                                                                  {"Diritti94Euro", &test::RightsEuro94},
                                                                  {"Diritti2004Euro", &test::RightsEuro2004}};
    std::vector<RightsCase> cases;
    for (const auto& [name, bounds] : tables) {
        cases.push_back({name, "0", 1});
        cases.push_back({name, "-1", 1});
        for (std::size_t i = 0; i < bounds->uppers.size(); ++i) {
            const int k = static_cast<int>(i) + 1;
            const Currency upper = Currency::fromText(bounds->uppers[i]);
            cases.push_back({name, bounds->uppers[i], k});
            cases.push_back({name, (upper + Currency::fromText(bounds->unit)).toText(), k + 1});
        }
        cases.push_back({name, "100000000000", 13});
    }
    return cases;
}

class RightsBracketRowTest : public test::FeeDatabaseTestWithParam<RightsCase> { };

TEST_P(RightsBracketRowTest, ProposesTheAmountOfTheBracketAsStored)
{
    const RightsCase& c = GetParam();
    FeeRowFixture::deleteRows(c.sTabella);
    FeeRowFixture::insertRow(c.sTabella, 5, "D5", everyBracket());
    ScopedMessageRecorder messages;
    EngineCall call;
    call.sTabella = c.sTabella;
    call.idTariffa = 5;
    call.cValore = amount(c.value.c_str());
    call.vRil = 50; // plays no part for a determinate value
    const std::string expected = amount((std::to_string(c.bracket * 100) + ".25").c_str()).toFixed4();
    EXPECT_EQ(call.run().toFixed4(), expected);
    EXPECT_EQ(call.MinTar.toFixed4(), expected);
    EXPECT_EQ(call.MaxTar.toFixed4(), expected);
    EXPECT_EQ(call.MinS, Currency{});
    EXPECT_EQ(call.MaxS, Currency{});
    EXPECT_TRUE(messages.recorder().shown().empty());
}

INSTANTIATE_TEST_SUITE_P(EveryBracket, RightsBracketRowTest, testing::ValuesIn(bracketCases()));

class RightsRowTest : public test::FeeDatabaseTest {
protected:
    void SetUp() override
    {
        for (const char* table : {"Diritti94", "Diritti94Euro", "Diritti2004Euro"})
            FeeRowFixture::deleteRows(table);
    }
};

TEST_F(RightsRowTest, AmountsOfTheLireTableAreNotRounded)
{
    FeeRowFixture::insertRow("Diritti94", 7, "7", {{"VALORESCA2", "12345.5"}});
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Diritti94", 7, "300000", 0, 37);
    EXPECT_EQ(c.run().toFixed4(), "12345.5000");
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(RightsRowTest, AZeroColumnProposesNothingAndNamesTheItem)
{
    FeeRowFixture::insertRow("Diritti94Euro", 8, "A 12", {{"VALORESCA1", "0"}, {"VALORESCA2", "40"}});
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Diritti94Euro", 8, "100", 0, 50);
    EXPECT_EQ(c.run(), Currency{});
    expectUntouched(c);
    ASSERT_NO_FATAL_FAILURE(expectOneMessage(messages, noProposal("Diritto", "A 12")));
    EXPECT_EQ(messages.recorder().shown()[0].text,
              "Diritto codice <A 12> non previsto per una pratica di questo valore.\rNessun valore proposto.");
    EXPECT_EQ(messages.recorder().shown()[0].title, "Attenzione");
    EXPECT_EQ(messages.recorder().shown()[0].icon, MsgIcon::Information);
    EXPECT_EQ(messages.recorder().shown()[0].buttons, MsgButtons::Ok);
}

TEST_F(RightsRowTest, AnEmptyOrNegativeColumnProposesNothing)
{
    FeeRowFixture::insertRow("Diritti2004Euro", 9, "9", {{"VALORESCA1", "NULL"}, {"VALORESCA2", "-5"}});
    for (const char* value : {"100", "1000"}) {
        ScopedMessageRecorder messages;
        EngineCall c = valueCall("Diritti2004Euro", 9, value, 0, 50);
        EXPECT_EQ(c.run(), Currency{}) << value;
        expectUntouched(c);
        expectOneMessage(messages, noProposal("Diritto", "9"));
    }
}

TEST_F(RightsRowTest, AValueBetweenTwoBracketsFailsWithoutAMessage)
{
    FeeRowFixture::insertRow("Diritti94Euro", 8, "A 12", everyBracket());
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Diritti94Euro", 8, "129.115", 0, 50);
    EXPECT_THROW(static_cast<void>(c.run()), DataError);
    expectUntouched(c);
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(RightsRowTest, AMissingRowFailsWithoutAMessage)
{
    for (const char* table : {"Diritti94", "Diritti94Euro", "Diritti2004Euro"}) {
        ScopedMessageRecorder messages;
        EngineCall c = valueCall(table, 404, "100", 0, 50);
        EXPECT_THROW(static_cast<void>(c.run()), DataError) << table;
        expectUntouched(c);
        EXPECT_TRUE(messages.recorder().shown().empty());
    }
}

TEST_F(RightsRowTest, TheFixedItemOfAnotherTableIsReadFromItsRow)
{
    FeeRowFixture::insertRow("Diritti94", 391, "391", {{"VALORESCA1", "1000"}});
    FeeRowFixture::insertRow("Diritti2004Euro", 132, "132", {{"VALORESCA1", "2"}});
    FeeRowFixture::insertRow("Diritti94Euro", 62, "62", {{"VALORESCA1", "3"}});
    ScopedMessageRecorder messages;
    EngineCall lire = valueCall("Diritti94", 391, "1", 0, 0);
    EXPECT_EQ(lire.run().toFixed4(), "1000.0000");
    EngineCall euro2004 = valueCall("Diritti2004Euro", 132, "1", 0, 0);
    EXPECT_EQ(euro2004.run().toFixed4(), "2.0000");
    EngineCall euro94 = valueCall("Diritti94Euro", 62, "1", 0, 0);
    EXPECT_EQ(euro94.run().toFixed4(), "3.0000");
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(RightsRowTest, IndeterminateValueProposesFromTheIndeterminateBand)
{
    for (const char* table : {"Diritti94", "Diritti94Euro"}) {
        FeeRowFixture::insertRow(table, 3, "3",
                                 {{"VALOREINDETMIN", "100"}, {"VALOREINDETMAX", "300"}, {"VALORESCA1", "7"}});
        ScopedMessageRecorder messages;
        EngineCall atMin = valueCall(table, 3, "129.115", -1, 0); // the bracket plays no part
        EXPECT_EQ(atMin.run().toFixed4(), "100.0000") << table;
        EXPECT_EQ(atMin.MinTar.toFixed4(), "100.0000");
        EXPECT_EQ(atMin.MaxTar.toFixed4(), "300.0000");
        // The extraordinary band is not touched.
        EXPECT_EQ(atMin.MinS, test::MinSBefore);
        EXPECT_EQ(atMin.MaxS, test::MaxSBefore);
        EngineCall atMax = valueCall(table, 3, "1", -1, 100);
        EXPECT_EQ(atMax.run().toFixed4(), "300.0000");
        // Interpolated and, even in lire, not rounded.
        EngineCall between = valueCall(table, 3, "1", -1, 37);
        EXPECT_EQ(between.run().toFixed4(), "174.0000");
        EXPECT_TRUE(messages.recorder().shown().empty());
    }
}

TEST_F(RightsRowTest, IndeterminateValueNeedsBothLimitsPositive)
{
    FeeRowFixture::insertRow("Diritti94Euro", 3, "I3", {{"VALOREINDETMIN", "100"}, {"VALOREINDETMAX", "0"}});
    FeeRowFixture::insertRow("Diritti94Euro", 4, "I4", {{"VALOREINDETMIN", "NULL"}, {"VALOREINDETMAX", "300"}});
    for (std::int32_t id : {3, 4}) {
        ScopedMessageRecorder messages;
        EngineCall c = valueCall("Diritti94Euro", id, "1", -1, 50);
        EXPECT_EQ(c.run(), Currency{});
        expectUntouched(c);
        expectOneMessage(messages, noProposal("Diritto", "I" + std::to_string(id)));
    }
}

TEST_F(RightsRowTest, AFlagThatIsNeitherFalseNorTrueRunsNeitherBranch)
{
    FeeRowFixture::insertRow("Diritti94", 3, "F3",
                             {{"VALOREINDETMIN", "100"}, {"VALOREINDETMAX", "300"}, {"VALORESCA1", "7"}});
    for (std::int16_t bInd : {std::int16_t{1}, std::int16_t{-2}, std::int16_t{255}}) {
        ScopedMessageRecorder messages;
        EngineCall c = valueCall("Diritti94", 3, "1", bInd, 50);
        EXPECT_EQ(c.run(), Currency{}) << bInd;
        expectUntouched(c);
        expectOneMessage(messages, noProposal("Diritto", "F3"));
    }
}

// In 2004 an interpolated proposal for an indeterminate value moves to the
// nearest amount the row prints for its brackets.
TEST_F(RightsRowTest, Diritti2004IndeterminateMovesToTheNearestBracketAmount)
{
    FeeRowFixture::insertRow("Diritti2004Euro", 12, "12",
                             {{"VALOREINDETMIN", "110"},
                              {"VALOREINDETMAX", "310"},
                              {"VALORESCA1", "100"},
                              {"VALORESCA2", "200"},
                              {"VALORESCA3", "300"},
                              {"VALORESCA4", "NULL"},
                              {"VALORESCA5", "NULL"},
                              {"VALORESCA6", "NULL"},
                              {"VALORESCA7", "NULL"},
                              {"VALORESCA8", "NULL"},
                              {"VALORESCA9", "NULL"},
                              {"VALORESCA10", "NULL"},
                              {"VALORESCA11", "NULL"},
                              {"VALORESCA12", "NULL"},
                              {"VALORESCA13", "NULL"}});
    ScopedMessageRecorder messages;
    // 110 + 200 x 20 % = 150: halfway between 100 and 200, the lower wins.
    EngineCall tie = valueCall("Diritti2004Euro", 12, "1", -1, 20);
    EXPECT_EQ(tie.run().toFixed4(), "100.0000");
    EXPECT_EQ(tie.MinTar.toFixed4(), "110.0000");
    EXPECT_EQ(tie.MaxTar.toFixed4(), "310.0000");
    EXPECT_EQ(tie.MinS, test::MinSBefore);
    // 110 + 200 x 21 % = 152 -> 200.
    EngineCall nearer = valueCall("Diritti2004Euro", 12, "1", -1, 21);
    EXPECT_EQ(nearer.run().toFixed4(), "200.0000");
    // 110 + 200 x 99 % = 308 -> 300.
    EngineCall high = valueCall("Diritti2004Euro", 12, "1", -1, 99);
    EXPECT_EQ(high.run().toFixed4(), "300.0000");
    // The end points are not moved.
    EngineCall atMin = valueCall("Diritti2004Euro", 12, "1", -1, 0);
    EXPECT_EQ(atMin.run().toFixed4(), "110.0000");
    EngineCall atMax = valueCall("Diritti2004Euro", 12, "1", -1, 100);
    EXPECT_EQ(atMax.run().toFixed4(), "310.0000");
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(RightsRowTest, Diritti2004IndeterminateWithoutAnyBracketAmountProposesNothing)
{
    FeeRowFixture::insertRow("Diritti2004Euro", 13, "N13",
                             {{"VALOREINDETMIN", "110"},
                              {"VALOREINDETMAX", "310"},
                              {"VALORESCA1", "NULL"},
                              {"VALORESCA2", "NULL"},
                              {"VALORESCA3", "NULL"},
                              {"VALORESCA4", "NULL"},
                              {"VALORESCA5", "NULL"},
                              {"VALORESCA6", "NULL"},
                              {"VALORESCA7", "NULL"},
                              {"VALORESCA8", "NULL"},
                              {"VALORESCA9", "NULL"},
                              {"VALORESCA10", "NULL"},
                              {"VALORESCA11", "NULL"},
                              {"VALORESCA12", "NULL"},
                              {"VALORESCA13", "NULL"}});
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Diritti2004Euro", 13, "1", -1, 50);
    EXPECT_EQ(c.run(), Currency{});
    // The band was set before the nearest amount was looked for.
    EXPECT_EQ(c.MinTar.toFixed4(), "110.0000");
    EXPECT_EQ(c.MaxTar.toFixed4(), "310.0000");
    expectOneMessage(messages, noProposal("Diritto", "N13"));
}

TEST_F(RightsRowTest, TheEuro94TableDoesNotMoveToTheNearestAmount)
{
    FeeRowFixture::insertRow("Diritti94Euro", 12, "12",
                             {{"VALOREINDETMIN", "110"}, {"VALOREINDETMAX", "310"}, {"VALORESCA1", "100"}});
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Diritti94Euro", 12, "1", -1, 20);
    EXPECT_EQ(c.run().toFixed4(), "150.0000");
}

} // namespace
} // namespace avlor
