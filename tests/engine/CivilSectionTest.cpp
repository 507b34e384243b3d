// The civil-fee family read from its rows: a band per bracket with the
// extraordinary band, a band for an indeterminate value, and the value above
// the last bracket.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "BracketBounds.h"
#include "EngineCall.h"
#include "EngineExpect.h"
#include "FeeRowFixture.h"
#include "avlor/core/Error.h"
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

const char* const Words[] = {"SCA01", "SCA02", "SCA03", "SCA1", "SCA2", "SCA3",  "SCA4",
                             "SCA5",  "SCA6",  "SCA7",  "SCA8", "SCA9", "SCA10", "SCA11"};

// word + "MIN" holds 10,000 x the word's position and word + "MAX" 5,000
// more: multiples of 5,000, so that the lire rounding leaves them as they
// are and the column read shows in the amount.
std::string minimumOf(const std::string& word)
{
    for (std::size_t i = 0; i < std::size(Words); ++i) {
        if (word == Words[i])
            return std::to_string((i + 1) * 10'000);
    }
    return "0";
}
std::string maximumOf(const std::string& word) { return std::to_string(std::stoll(minimumOf(word)) + 5'000); }

FeeColumns everyBracket()
{
    FeeColumns columns{{"MINSTRAORDIMP", "7"}, {"MAXSTRAORDIMP", "9"}};
    for (const char* word : Words) {
        columns.emplace_back(std::string(word) + "MIN", minimumOf(word));
        columns.emplace_back(std::string(word) + "MAX", maximumOf(word));
    }
    return columns;
}

struct CivilCase {
    std::string sTabella;
    std::string value;
    std::string word;
    std::int32_t idTariffa = 1;
    friend void PrintTo(const CivilCase& c, std::ostream* os)
    {
        *os << c.sTabella << " item " << c.idTariffa << " value " << c.value << " -> " << c.word;
    }
};

std::vector<CivilCase> bracketCases()
{
    const std::pair<const char*, const test::Bounds*> tables[] = {{"Onorari94", &test::CivilLire94},
                                                                  {"Onorari94Euro", &test::CivilEuro94},
                                                                  {"Onorari2004Euro", &test::CivilEuro2004}};
    std::vector<CivilCase> cases;
    for (const auto& [name, bounds] : tables) {
        cases.push_back({name, "0", bounds->words.front()});
        cases.push_back({name, "-1", bounds->words.front()});
        for (std::size_t i = 0; i < bounds->uppers.size(); ++i) {
            cases.push_back({name, bounds->uppers[i], bounds->words[i]});
            // One unit above the last closed bracket is the open one, tested
            // on its own.
            if (i + 1 < bounds->uppers.size()) {
                const Currency above = Currency::fromText(bounds->uppers[i]) + Currency::fromText(bounds->unit);
                cases.push_back({name, above.toText(), bounds->words[i + 1]});
            }
        }
    }
    // The lire sub-brackets of item 13.
    cases.push_back({"Onorari94", "0", "SCA01", 13});
    cases.push_back({"Onorari94", "250000", "SCA01", 13});
    cases.push_back({"Onorari94", "250001", "SCA02", 13});
    cases.push_back({"Onorari94", "500000", "SCA02", 13});
    cases.push_back({"Onorari94", "500001", "SCA03", 13});
    cases.push_back({"Onorari94", "800000", "SCA03", 13});
    cases.push_back({"Onorari94", "1000000", "SCA03", 13});
    cases.push_back({"Onorari94", "1000001", "SCA1", 13});
    cases.push_back({"Onorari94", "800000", "SCA1", 14});
    cases.push_back({"Onorari94Euro", "400000", "SCA9", 14});
    return cases;
}

class CivilBracketRowTest : public test::FeeDatabaseTestWithParam<CivilCase> { };

TEST_P(CivilBracketRowTest, ProposesFromTheBandOfTheBracket)
{
    const CivilCase& c = GetParam();
    FeeRowFixture::deleteRows(c.sTabella);
    FeeRowFixture::insertRow(c.sTabella, c.idTariffa, "C", everyBracket());
    ScopedMessageRecorder messages;
    EngineCall call;
    call.sTabella = c.sTabella;
    call.idTariffa = c.idTariffa;
    call.cValore = amount(c.value.c_str());
    call.vRil = 0;
    const std::string minimum = amount(minimumOf(c.word).c_str()).toFixed4();
    EXPECT_EQ(call.run().toFixed4(), minimum);
    EXPECT_EQ(call.MinTar.toFixed4(), minimum);
    EXPECT_EQ(call.MaxTar.toFixed4(), amount(maximumOf(c.word).c_str()).toFixed4());
    EXPECT_EQ(call.MinS.toFixed4(), "7.0000");
    EXPECT_EQ(call.MaxS.toFixed4(), "9.0000");
    call.vRil = 100;
    EXPECT_EQ(call.run().toFixed4(), amount(maximumOf(c.word).c_str()).toFixed4());
    EXPECT_TRUE(messages.recorder().shown().empty());
}

INSTANTIATE_TEST_SUITE_P(EveryBracket, CivilBracketRowTest, testing::ValuesIn(bracketCases()));

class CivilRowTest : public test::FeeDatabaseTest {
protected:
    void SetUp() override
    {
        for (const char* table : {"Onorari94", "Onorari94Euro", "Onorari2004Euro"})
            FeeRowFixture::deleteRows(table);
    }
};

TEST_F(CivilRowTest, LireProposalsAreRoundedButTheBandIsNot)
{
    FeeRowFixture::insertRow(
        "Onorari94", 2, "2",
        {{"SCA1MIN", "12345"}, {"SCA1MAX", "33333"}, {"MINSTRAORDIMP", "1"}, {"MAXSTRAORDIMP", "2"}});
    ScopedMessageRecorder messages;
    EngineCall atMin = valueCall("Onorari94", 2, "1000", 0, 0);
    EXPECT_EQ(atMin.run().toFixed4(), "15000.0000");
    EXPECT_EQ(atMin.MinTar.toFixed4(), "12345.0000");
    EXPECT_EQ(atMin.MaxTar.toFixed4(), "33333.0000");
    EngineCall atMax = valueCall("Onorari94", 2, "1000", 0, 100);
    EXPECT_EQ(atMax.run().toFixed4(), "35000.0000");
    // 12,345 + 20,988 x 37 % = 20,110.56 -> 25,000.
    EngineCall between = valueCall("Onorari94", 2, "1000", 0, 37);
    EXPECT_EQ(between.run().toFixed4(), "25000.0000");
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(CivilRowTest, EuroProposalsAreNotRounded)
{
    FeeRowFixture::insertRow("Onorari94Euro", 2, "2", {{"SCA01MIN", "10.33"}, {"SCA01MAX", "20.66"}});
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Onorari94Euro", 2, "100", 0, 37);
    // 10.33 + 10.33 x 37 %.
    EXPECT_EQ(c.run().toFixed4(), "14.1521");
    EXPECT_EQ(c.MinS, Currency{});
    EXPECT_EQ(c.MaxS, Currency{});
}

TEST_F(CivilRowTest, IndeterminateValueUsesTheIndeterminateBandAndTheExtraordinaryOne)
{
    FeeRowFixture::insertRow("Onorari94Euro", 4, "4",
                             {{"MININDET", "100"},
                              {"MAXINDET", "300"},
                              {"MINSTRAORDIMP", "400"},
                              {"MAXSTRAORDIMP", "500"},
                              {"SCA01MIN", "1"},
                              {"SCA01MAX", "2"}});
    ScopedMessageRecorder messages;
    // A value between two brackets does not matter here.
    EngineCall c = valueCall("Onorari94Euro", 4, "129.115", -1, 50);
    EXPECT_EQ(c.run().toFixed4(), "200.0000");
    EXPECT_EQ(c.MinTar.toFixed4(), "100.0000");
    EXPECT_EQ(c.MaxTar.toFixed4(), "300.0000");
    EXPECT_EQ(c.MinS.toFixed4(), "400.0000");
    EXPECT_EQ(c.MaxS.toFixed4(), "500.0000");
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(CivilRowTest, IndeterminateLireProposalIsRounded)
{
    FeeRowFixture::insertRow("Onorari94", 4, "4", {{"MININDET", "100000"}, {"MAXINDET", "300001"}});
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Onorari94", 4, "1", -1, 100);
    EXPECT_EQ(c.run().toFixed4(), "305000.0000");
    EXPECT_EQ(c.MaxTar.toFixed4(), "300001.0000");
}

TEST_F(CivilRowTest, ABandThatIsNotBothPositiveProposesNothing)
{
    FeeRowFixture::insertRow("Onorari2004Euro", 5, "O 5", {{"SCA01MIN", "0"}, {"SCA01MAX", "20"}});
    FeeRowFixture::insertRow("Onorari2004Euro", 6, "O 6", {{"SCA01MIN", "10"}, {"SCA01MAX", "NULL"}});
    FeeRowFixture::insertRow("Onorari2004Euro", 7, "O 7", {{"MININDET", "10"}, {"MAXINDET", "0"}});
    for (const auto& [id, bInd] : {std::pair{5, 0}, std::pair{6, 0}, std::pair{7, -1}}) {
        ScopedMessageRecorder messages;
        EngineCall c = valueCall("Onorari2004Euro", id, "100", static_cast<std::int16_t>(bInd), 50);
        EXPECT_EQ(c.run(), Currency{}) << id;
        expectUntouched(c);
        expectOneMessage(messages, noProposal("Onorario", "O " + std::to_string(id)));
    }
}

TEST_F(CivilRowTest, AFlagThatIsNeitherFalseNorTrueRunsNeitherBranch)
{
    FeeRowFixture::insertRow("Onorari94", 8, "F8", everyBracket());
    for (std::int16_t bInd : {std::int16_t{1}, std::int16_t{-32768}}) {
        ScopedMessageRecorder messages;
        EngineCall c = valueCall("Onorari94", 8, "1000", bInd, 50);
        EXPECT_EQ(c.run(), Currency{});
        expectUntouched(c);
        expectOneMessage(messages, noProposal("Onorario", "F8"));
    }
}

// Above 5,000,000,000 lire the band of SCA11 grows with the value: ratio
// 6,000,000,000 / 5,000,000,000 = 1.2, and each end is rounded up as lire.
TEST_F(CivilRowTest, Lire94AboveTheLastBracketScalesTheBand)
{
    FeeRowFixture::insertRow(
        "Onorari94", 9, "9",
        {{"SCA11MIN", "1234567"}, {"SCA11MAX", "2345678"}, {"MINSTRAORDIMP", "7"}, {"MAXSTRAORDIMP", "9"}});
    ScopedMessageRecorder messages;
    for (std::int16_t bInd : {std::int16_t{0}, std::int16_t{-1}, std::int16_t{5}}) {
        EngineCall c = valueCall("Onorari94", 9, "6000000000", bInd, 37);
        // 1,485,000 + 1,330,000 x 37 % = 1,977,100 -> 1,980,000.
        EXPECT_EQ(c.run().toFixed4(), "1980000.0000") << bInd;
        EXPECT_EQ(c.MinTar.toFixed4(), "1485000.0000");
        EXPECT_EQ(c.MaxTar.toFixed4(), "2815000.0000");
        EXPECT_EQ(c.MinS.toFixed4(), "7.0000");
        EXPECT_EQ(c.MaxS.toFixed4(), "9.0000");
    }
    // Just above the bound the ratio is 1.0000: the band is only rounded.
    EngineCall justAbove = valueCall("Onorari94", 9, "5000000001", 0, 0);
    EXPECT_EQ(justAbove.run().toFixed4(), "1235000.0000");
    EXPECT_EQ(justAbove.MaxTar.toFixed4(), "2350000.0000");
    EXPECT_TRUE(messages.recorder().shown().empty());
}

// The euro table works out the ratio but proposes from the band as read.
TEST_F(CivilRowTest, Euro94AboveTheLastBracketKeepsTheBand)
{
    FeeRowFixture::insertRow(
        "Onorari94Euro", 9, "9",
        {{"SCA11MIN", "1234.56"}, {"SCA11MAX", "2345.67"}, {"MINSTRAORDIMP", "7"}, {"MAXSTRAORDIMP", "9"}});
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Onorari94Euro", 9, "5164569", 1, 0);
    EXPECT_EQ(c.run().toFixed4(), "1234.5600");
    EXPECT_EQ(c.MinTar.toFixed4(), "1234.5600");
    EXPECT_EQ(c.MaxTar.toFixed4(), "2345.6700");
    EXPECT_EQ(c.MinS.toFixed4(), "7.0000");
    EXPECT_EQ(c.MaxS.toFixed4(), "9.0000");
    EXPECT_TRUE(messages.recorder().shown().empty());
}

// The 2004 table has columns of its own above its last bracket, used as they
// are, and no extraordinary band there.
TEST_F(CivilRowTest, Euro2004AboveTheLastBracketUsesItsOwnColumns)
{
    FeeRowFixture::insertRow("Onorari2004Euro", 9, "9",
                             {{"SCA9MIN", "1"},
                              {"SCA9MAX", "2"},
                              {"SCA10MIN", "5000"},
                              {"SCA10MAX", "9000"},
                              {"MINSTRAORDIMP", "7"},
                              {"MAXSTRAORDIMP", "9"}});
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Onorari2004Euro", 9, "6000000", -1, 100);
    EXPECT_EQ(c.run().toFixed4(), "9000.0000");
    EXPECT_EQ(c.MinTar.toFixed4(), "5000.0000");
    EXPECT_EQ(c.MaxTar.toFixed4(), "9000.0000");
    EXPECT_EQ(c.MinS, test::MinSBefore);
    EXPECT_EQ(c.MaxS, test::MaxSBefore);
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(CivilRowTest, AboveTheLastBracketTheBandMustBePositiveToo)
{
    FeeRowFixture::insertRow("Onorari94", 10, "Z10", {{"SCA11MIN", "0"}, {"SCA11MAX", "100000"}});
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Onorari94", 10, "6000000000", 0, 50);
    EXPECT_EQ(c.run(), Currency{});
    expectUntouched(c);
    expectOneMessage(messages, noProposal("Onorario", "Z10"));
}

TEST_F(CivilRowTest, AValueBetweenTwoBracketsFailsWithoutAMessage)
{
    FeeRowFixture::insertRow("Onorari2004Euro", 11, "11", everyBracket());
    FeeRowFixture::insertRow("Onorari94", 11, "11", everyBracket());
    ScopedMessageRecorder messages;
    EngineCall euro = valueCall("Onorari2004Euro", 11, "600.005", 0, 50);
    EXPECT_THROW(static_cast<void>(euro.run()), DataError);
    expectUntouched(euro);
    EngineCall lire = valueCall("Onorari94", 11, "5000000000.5", 0, 50);
    EXPECT_THROW(static_cast<void>(lire.run()), DataError);
    expectUntouched(lire);
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(CivilRowTest, AMissingRowFailsWithoutAMessage)
{
    for (const char* table : {"Onorari94", "Onorari94Euro", "Onorari2004Euro"}) {
        ScopedMessageRecorder messages;
        EngineCall c = valueCall(table, 404, "100", 0, 50);
        EXPECT_THROW(static_cast<void>(c.run()), DataError) << table;
        expectUntouched(c);
        EXPECT_TRUE(messages.recorder().shown().empty());
    }
}

// An empty extraordinary band cannot be taken as an amount: the call fails
// once the band has been written.
TEST_F(CivilRowTest, AnEmptyExtraordinaryBandFailsAfterTheBandIsWritten)
{
    FeeRowFixture::insertRow("Onorari2004Euro", 12, "12",
                             {{"SCA01MIN", "10"}, {"SCA01MAX", "20"}, {"MINSTRAORDIMP", "NULL"}});
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Onorari2004Euro", 12, "100", 0, 50);
    EXPECT_THROW(static_cast<void>(c.run()), ValueError);
    EXPECT_EQ(c.MinTar.toFixed4(), "10.0000");
    EXPECT_EQ(c.MaxTar.toFixed4(), "20.0000");
    EXPECT_EQ(c.MinS, test::MinSBefore);
    EXPECT_EQ(c.MaxS, test::MaxSBefore);
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(CivilRowTest, TheFixedItemReadsNoRowEvenWhenOneExists)
{
    FeeRowFixture::insertRow("Onorari2004Euro", 62, "62", everyBracket());
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Onorari2004Euro", 62, "100", 0, 50);
    EXPECT_EQ(c.run().toFixed4(), "20.0000");
    EXPECT_EQ(c.MinTar.toFixed4(), "10.0000");
    EXPECT_EQ(c.MaxTar.toFixed4(), "30.0000");
    EXPECT_EQ(c.MinS, test::MinSBefore);
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(CivilRowTest, TheRightsFixedItemsAreOrdinaryRowsHere)
{
    FeeRowFixture::insertRow("Onorari94Euro", 132, "132", everyBracket());
    ScopedMessageRecorder messages;
    EngineCall c = valueCall("Onorari94Euro", 132, "100", 0, 0);
    EXPECT_EQ(c.run().toFixed4(), "10000.0000");
    EXPECT_EQ(c.MinS.toFixed4(), "7.0000");
}

} // namespace
} // namespace avlor
