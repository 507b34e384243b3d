// GetSqlFiltroPratiche and GetSqlFiltroAnagrafiche: the WHERE conditions
// that restrict case files and persons to what a user may see.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "BrokenDatabase.h"
#include "UsersFixture.h"
#include "avlor/core/Error.h"

namespace avlor::test {
namespace {

using RecordFiltersTest = UsersFixture;

// ---- Worked examples

TEST_F(RecordFiltersTest, UserInCivileAndTutti)
{
    addMember(5, "Civile");
    addMember(5, "Tutti");
    EXPECT_EQ(utenti.GetSqlFiltroPratiche(id(5)),
              "((Id_Riservata IN (0,5))  AND (fk_Gruppo IS NULL))  OR ((Id_Riservata=0) AND (fk_Gruppo IN "
              "('Civile')))");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(id(5)), "(IdRiservata IN (0,5) OR (fkGruppo  IN ('Civile')))");
}

TEST_F(RecordFiltersTest, UserInNoGroupGetsNoGroupFormWithTrailingBlank)
{
    addMember(5, "Civile");
    EXPECT_EQ(utenti.GetSqlFiltroPratiche(id(7)), "((Id_Riservata IN (0,7))  AND (fk_Gruppo IS NULL)) ");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(id(7)), "(IdRiservata IN (0,7) AND (fkGruppo IS NULL)) ");
}

TEST_F(RecordFiltersTest, UserTwoSeesEverything)
{
    addMember(2, "Civile");
    EXPECT_EQ(utenti.GetSqlFiltroPratiche(id(2)), "1=1");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(id(2)), "1=1");
}

TEST_F(RecordFiltersTest, UserTwoInNoGroupSeesEverything)
{
    EXPECT_EQ(utenti.GetSqlFiltroPratiche(id(2)), "1=1");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(id(2)), "1=1");
}

// The all-seeing user is recognised by the number, whatever form it is given in.
TEST_F(RecordFiltersTest, UserTwoAsTextOrDoubleSeesEverything)
{
    EXPECT_EQ(utenti.GetSqlFiltroPratiche(Value("2")), "1=1");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(Value("02")), "1=1");
    EXPECT_EQ(utenti.GetSqlFiltroPratiche(Value(2.0)), "1=1");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(Value(std::int16_t{2})), "1=1");
}

TEST_F(RecordFiltersTest, NearlyTwoIsAnOrdinaryUser)
{
    EXPECT_EQ(utenti.GetSqlFiltroPratiche(Value(2.5)), "((Id_Riservata IN (0,2.5))  AND (fk_Gruppo IS NULL)) ");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(id(12)), "(IdRiservata IN (0,12) AND (fkGruppo IS NULL)) ");
}

// ---- Group lists

TEST_F(RecordFiltersTest, OnlyTuttiGivesNoGroupForm)
{
    addMember(5, "TUTTI");
    EXPECT_EQ(utenti.GetSqlFiltroPratiche(id(5)), "((Id_Riservata IN (0,5))  AND (fk_Gruppo IS NULL)) ");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(id(5)), "(IdRiservata IN (0,5) AND (fkGruppo IS NULL)) ");
}

TEST_F(RecordFiltersTest, OnlyTuttiInLowerCaseGivesNoGroupForm)
{
    addMember(5, "tutti");
    EXPECT_EQ(utenti.GetSqlFiltroPratiche(id(5)), "((Id_Riservata IN (0,5))  AND (fk_Gruppo IS NULL)) ");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(id(5)), "(IdRiservata IN (0,5) AND (fkGruppo IS NULL)) ");
}

// Administration is an ordinary group for the record filters.
TEST_F(RecordFiltersTest, OnlyAdminIsAnOrdinaryGroup)
{
    addMember(5, "AMMINISTRAZIONE");
    EXPECT_EQ(utenti.GetSqlFiltroPratiche(id(5)),
              "((Id_Riservata IN (0,5))  AND (fk_Gruppo IS NULL))  OR ((Id_Riservata=0) AND (fk_Gruppo IN "
              "('AMMINISTRAZIONE')))");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(id(5)), "(IdRiservata IN (0,5) OR (fkGruppo  IN ('AMMINISTRAZIONE')))");
}

TEST_F(RecordFiltersTest, SeveralGroupsInRowOrder)
{
    addMember(5, "Civile");
    addMember(5, "Lavoro");
    addMember(5, "Penale");
    addMember(5, "TUTTI");
    EXPECT_EQ(utenti.GetSqlFiltroPratiche(id(5)),
              "((Id_Riservata IN (0,5))  AND (fk_Gruppo IS NULL))  OR ((Id_Riservata=0) AND (fk_Gruppo IN "
              "('Civile','Lavoro','Penale')))");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(id(5)),
              "(IdRiservata IN (0,5) OR (fkGruppo  IN ('Civile','Lavoro','Penale')))");
}

TEST_F(RecordFiltersTest, GroupNameWithQuoteIsDoubled)
{
    addMember(5, "D'Amico");
    EXPECT_EQ(utenti.GetSqlFiltroPratiche(id(5)),
              "((Id_Riservata IN (0,5))  AND (fk_Gruppo IS NULL))  OR ((Id_Riservata=0) AND (fk_Gruppo IN "
              "('D''Amico')))");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(id(5)), "(IdRiservata IN (0,5) OR (fkGruppo  IN ('D''Amico')))");
}

// A group name ending in a comma keeps it: only the separator after the
// last literal goes.
TEST_F(RecordFiltersTest, GroupNameEndingInCommaKeepsIt)
{
    addMember(5, "Soci,");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(id(5)), "(IdRiservata IN (0,5) OR (fkGruppo  IN ('Soci,')))");
}

// ---- The id as given

TEST_F(RecordFiltersTest, IdIsJoinedWithoutAnyCheck)
{
    addMember(5, "Civile");
    EXPECT_EQ(utenti.GetSqlFiltroPratiche(Value("05")),
              "((Id_Riservata IN (0,05))  AND (fk_Gruppo IS NULL))  OR ((Id_Riservata=0) AND (fk_Gruppo IN "
              "('Civile')))");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(Value("05")), "(IdRiservata IN (0,05) OR (fkGruppo  IN ('Civile')))");
}

TEST_F(RecordFiltersTest, IdAsDoubleIsJoinedAsPlainNumber)
{
    addMember(5, "Civile");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(Value(5.0)), "(IdRiservata IN (0,5) OR (fkGruppo  IN ('Civile')))");
}

// ---- Failures reach the caller

TEST_F(RecordFiltersTest, FailureReadingGroupsIsRaised)
{
    addMember(5, "Civile");
    db.dropTable("RelGruppiUtenti");
    EXPECT_THROW(static_cast<void>(utenti.GetSqlFiltroPratiche(id(5))), Error);
    EXPECT_THROW(static_cast<void>(utenti.GetSqlFiltroAnagrafiche(id(5))), Error);
}

// The groups are read before the id is looked at, so the all-seeing user
// gets the failure too.
TEST_F(RecordFiltersTest, FailureReadingGroupsIsRaisedForUserTwo)
{
    db.dropTable("RelGruppiUtenti");
    EXPECT_THROW(static_cast<void>(utenti.GetSqlFiltroPratiche(id(2))), Error);
    EXPECT_THROW(static_cast<void>(utenti.GetSqlFiltroAnagrafiche(id(2))), Error);
}

TEST_F(RecordFiltersTest, MalformedIdMakesTheGroupsReadFail)
{
    EXPECT_THROW(static_cast<void>(utenti.GetSqlFiltroPratiche(Value("5)"))), Error);
    EXPECT_THROW(static_cast<void>(utenti.GetSqlFiltroAnagrafiche(Value::null())), Error);
}

TEST(RecordFiltersWithoutDatabaseTest, BrokenDatabaseIsRaised)
{
    const BrokenDatabase broken;
    EXPECT_THROW(static_cast<void>(clsUtenti().GetSqlFiltroPratiche(Value(std::int32_t{5}))), Error);
    EXPECT_THROW(static_cast<void>(clsUtenti().GetSqlFiltroAnagrafiche(Value(std::int32_t{5}))), Error);
}

// The filters do not depend on the user's level nor on the users table.
TEST_F(RecordFiltersTest, FiltersIgnoreLevelAndUsersTable)
{
    addUser(5, 3);
    addMember(5, "Civile");
    db.dropTable("Utenti");
    EXPECT_EQ(utenti.GetSqlFiltroAnagrafiche(id(5)), "(IdRiservata IN (0,5) OR (fkGruppo  IN ('Civile')))");
}

} // namespace
} // namespace avlor::test
