// clsPratica: clients and counter-parties of a case file, each count plus 1.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "BrokenDatabase.h"
#include "TestDatabase.h"
#include "avlor/core/Error.h"
#include "avlor/data/DataError.h"
#include "avlor/data/queries/clsPratica.h"

namespace avlor::test {
namespace {

class clsPraticaTest : public ::testing::Test {
protected:
    void addParty(std::int32_t idPra, bool cliente) const
    {
        db.exec("INSERT INTO MultiIntesta (ID_Pra, IsCliente) VALUES (" + std::to_string(idPra) + ", " +
                (cliente ? "'True'" : "'False'") + ")");
    }

    TestDatabase db;
    clsPratica pratica;
};

const Value Pratica10{std::int32_t{10}};

TEST_F(clsPraticaTest, NoClientRowsGivesOne)
{
    addParty(10, false);
    addParty(11, true);
    EXPECT_EQ(pratica.QuantiClientiPerPratica(Pratica10), 1);
}

TEST_F(clsPraticaTest, TwoClientRowsGiveThree)
{
    addParty(10, true);
    addParty(10, true);
    addParty(10, false);
    addParty(11, true);
    EXPECT_EQ(pratica.QuantiClientiPerPratica(Pratica10), 3);
}

TEST_F(clsPraticaTest, NoCounterPartyRowsGivesOne)
{
    addParty(10, true);
    addParty(11, false);
    EXPECT_EQ(pratica.QuanteControPartiPerPratica(Pratica10), 1);
}

TEST_F(clsPraticaTest, TwoCounterPartyRowsGiveThree)
{
    addParty(10, false);
    addParty(10, false);
    addParty(10, true);
    addParty(11, false);
    EXPECT_EQ(pratica.QuanteControPartiPerPratica(Pratica10), 3);
}

TEST_F(clsPraticaTest, FlagIsComparedWithoutRegardToCase)
{
    db.exec("INSERT INTO MultiIntesta (ID_Pra, IsCliente) VALUES (10, 'TRUE'), (10, 'true'), (10, 'FALSE')");
    EXPECT_EQ(pratica.QuantiClientiPerPratica(Pratica10), 3);
    EXPECT_EQ(pratica.QuanteControPartiPerPratica(Pratica10), 2);
}

// A party whose flag is not set is neither a client nor a counter-party.
TEST_F(clsPraticaTest, PartyWithoutFlagCountsForNeither)
{
    db.exec("INSERT INTO MultiIntesta (ID_Pra, IsCliente) VALUES (10, NULL)");
    EXPECT_EQ(pratica.QuantiClientiPerPratica(Pratica10), 1);
    EXPECT_EQ(pratica.QuanteControPartiPerPratica(Pratica10), 1);
}

TEST_F(clsPraticaTest, CaseFileIdAsTextOrDouble)
{
    addParty(10, true);
    EXPECT_EQ(pratica.QuantiClientiPerPratica(Value("10")), 2);
    EXPECT_EQ(pratica.QuantiClientiPerPratica(Value(10.0)), 2);
}

TEST_F(clsPraticaTest, ManyClients)
{
    for (int i = 0; i < 40; ++i) {
        addParty(10, true);
    }
    EXPECT_EQ(pratica.QuantiClientiPerPratica(Pratica10), 41);
}

TEST_F(clsPraticaTest, FailingStatementIsRaised)
{
    db.dropTable("MultiIntesta");
    EXPECT_THROW(static_cast<void>(pratica.QuantiClientiPerPratica(Pratica10)), DataError);
    EXPECT_THROW(static_cast<void>(pratica.QuanteControPartiPerPratica(Pratica10)), DataError);
}

TEST_F(clsPraticaTest, MalformedIdIsRaised)
{
    EXPECT_THROW(static_cast<void>(pratica.QuantiClientiPerPratica(Value::null())), DataError);
    EXPECT_THROW(static_cast<void>(pratica.QuanteControPartiPerPratica(Value("10)"))), DataError);
}

TEST(clsPraticaWithoutDatabaseTest, BrokenDatabaseIsRaised)
{
    const BrokenDatabase broken;
    EXPECT_THROW(static_cast<void>(clsPratica().QuantiClientiPerPratica(Value(std::int32_t{10}))), Error);
    EXPECT_THROW(static_cast<void>(clsPratica().QuanteControPartiPerPratica(Value(std::int32_t{10}))), Error);
}

} // namespace
} // namespace avlor::test
