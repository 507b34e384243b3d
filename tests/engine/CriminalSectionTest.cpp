// The criminal-fee family read from its rows: the authority chooses the
// columns, the value plays no part.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

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
using test::expectCleared;
using test::expectOneMessage;
using test::FeeColumns;
using test::FeeRowFixture;
using test::noProposal;

// Each prefix's columns hold amounts of their own: MIN = position x 10,000,
// MAX = MIN + 5,000 (multiples of 5,000, unchanged by the lire rounding).
const char* const Prefixes[] = {"Pretura", "Tribunale", "GiuPace", "Gip", "AssiseApp", "Appello", "CostCass"};

std::string minimumOf(const std::string& prefix)
{
    for (std::size_t i = 0; i < std::size(Prefixes); ++i) {
        if (prefix == Prefixes[i])
            return std::to_string((i + 1) * 10'000);
    }
    return "0";
}

// Every table holds every pair, so that reading the wrong one shows.
FeeColumns everyAuthority()
{
    FeeColumns columns;
    for (const char* prefix : Prefixes) {
        const std::string p = prefix;
        columns.emplace_back(p + "MIN", minimumOf(p));
        columns.emplace_back(p + "MAX", std::to_string(std::stoll(minimumOf(p)) + 5'000));
    }
    return columns;
}

struct CriminalCase {
    std::string sTabella;
    std::string autorita;
    std::string prefix;
    friend void PrintTo(const CriminalCase& c, std::ostream* os)
    {
        *os << c.sTabella << " '" << c.autorita << "' -> " << c.prefix;
    }
};

std::vector<CriminalCase> authorityCases()
{
    std::vector<CriminalCase> cases;
    for (const char* table : {"OnorariPenali94", "OnorariPenali94Euro", "OnorariPenali2004Euro"}) {
        const bool is2004 = std::string(table) == "OnorariPenali2004Euro";
        cases.push_back({table, "Pretura", "Pretura"});
        cases.push_back({table, "Giudice di pace", is2004 ? "GiuPace" : "Tribunale"});
        cases.push_back({table, "Gip e Gup", is2004 ? "Gip" : "Tribunale"});
        cases.push_back({table, "Tribunale in comp. monocratica", "Tribunale"});
        cases.push_back({table, "Tribunale in comp. collegiale", "Tribunale"});
        cases.push_back({table, "Tribunale", "Tribunale"});
        cases.push_back({table, "Corte d'Assise e d'Assise d'Appello", "AssiseApp"});
        cases.push_back({table, "Corte d'Appello", "Appello"});
        cases.push_back({table, "Corte Costituzionale e Cassazione", "CostCass"});
    }
    return cases;
}

class CriminalAuthorityRowTest : public test::FeeDatabaseTestWithParam<CriminalCase> { };

TEST_P(CriminalAuthorityRowTest, ReadsTheBandOfTheAuthority)
{
    const CriminalCase& c = GetParam();
    FeeRowFixture::deleteRows(c.sTabella);
    FeeRowFixture::insertRow(c.sTabella, 3, "P3", everyAuthority());
    ScopedMessageRecorder messages;
    EngineCall call;
    call.sTabella = c.sTabella;
    call.idTariffa = 3;
    call.Autorita = c.autorita;
    call.vRil = 0;
    const std::string minimum = amount(minimumOf(c.prefix).c_str()).toFixed4();
    EXPECT_EQ(call.run().toFixed4(), minimum);
    EXPECT_EQ(call.MinTar.toFixed4(), minimum);
    EXPECT_EQ(call.MaxTar, amount(minimumOf(c.prefix).c_str()) + amount("5000"));
    EXPECT_EQ(call.MinS, Currency{});
    EXPECT_EQ(call.MaxS, Currency{});
    call.vRil = 100;
    EXPECT_EQ(call.run(), amount(minimumOf(c.prefix).c_str()) + amount("5000"));
    EXPECT_TRUE(messages.recorder().shown().empty());
}

INSTANTIATE_TEST_SUITE_P(EveryAuthority, CriminalAuthorityRowTest, testing::ValuesIn(authorityCases()));

class CriminalRowTest : public test::FeeDatabaseTest {
protected:
    void SetUp() override
    {
        for (const char* table : {"OnorariPenali94", "OnorariPenali94Euro", "OnorariPenali2004Euro"})
            FeeRowFixture::deleteRows(table);
    }

    static EngineCall call(const char* table, std::int32_t id, const char* autorita, std::int16_t vRil)
    {
        EngineCall c;
        c.sTabella = table;
        c.idTariffa = id;
        c.Autorita = autorita;
        c.vRil = vRil;
        return c;
    }
};

TEST_F(CriminalRowTest, LireProposalsAreRounded)
{
    FeeRowFixture::insertRow("OnorariPenali94", 1, "1", {{"TribunaleMIN", "10000"}, {"TribunaleMAX", "33333"}});
    ScopedMessageRecorder messages;
    EngineCall c = call("OnorariPenali94", 1, "Tribunale", 50);
    // 10,000 + 23,333 x 50 % = 21,666.5 -> 25,000.
    EXPECT_EQ(c.run().toFixed4(), "25000.0000");
    EXPECT_EQ(c.MinTar.toFixed4(), "10000.0000");
    EXPECT_EQ(c.MaxTar.toFixed4(), "33333.0000");
}

TEST_F(CriminalRowTest, EuroProposalsAreNotRounded)
{
    FeeRowFixture::insertRow("OnorariPenali94Euro", 1, "1", {{"TribunaleMIN", "10"}, {"TribunaleMAX", "33.33"}});
    FeeRowFixture::insertRow("OnorariPenali2004Euro", 1, "1", {{"GiuPaceMIN", "10"}, {"GiuPaceMAX", "33.33"}});
    ScopedMessageRecorder messages;
    EngineCall euro94 = call("OnorariPenali94Euro", 1, "Giudice di pace", 50);
    EXPECT_EQ(euro94.run().toFixed4(), "21.6650");
    EngineCall euro2004 = call("OnorariPenali2004Euro", 1, "Giudice di pace", 50);
    EXPECT_EQ(euro2004.run().toFixed4(), "21.6650");
}

TEST_F(CriminalRowTest, TheValueAndTheFlagPlayNoPart)
{
    FeeRowFixture::insertRow("OnorariPenali2004Euro", 1, "1", {{"AppelloMIN", "100"}, {"AppelloMAX", "200"}});
    ScopedMessageRecorder messages;
    for (std::int16_t bInd : {std::int16_t{0}, std::int16_t{-1}, std::int16_t{9}}) {
        for (const char* value : {"0", "-1", "129.115", "99999999"}) {
            EngineCall c = call("OnorariPenali2004Euro", 1, "Corte d'Appello", 37);
            c.bInd = bInd;
            c.cValore = amount(value);
            EXPECT_EQ(c.run().toFixed4(), "137.0000");
        }
    }
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(CriminalRowTest, TheBandIsTakenWithoutATestOfItsSign)
{
    FeeRowFixture::insertRow("OnorariPenali94Euro", 2, "2", {{"PreturaMIN", "-5"}, {"PreturaMAX", "10"}});
    FeeRowFixture::insertRow("OnorariPenali94Euro", 3, "P 3", {{"PreturaMIN", "0"}, {"PreturaMAX", "0"}});
    ScopedMessageRecorder messages;
    EngineCall negative = call("OnorariPenali94Euro", 2, "Pretura", 0);
    EXPECT_EQ(negative.run().toFixed4(), "-5.0000");
    EXPECT_EQ(negative.MinTar.toFixed4(), "-5.0000");
    EXPECT_TRUE(messages.recorder().shown().empty());
    // A zero band is written, and then nothing is proposed.
    EngineCall zero = call("OnorariPenali94Euro", 3, "Pretura", 50);
    EXPECT_EQ(zero.run(), Currency{});
    expectCleared(zero);
    ASSERT_NO_FATAL_FAILURE(expectOneMessage(messages, noProposal("Onorario Penale", "P 3")));
    EXPECT_EQ(messages.recorder().shown()[0].text,
              "Onorario Penale codice <P 3> non previsto per una pratica di "
              "questo valore.\rNessun valore proposto.");
}

TEST_F(CriminalRowTest, AnEmptyColumnFails)
{
    FeeRowFixture::insertRow("OnorariPenali2004Euro", 4, "4", {{"GipMIN", "NULL"}, {"GipMAX", "10"}});
    ScopedMessageRecorder messages;
    EngineCall c = call("OnorariPenali2004Euro", 4, "Gip e Gup", 50);
    EXPECT_THROW(static_cast<void>(c.run()), ValueError);
    EXPECT_EQ(c.MinTar, test::MinTarBefore);
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST_F(CriminalRowTest, AMissingRowFailsWithoutAMessage)
{
    for (const char* table : {"OnorariPenali94", "OnorariPenali94Euro", "OnorariPenali2004Euro"}) {
        ScopedMessageRecorder messages;
        EngineCall c = call(table, 404, "Tribunale", 50);
        EXPECT_THROW(static_cast<void>(c.run()), DataError) << table;
        EXPECT_EQ(c.MinTar, test::MinTarBefore);
        EXPECT_EQ(c.MaxS, test::MaxSBefore);
        EXPECT_TRUE(messages.recorder().shown().empty());
    }
}

TEST_F(CriminalRowTest, The1994TablesPriceTheNewAuthoritiesAsTheTribunale)
{
    FeeRowFixture::insertRow("OnorariPenali94", 5, "5",
                             {{"TribunaleMIN", "5000"},
                              {"TribunaleMAX", "10000"},
                              {"GipMIN", "1"},
                              {"GipMAX", "2"},
                              {"GiuPaceMIN", "3"},
                              {"GiuPaceMAX", "4"}});
    ScopedMessageRecorder messages;
    for (const char* autorita : {"Gip e Gup", "Giudice di pace"}) {
        EngineCall c = call("OnorariPenali94", 5, autorita, 100);
        EXPECT_EQ(c.run().toFixed4(), "10000.0000") << autorita;
        EXPECT_EQ(c.MinTar.toFixed4(), "5000.0000");
    }
}

} // namespace
} // namespace avlor
