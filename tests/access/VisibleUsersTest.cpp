// GetSqlRiservatezza: the list of the user ids whose records a user may see,
// by confidentiality level.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "BrokenDatabase.h"
#include "UsersFixture.h"
#include "avlor/access/fbLivRiservatezza.h"

namespace avlor::test {
namespace {

using VisibleUsersTest = UsersFixture;

// ---- Worked examples

TEST_F(VisibleUsersTest, UserLevelSeesPublicAndOwn)
{
    addUser(5, fbUtente);
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,5)");
}

TEST_F(VisibleUsersTest, GroupLevelSeesMembersOfHisGroup)
{
    addUser(5, fbGruppo);
    addMembers("Civile", {5, 9});
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,5,9)");
}

TEST_F(VisibleUsersTest, AllLevelSeesEveryUser)
{
    addUser(1, fbUtente);
    addUser(2, fbGruppo);
    addUser(5, fbTutti);
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,1,2,5)");
}

TEST_F(VisibleUsersTest, GroupLevelInNoGroupSeesPublicOnly)
{
    addUser(5, fbGruppo);
    addMembers("Civile", {7, 9});
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0)");
}

// ---- Levels without a filter

class LevelWithoutFilterTest : public UsersFixture, public ::testing::WithParamInterface<std::int32_t> { };

TEST_P(LevelWithoutFilterTest, GivesEmptyText)
{
    addUser(5, GetParam());
    addMembers("Civile", {5, 9});
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "");
}

INSTANTIATE_TEST_SUITE_P(OutsideOneToFour, LevelWithoutFilterTest, ::testing::Values(-1, 0, 5, 32767));

// ---- Groups sharing members

// Members shared by several groups are listed once, where first met: the
// list follows the groups, and each group's members, in the order the
// database gives them (here the order in which they were written, which the
// table's indexes keep too). The ids are not sorted: 5 comes after 45.
TEST_F(VisibleUsersTest, SharedMembersAreListedOnceInFirstSeenOrder)
{
    addUser(45, fbGruppo);
    addMembers("Civile", {20, 30, 45});
    addMembers("Lavoro", {5, 20, 45, 47});
    addMembers("Penale", {5, 30, 41, 45, 50});
    addMembers("Tributario", {7, 8});
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(45)), "(0,20,30,45,5,47,41,50)");
}

// Each call starts from an empty list of users seen: a second call gives the
// same text, not a shorter one.
TEST_F(VisibleUsersTest, UsersSeenDoNotCarryOverToTheNextCall)
{
    addUser(5, fbGruppo);
    addMembers("Civile", {5, 9});
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,5,9)");
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,5,9)");
}

TEST_F(VisibleUsersTest, GroupsOfOtherUsersDoNotCount)
{
    addUser(5, fbGruppo);
    addMembers("Civile", {5, 9});
    addMembers("Penale", {9, 14});
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,5,9)");
}

// ---- The special groups at each level

class SpecialGroupTest : public UsersFixture {
protected:
    // User 5, of `level`, in `group` only, which has members 5, 9 and 12;
    // the table Utenti holds users 5, 9, 12 and 30.
    std::string visibleWithOnly(const std::string& group, std::int32_t level)
    {
        addUser(5, level);
        addUser(9, fbUtente);
        addUser(12, fbUtente);
        addUser(30, fbUtente);
        addMembers(group, {5, 9, 12});
        return utenti.GetSqlRiservatezza(id(5));
    }
};

TEST_F(SpecialGroupTest, OnlyTuttiAtUserLevel) { EXPECT_EQ(visibleWithOnly("TUTTI", fbUtente), "(0,5)"); }
TEST_F(SpecialGroupTest, OnlyTuttiAtGroupLevel) { EXPECT_EQ(visibleWithOnly("TUTTI", fbGruppo), "(0)"); }
TEST_F(SpecialGroupTest, OnlyTuttiAtAllLevel) { EXPECT_EQ(visibleWithOnly("TUTTI", fbTutti), "(0,5,9,12,30)"); }
TEST_F(SpecialGroupTest, OnlyTuttiAtGroupsNoAdminLevel) { EXPECT_EQ(visibleWithOnly("TUTTI", fbGruppiNoAMM), "(0)"); }

TEST_F(SpecialGroupTest, OnlyAdminAtUserLevel) { EXPECT_EQ(visibleWithOnly("AMMINISTRAZIONE", fbUtente), "(0,5)"); }
TEST_F(SpecialGroupTest, OnlyAdminAtGroupLevelCounts)
{
    EXPECT_EQ(visibleWithOnly("AMMINISTRAZIONE", fbGruppo), "(0,5,9,12)");
}
TEST_F(SpecialGroupTest, OnlyAdminAtAllLevel)
{
    EXPECT_EQ(visibleWithOnly("AMMINISTRAZIONE", fbTutti), "(0,5,9,12,30)");
}
TEST_F(SpecialGroupTest, OnlyAdminAtGroupsNoAdminLevelDoesNotCount)
{
    EXPECT_EQ(visibleWithOnly("AMMINISTRAZIONE", fbGruppiNoAMM), "(0)");
}

// The special names are recognised whatever their letter case.
TEST_F(SpecialGroupTest, TuttiInMixedCase) { EXPECT_EQ(visibleWithOnly("Tutti", fbGruppo), "(0)"); }
TEST_F(SpecialGroupTest, AdminInMixedCase) { EXPECT_EQ(visibleWithOnly("Amministrazione", fbGruppiNoAMM), "(0)"); }

// A name that only contains a special name is an ordinary group.
TEST_F(SpecialGroupTest, NameContainingTuttiIsOrdinary)
{
    EXPECT_EQ(visibleWithOnly("TUTTI I SOCI", fbGruppo), "(0,5,9,12)");
}

TEST_F(VisibleUsersTest, GroupsNoAdminLevelStillCountsOtherGroups)
{
    addUser(5, fbGruppiNoAMM);
    addMember(5, "AMMINISTRAZIONE");
    addMember(5, "Civile");
    addMember(5, "TUTTI");
    addMembers("AMMINISTRAZIONE", {5, 40, 41});
    addMembers("Civile", {5, 9});
    addMembers("TUTTI", {5, 9, 40, 41, 50});
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,5,9)");
}

TEST_F(VisibleUsersTest, GroupLevelSkipsTuttiButCountsAdmin)
{
    addUser(5, fbGruppo);
    addMember(5, "TUTTI");
    addMember(5, "AMMINISTRAZIONE");
    addMembers("TUTTI", {5, 9, 40, 50});
    addMembers("AMMINISTRAZIONE", {5, 40});
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,5,40)");
}

TEST_F(VisibleUsersTest, GroupWithQuoteInNameReadsItsMembers)
{
    addUser(5, fbGruppo);
    addMembers("D'Amico", {5, 17});
    addMembers("D", {99});
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,5,17)");
}

// ---- All users

TEST_F(VisibleUsersTest, AllLevelOverManyUsersListsEveryOneInTableOrder)
{
    std::string expected = "(0";
    for (std::int32_t user = 1; user <= 250; ++user) {
        addUser(user, user == 5 ? fbTutti : fbUtente);
        expected += ',';
        expected += std::to_string(user);
    }
    expected += ")";
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), expected);
}

TEST_F(VisibleUsersTest, AllLevelIgnoresGroups)
{
    addUser(5, fbTutti);
    addUser(8, fbUtente);
    addMembers("Civile", {5, 77});
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,5,8)");
}

// ---- Only one trailing comma goes

// A user row without an id adds an empty item: the list then ends with two
// commas, and only the last one is dropped.
TEST_F(VisibleUsersTest, AllLevelDropsOneTrailingCommaOnly)
{
    db.exec("DROP TABLE Utenti;"
            "CREATE TABLE Utenti (Id_Utente INTEGER, LivelloRiservatezza INTEGER);"
            "INSERT INTO Utenti VALUES (5, 3), (8, 1), (NULL, 1)");
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,5,8,)");
}

TEST_F(VisibleUsersTest, GroupLevelDropsOneTrailingCommaOnly)
{
    addUser(5, fbGruppo);
    db.exec("DROP TABLE RelGruppiUtenti;"
            "CREATE TABLE RelGruppiUtenti (Fk_Id_Utente INTEGER, Fk_Gruppo TEXT);"
            "INSERT INTO RelGruppiUtenti VALUES (5, 'Civile'), (9, 'Civile'), (NULL, 'Civile')");
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,5,9,)");
}

// ---- The id as given

TEST_F(VisibleUsersTest, IdIsJoinedAsItsText)
{
    addUser(5, fbUtente);
    EXPECT_EQ(utenti.GetSqlRiservatezza(Value("5")), "(0,5)");
    EXPECT_EQ(utenti.GetSqlRiservatezza(Value("05")), "(0,05)");
    EXPECT_EQ(utenti.GetSqlRiservatezza(Value(5.0)), "(0,5)");
}

// User 2 sees everything only through the record filters; his list follows
// his level like anyone else's.
TEST_F(VisibleUsersTest, UserTwoFollowsHisLevel)
{
    addUser(2, fbUtente);
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(2)), "(0,2)");
}

// ---- A level that cannot be read is level 1 (fbUtente)

TEST_F(VisibleUsersTest, UnknownUserHasLevelOneAndSeesPublicAndOwn)
{
    addUser(5, fbTutti);
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(42)), "(0,42)");
}

TEST_F(VisibleUsersTest, NoUsersRowAtAllGivesLevelOne) { EXPECT_EQ(utenti.GetSqlRiservatezza(id(99)), "(0,99)"); }

TEST_F(VisibleUsersTest, NullLevelIsLevelOne)
{
    db.exec("INSERT INTO Utenti (ID_Utente, LivelloRiservatezza) VALUES (5, NULL)");
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,5)");
}

TEST(VisibleUsersWithoutDatabaseTest, BrokenDatabaseGivesLevelOne)
{
    const BrokenDatabase broken;
    EXPECT_EQ(clsUtenti().GetSqlRiservatezza(Value(std::int32_t{5})), "(0,5)");
}

TEST_F(VisibleUsersTest, MissingUsersTableGivesLevelOne)
{
    addUser(5, fbTutti);
    db.dropTable("Utenti");
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,5)");
}

// ---- Failures after the level is known give the user's own id alone

// The level is read, then the groups fail.
TEST_F(VisibleUsersTest, FailureReadingGroupsGivesOwnIdAlone)
{
    addUser(5, fbGruppo);
    addMembers("Civile", {5, 9});
    db.dropTable("RelGruppiUtenti");
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(5)");
}

// The level and the groups are read, and the members of the second group
// fail half-way: nothing read so far is kept.
TEST_F(VisibleUsersTest, FailureReadingMembersHalfWayGivesOwnIdAlone)
{
    AVLOR_SQLITE_ONLY(TextInIntegerColumn);
    addUser(5, fbGruppo);
    addMember(5, "Civile");
    addMember(5, "Penale");
    addMembers("Civile", {5, 9});
    addMembers("Penale", {11});
    db.exec("INSERT INTO RelGruppiUtenti (Fk_Id_Utente, Fk_Gruppo) VALUES ('undici', 'Penale')");
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(5)");
}

// The level is read, then reading the whole user table fails half-way on a
// row whose id is no number.
TEST_F(VisibleUsersTest, FailureReadingAllUsersHalfWayGivesOwnIdAlone)
{
    AVLOR_SQLITE_ONLY(TextInIntegerColumn);
    addUser(5, fbTutti);
    addUser(8, fbUtente);
    db.exec("CREATE TABLE UtentiNuovi (Id_Utente, LivelloRiservatezza);"
            "INSERT INTO UtentiNuovi SELECT ID_Utente, LivelloRiservatezza FROM Utenti;"
            "INSERT INTO UtentiNuovi VALUES ('nove', 1);"
            "DROP TABLE Utenti;"
            "ALTER TABLE UtentiNuovi RENAME TO Utenti");
    EXPECT_EQ(utenti.GetLivelloRiservatezza(id(5)), fbTutti);
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(5)");
}

TEST_F(VisibleUsersTest, UserLevelNeedsNoGroupsSoMissingGroupsDoNotMatter)
{
    addUser(5, fbUtente);
    db.dropTable("RelGruppiUtenti");
    EXPECT_EQ(utenti.GetSqlRiservatezza(id(5)), "(0,5)");
}

} // namespace
} // namespace avlor::test
