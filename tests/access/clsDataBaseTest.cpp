// clsDataBase: the version of the practice database.
#include <gtest/gtest.h>

#include "BrokenDatabase.h"
#include "TestDatabase.h"
#include "avlor/data/queries/clsDataBase.h"

namespace avlor::test {
namespace {

class clsDataBaseTest : public ::testing::Test {
protected:
    TestDatabase db;
    clsDataBase database;
};

TEST_F(clsDataBaseTest, NewDatabaseHasVersionOne)
{
    const Value version = database.VersioneMdb();
    EXPECT_TRUE(version.isNumeric());
    EXPECT_EQ(version.toLong(), 1);
}

TEST_F(clsDataBaseTest, StoredVersionIsReturned)
{
    db.exec("UPDATE Versioni SET Versione = 27");
    EXPECT_EQ(database.VersioneMdb().toLong(), 27);
}

TEST_F(clsDataBaseTest, FirstRowCounts)
{
    db.exec("DELETE FROM Versioni; INSERT INTO Versioni (Versione) VALUES (4), (9)");
    EXPECT_EQ(database.VersioneMdb().toLong(), 4);
}

TEST_F(clsDataBaseTest, MissingTableGivesMinusOne)
{
    db.dropTable("Versioni");
    const Value version = database.VersioneMdb();
    EXPECT_EQ(version.kind(), ValueKind::Long);
    EXPECT_EQ(version.toLong(), -1);
}

TEST_F(clsDataBaseTest, EmptyTableGivesMinusOne)
{
    db.exec("DELETE FROM Versioni");
    EXPECT_EQ(database.VersioneMdb().toLong(), -1);
}

TEST(clsDataBaseWithoutDatabaseTest, BrokenDatabaseGivesMinusOne)
{
    const BrokenDatabase broken;
    EXPECT_EQ(clsDataBase().VersioneMdb().toLong(), -1);
}

} // namespace
} // namespace avlor::test
