// Confidentiality level, groups of a user, members of a group, accounting
// right and group membership, read from the practice database.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "BrokenDatabase.h"
#include "UsersFixture.h"
#include "avlor/access/fbLivRiservatezza.h"

namespace avlor::test {
namespace {

using Strings = std::vector<std::string>;

TEST(fbLivRiservatezzaTest, LevelsHaveTheirStoredNumbers)
{
    EXPECT_EQ(fbUtente, 1);
    EXPECT_EQ(fbGruppo, 2);
    EXPECT_EQ(fbTutti, 3);
    EXPECT_EQ(fbGruppiNoAMM, 4);
}

// ---- GetLivelloRiservatezza

class StoredLevelTest : public UsersFixture, public ::testing::WithParamInterface<std::int32_t> { };

// Every stored level comes back as stored, also 0 and 5, which no filter
// knows: the filters, not the level, decide what such a user sees.
TEST_P(StoredLevelTest, LevelIsReturnedAsStored)
{
    addUser(5, GetParam());
    EXPECT_EQ(utenti.GetLivelloRiservatezza(id(5)), GetParam());
}

INSTANTIATE_TEST_SUITE_P(LevelsZeroToFive, StoredLevelTest, ::testing::Values(0, 1, 2, 3, 4, 5));

TEST_F(UsersFixture, LevelOfUserWithoutRowIsOne)
{
    addUser(5, 3);
    EXPECT_EQ(utenti.GetLivelloRiservatezza(id(42)), fbUtente);
}

TEST_F(UsersFixture, NullLevelIsOne)
{
    db.exec("INSERT INTO Utenti (ID_Utente, LivelloRiservatezza) VALUES (5, NULL)");
    EXPECT_EQ(utenti.GetLivelloRiservatezza(id(5)), fbUtente);
}

TEST_F(UsersFixture, LevelWhenTableIsMissingIsOne)
{
    addUser(5, 3);
    db.dropTable("Utenti");
    EXPECT_EQ(utenti.GetLivelloRiservatezza(id(5)), fbUtente);
}

TEST(LevelWithoutDatabaseTest, LevelOnBrokenDatabaseIsOne)
{
    const BrokenDatabase broken;
    EXPECT_EQ(clsUtenti().GetLivelloRiservatezza(Value(std::int32_t{5})), fbUtente);
}

TEST_F(UsersFixture, LevelAcceptsIdAsTextAndAsDouble)
{
    addUser(5, 3);
    EXPECT_EQ(utenti.GetLivelloRiservatezza(Value("5")), fbTutti);
    EXPECT_EQ(utenti.GetLivelloRiservatezza(Value(5.0)), fbTutti);
}

// The id goes into the statement as it is: text that is no id makes the
// statement fail, and the failure gives level 1.
TEST_F(UsersFixture, LevelOfMalformedIdIsOne)
{
    addUser(5, 3);
    EXPECT_EQ(utenti.GetLivelloRiservatezza(Value("5 5")), fbUtente);
    EXPECT_EQ(utenti.GetLivelloRiservatezza(Value::null()), fbUtente);
}

// ---- GetGruppiUtente

// Rows are laid out so that the order in which they were written and the
// order of the table's indexes agree: the list follows the database.
TEST_F(UsersFixture, GroupsComeInRowOrderAsText)
{
    addUser(5, 2);
    addMember(5, "Civile");
    addMember(5, "Penale");
    addMember(5, "Tutti");
    addMember(9, "Lavoro");

    const Collection groups = utenti.GetGruppiUtente(id(5));
    EXPECT_EQ(texts(groups), (Strings{"Civile", "Penale", "Tutti"}));
    for (const Value& group : groups) {
        EXPECT_EQ(group.kind(), ValueKind::Text);
    }
}

TEST_F(UsersFixture, GroupListedTwiceInMembershipsComesOnce)
{
    addMember(5, "Civile");
    addMember(5, "Civile");
    EXPECT_EQ(texts(utenti.GetGruppiUtente(id(5))), Strings{"Civile"});
}

TEST_F(UsersFixture, UserInNoGroupHasEmptyGroupList)
{
    addUser(7, 2);
    addMember(5, "Civile");
    EXPECT_EQ(utenti.GetGruppiUtente(id(7)).Count(), 0U);
}

TEST_F(UsersFixture, GroupsOnFailureAreEmpty)
{
    addMember(5, "Civile");
    db.dropTable("RelGruppiUtenti");
    EXPECT_EQ(utenti.GetGruppiUtente(id(5)).Count(), 0U);
}

TEST(GroupsWithoutDatabaseTest, GroupsOnBrokenDatabaseAreEmpty)
{
    const BrokenDatabase broken;
    EXPECT_EQ(clsUtenti().GetGruppiUtente(Value(std::int32_t{5})).Count(), 0U);
}

// ---- GetUtentiDelGruppo

TEST_F(UsersFixture, MembersComeInRowOrderAsNumbers)
{
    addMembers("Civile", {5, 9, 12});
    addMember(7, "Penale");

    const Collection members = utenti.GetUtentiDelGruppo("Civile");
    EXPECT_EQ(texts(members), (Strings{"5", "9", "12"}));
    EXPECT_EQ(members.Item(1).toLong(), 5);
    EXPECT_TRUE(members.Item(1).isNumeric());
}

TEST_F(UsersFixture, MembersOfGroupWithQuoteInName)
{
    addMembers("D'Amico", {3, 4});
    addMember(8, "D");
    EXPECT_EQ(texts(utenti.GetUtentiDelGruppo("D'Amico")), (Strings{"3", "4"}));
}

TEST_F(UsersFixture, MembersOfUnknownGroupAreEmpty)
{
    addMembers("Civile", {9, 5});
    EXPECT_EQ(utenti.GetUtentiDelGruppo("Penale").Count(), 0U);
    EXPECT_EQ(utenti.GetUtentiDelGruppo("").Count(), 0U);
}

// A member id that cannot be read as a number breaks the read half-way: the
// answer is empty, not the members read so far.
TEST_F(UsersFixture, MembersOnFailureHalfWayAreEmpty)
{
    AVLOR_SQLITE_ONLY(TextInIntegerColumn);
    addMembers("Civile", {9, 5});
    db.exec("INSERT INTO RelGruppiUtenti (Fk_Id_Utente, Fk_Gruppo) VALUES ('nove', 'Civile')");
    EXPECT_EQ(utenti.GetUtentiDelGruppo("Civile").Count(), 0U);
}

TEST_F(UsersFixture, MembersWhenTableIsMissingAreEmpty)
{
    addMembers("Civile", {9, 5});
    db.dropTable("RelGruppiUtenti");
    EXPECT_EQ(utenti.GetUtentiDelGruppo("Civile").Count(), 0U);
}

// ---- IsUtenteContabilita

TEST_F(UsersFixture, AccountingUserIsRecognised)
{
    addUser(5, 1, true);
    addUser(6, 1, false);
    EXPECT_TRUE(utenti.IsUtenteContabilita(id(5)));
    EXPECT_TRUE(utenti.IsUtenteContabilita(Value("5")));
    EXPECT_FALSE(utenti.IsUtenteContabilita(id(6)));
}

TEST_F(UsersFixture, AccountingFlagIsComparedWithoutRegardToCase)
{
    db.exec("INSERT INTO Utenti (ID_Utente, TitContabilita) VALUES (5, 'TRUE'), (6, 'true')");
    EXPECT_TRUE(utenti.IsUtenteContabilita(id(5)));
    EXPECT_TRUE(utenti.IsUtenteContabilita(id(6)));
}

TEST_F(UsersFixture, UnknownUserIsNoAccountingUser)
{
    addUser(5, 1, true);
    EXPECT_FALSE(utenti.IsUtenteContabilita(id(42)));
}

TEST_F(UsersFixture, NullAccountingFlagIsNoAccountingUser)
{
    db.exec("INSERT INTO Utenti (ID_Utente, TitContabilita) VALUES (5, NULL)");
    EXPECT_FALSE(utenti.IsUtenteContabilita(id(5)));
}

TEST_F(UsersFixture, AccountingOnFailureIsFalse)
{
    addUser(5, 1, true);
    db.dropTable("Utenti");
    EXPECT_FALSE(utenti.IsUtenteContabilita(id(5)));
}

TEST_F(UsersFixture, AccountingOfMalformedIdIsFalse)
{
    addUser(5, 1, true);
    EXPECT_FALSE(utenti.IsUtenteContabilita(Value("5)")));
    EXPECT_FALSE(utenti.IsUtenteContabilita(Value()));
}

// ---- UtenteInGruppo

TEST_F(UsersFixture, MembershipIsRecognised)
{
    addMembers("Civile", {5, 9});
    addMember(7, "Penale");
    EXPECT_TRUE(utenti.UtenteInGruppo(id(5), Value("Civile")));
    EXPECT_TRUE(utenti.UtenteInGruppo(Value("9"), Value("Civile")));
    EXPECT_FALSE(utenti.UtenteInGruppo(id(7), Value("Civile")));
    EXPECT_FALSE(utenti.UtenteInGruppo(id(5), Value("Penale")));
}

TEST_F(UsersFixture, MembershipOfGroupWithQuoteInName)
{
    addMember(5, "D'Amico");
    EXPECT_TRUE(utenti.UtenteInGruppo(id(5), Value("D'Amico")));
    EXPECT_FALSE(utenti.UtenteInGruppo(id(5), Value("D")));
}

// The group is any value joined as its text: a group named "12" is found
// when asked for by the number 12.
TEST_F(UsersFixture, GroupGivenAsNumberIsItsText)
{
    addMember(5, "12");
    EXPECT_TRUE(utenti.UtenteInGruppo(id(5), Value(std::int32_t{12})));
}

TEST_F(UsersFixture, MembershipOnFailureIsFalse)
{
    addMember(5, "Civile");
    db.dropTable("RelGruppiUtenti");
    EXPECT_FALSE(utenti.UtenteInGruppo(id(5), Value("Civile")));
}

TEST(MembershipWithoutDatabaseTest, MembershipOnBrokenDatabaseIsFalse)
{
    const BrokenDatabase broken;
    EXPECT_FALSE(clsUtenti().UtenteInGruppo(Value(std::int32_t{5}), Value("Civile")));
    EXPECT_FALSE(clsUtenti().IsUtenteContabilita(Value(std::int32_t{5})));
    EXPECT_EQ(clsUtenti().GetUtentiDelGruppo("Civile").Count(), 0U);
}

} // namespace
} // namespace avlor::test
