// clsFatture: what is left to pay on an invoice, as stored.
#include <gtest/gtest.h>

#include <cstdint>

#include "BrokenDatabase.h"
#include "TestDatabase.h"
#include "avlor/core/Currency.h"
#include "avlor/core/Error.h"
#include "avlor/data/DataError.h"
#include "avlor/data/queries/clsFatture.h"

namespace avlor::test {
namespace {

class clsFattureTest : public ::testing::Test {
protected:
    TestDatabase db;
    clsFatture fatture;
};

const Value Fattura8{std::int32_t{8}};

TEST_F(clsFattureTest, ResidueIsTheExactStoredAmount)
{
    db.exec("INSERT INTO Fatture (ID_Fattura, ResiduoASaldo) VALUES (8, " + TestDatabase::amount("1234.5678") +
            "), (9, " + TestDatabase::amount("1.00") + ")");
    const Value residue = fatture.GetResiduoFattura(Fattura8);
    ASSERT_EQ(residue.kind(), ValueKind::Currency);
    EXPECT_EQ(residue.asCurrency().raw(), 12345678);
}

TEST_F(clsFattureTest, ResidueWrittenByTheApplicationIsReadBack)
{
    db.insertRow("Fatture", {{"ID_Fattura", Fattura8}, {"ResiduoASaldo", Value(Currency::fromText("0.01"))}});
    EXPECT_EQ(fatture.GetResiduoFattura(Value("8")).asCurrency().raw(), 100);
}

TEST_F(clsFattureTest, ZeroAndNegativeResidues)
{
    db.exec("INSERT INTO Fatture (ID_Fattura, ResiduoASaldo) VALUES (8, 0), (9, " + TestDatabase::amount("-50.25") +
            ")");
    EXPECT_EQ(fatture.GetResiduoFattura(Fattura8).asCurrency().raw(), 0);
    EXPECT_EQ(fatture.GetResiduoFattura(Value(std::int32_t{9})).asCurrency().raw(), -502500);
}

TEST_F(clsFattureTest, NullResidueIsNull)
{
    db.exec("INSERT INTO Fatture (ID_Fattura, ResiduoASaldo) VALUES (8, NULL)");
    EXPECT_TRUE(fatture.GetResiduoFattura(Fattura8).isNull());
}

TEST_F(clsFattureTest, UnknownInvoiceGivesEmptyValue)
{
    db.exec("INSERT INTO Fatture (ID_Fattura, ResiduoASaldo) VALUES (8, 10000)");
    EXPECT_TRUE(fatture.GetResiduoFattura(Value(std::int32_t{99})).isEmpty());
}

TEST_F(clsFattureTest, FailingStatementIsRaised)
{
    db.dropTable("Fatture");
    EXPECT_THROW(static_cast<void>(fatture.GetResiduoFattura(Fattura8)), DataError);
}

TEST_F(clsFattureTest, MalformedIdIsRaised)
{
    EXPECT_THROW(static_cast<void>(fatture.GetResiduoFattura(Value::null())), DataError);
}

TEST(clsFattureWithoutDatabaseTest, BrokenDatabaseIsRaised)
{
    const BrokenDatabase broken;
    EXPECT_THROW(static_cast<void>(clsFatture().GetResiduoFattura(Value(std::int32_t{8}))), Error);
}

} // namespace
} // namespace avlor::test
