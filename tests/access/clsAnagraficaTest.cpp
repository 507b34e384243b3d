// clsAnagrafica: a person is a legal entity when the natural-person flag is
// not set; the answer is the negation of the stored flag as it comes back.
#include <gtest/gtest.h>

#include <cstdint>

#include "BrokenDatabase.h"
#include "TestDatabase.h"
#include "avlor/data/queries/clsAnagrafica.h"

namespace avlor::test {
namespace {

class clsAnagraficaTest : public ::testing::Test {
protected:
    // Stores the flag as a number, as databases that keep yes/no columns as
    // 0 and -1 do.
    void useNumericFlag() const
    {
        db.exec("DROP TABLE Anagrafica;"
                "CREATE TABLE Anagrafica (ID_Ana INTEGER PRIMARY KEY, IsFisicaGiuridica INTEGER)");
    }

    TestDatabase db;
    clsAnagrafica anagrafica;
};

const Value Persona3{std::int32_t{3}};

TEST_F(clsAnagraficaTest, NaturalPersonIsNoLegalEntity)
{
    db.insertRow("Anagrafica", {{"ID_Ana", Persona3}, {"IsFisicaGiuridica", Value(true)}});
    const Value answer = anagrafica.IsSoggettoGiuridico(Persona3);
    EXPECT_EQ(answer.kind(), ValueKind::Boolean);
    EXPECT_FALSE(answer.asBoolean());
}

TEST_F(clsAnagraficaTest, PersonWithoutFlagIsLegalEntity)
{
    db.insertRow("Anagrafica", {{"ID_Ana", Persona3}, {"IsFisicaGiuridica", Value(false)}});
    const Value answer = anagrafica.IsSoggettoGiuridico(Persona3);
    EXPECT_EQ(answer.kind(), ValueKind::Boolean);
    EXPECT_TRUE(answer.asBoolean());
}

TEST_F(clsAnagraficaTest, FlagWrittenAsTextInAnyCase)
{
    db.exec("INSERT INTO Anagrafica (ID_Ana, IsFisicaGiuridica) VALUES (3, 'TRUE'), (4, 'false')");
    EXPECT_FALSE(anagrafica.IsSoggettoGiuridico(Persona3).toBool());
    EXPECT_TRUE(anagrafica.IsSoggettoGiuridico(Value(std::int32_t{4})).toBool());
}

TEST_F(clsAnagraficaTest, StoredZeroIsComplementedToMinusOne)
{
    useNumericFlag();
    db.exec("INSERT INTO Anagrafica VALUES (3, 0)");
    const Value answer = anagrafica.IsSoggettoGiuridico(Persona3);
    EXPECT_TRUE(answer.isNumeric());
    EXPECT_EQ(answer.toLong(), -1);
}

TEST_F(clsAnagraficaTest, StoredMinusOneIsComplementedToZero)
{
    useNumericFlag();
    db.exec("INSERT INTO Anagrafica VALUES (3, -1)");
    const Value answer = anagrafica.IsSoggettoGiuridico(Persona3);
    EXPECT_TRUE(answer.isNumeric());
    EXPECT_EQ(answer.toLong(), 0);
}

// The complement is bit by bit, so a stored 1 is not turned into 0.
TEST_F(clsAnagraficaTest, StoredOneIsComplementedToMinusTwo)
{
    useNumericFlag();
    db.exec("INSERT INTO Anagrafica VALUES (3, 1)");
    EXPECT_EQ(anagrafica.IsSoggettoGiuridico(Persona3).toLong(), -2);
}

TEST_F(clsAnagraficaTest, NullFlagStaysNull)
{
    db.exec("INSERT INTO Anagrafica (ID_Ana, IsFisicaGiuridica) VALUES (3, NULL)");
    EXPECT_TRUE(anagrafica.IsSoggettoGiuridico(Persona3).isNull());
}

// No row gives an empty value, whose negation is -1 (true).
TEST_F(clsAnagraficaTest, UnknownPersonGivesMinusOne)
{
    db.insertRow("Anagrafica", {{"ID_Ana", Persona3}, {"IsFisicaGiuridica", Value(true)}});
    const Value answer = anagrafica.IsSoggettoGiuridico(Value(std::int32_t{99}));
    EXPECT_TRUE(answer.isNumeric());
    EXPECT_EQ(answer.toLong(), -1);
}

TEST_F(clsAnagraficaTest, MissingTableGivesFalse)
{
    db.dropTable("Anagrafica");
    const Value answer = anagrafica.IsSoggettoGiuridico(Persona3);
    EXPECT_EQ(answer.kind(), ValueKind::Boolean);
    EXPECT_FALSE(answer.asBoolean());
}

TEST_F(clsAnagraficaTest, MalformedIdGivesFalse)
{
    const Value answer = anagrafica.IsSoggettoGiuridico(Value::null());
    EXPECT_EQ(answer.kind(), ValueKind::Boolean);
    EXPECT_FALSE(answer.asBoolean());
}

TEST(clsAnagraficaWithoutDatabaseTest, BrokenDatabaseGivesFalse)
{
    const BrokenDatabase broken;
    const Value answer = clsAnagrafica().IsSoggettoGiuridico(Value(std::int32_t{3}));
    EXPECT_EQ(answer.kind(), ValueKind::Boolean);
    EXPECT_FALSE(answer.asBoolean());
}

} // namespace
} // namespace avlor::test
