// Recognising a table name and the statement that reads an item's row.
#include <gtest/gtest.h>

#include "avlor/core/FeeTables.h"

#include <string>

#include "avlor/core/Error.h"

namespace avlor {
namespace {

TEST(FeeTables, NamesAreTrimmedOfBlanksAndUpperCased)
{
    EXPECT_EQ(normalizedTableName("  diritti94euro "), "DIRITTI94EURO");
    EXPECT_EQ(normalizedTableName("Onorari2004Euro"), "ONORARI2004EURO");
    EXPECT_EQ(normalizedTableName("   "), "");
    EXPECT_EQ(normalizedTableName(""), "");
    // Only blanks are trimmed.
    EXPECT_EQ(normalizedTableName("\tDiritti94"), "\tDIRITTI94");
}

TEST(FeeTables, EveryTableIsFoundWithItsFamilyAndEdition)
{
    struct Expected {
        const char* given;
        const char* name;
        Family family;
        Edition edition;
    };
    const Expected all[] = {
        {"diritti94", "Diritti94", Family::Rights, Edition::Lire94},
        {"  diritti94euro ", "Diritti94Euro", Family::Rights, Edition::Euro94},
        {"DIRITTI2004EURO", "Diritti2004Euro", Family::Rights, Edition::Euro2004},
        {"Onorari94", "Onorari94", Family::Civil, Edition::Lire94},
        {"onorari94euro", "Onorari94Euro", Family::Civil, Edition::Euro94},
        {" Onorari2004Euro", "Onorari2004Euro", Family::Civil, Edition::Euro2004},
        {"OnorariPenali94", "OnorariPenali94", Family::Criminal, Edition::Lire94},
        {"ONORARIPENALI94EURO", "OnorariPenali94Euro", Family::Criminal, Edition::Euro94},
        {"onoraripenali2004euro  ", "OnorariPenali2004Euro", Family::Criminal, Edition::Euro2004},
        {"OnorariStrag94", "OnorariStrag94", Family::OutOfCourt, Edition::Lire94},
        {"onorariStrag94Euro", "OnorariStrag94Euro", Family::OutOfCourt, Edition::Euro94},
        {"OnorariStrag2004Euro", "OnorariStrag2004Euro", Family::OutOfCourt, Edition::Euro2004},
    };
    for (const Expected& e : all) {
        const std::optional<FeeTable> table = feeTableNamed(e.given);
        ASSERT_TRUE(table.has_value()) << e.given;
        EXPECT_EQ(table->name, e.name);
        EXPECT_EQ(table->family, e.family) << e.given;
        EXPECT_EQ(table->edition, e.edition) << e.given;
    }
}

TEST(FeeTables, OtherNamesAreNotTables)
{
    for (const char* name : {"", "Diritti", "Diritti95", "Diritti94 Euro", "OnorariPenali", "Diritti94Euro.",
                             "\tDiritti94", "Diritti94\n", "Azioni"})
        EXPECT_FALSE(feeTableNamed(name).has_value()) << name;
}

TEST(FeeTables, TheCatalogueListsTheTwelveTablesInMatchingOrder)
{
    std::string names;
    for (const FeeTable& table : feeTables())
        names += std::string(table.name) + " ";
    EXPECT_EQ(names,
              "Diritti94 Diritti94Euro Diritti2004Euro Onorari94 Onorari94Euro Onorari2004Euro "
              "OnorariPenali94 OnorariPenali94Euro OnorariPenali2004Euro OnorariStrag94 "
              "OnorariStrag94Euro OnorariStrag2004Euro ");
}

TEST(FeeTables, RequiringATableNamesTheTablesWhenTheNameIsNoTable)
{
    EXPECT_EQ(requireFeeTable(" onorari2004euro").name, "Onorari2004Euro");
    try {
        static_cast<void>(requireFeeTable("Onorari"));
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_STREQ(
            error.what(),
            "\"Onorari\" non è una tabella delle tariffe (le tabelle sono Diritti94, Diritti94Euro, Diritti2004Euro, "
            "Onorari94, Onorari94Euro, Onorari2004Euro, OnorariPenali94, OnorariPenali94Euro, "
            "OnorariPenali2004Euro, OnorariStrag94, OnorariStrag94Euro, OnorariStrag2004Euro)");
    }
}

TEST(FeeTables, TheRowStatementAppendsTheIdAsDecimalText)
{
    EXPECT_EQ(sqlFeeRow("Diritti94", 12), "SELECT * FROM Diritti94 WHERE Id = 12");
    EXPECT_EQ(sqlFeeRow("OnorariPenali2004Euro", 0), "SELECT * FROM OnorariPenali2004Euro WHERE Id = 0");
    EXPECT_EQ(sqlFeeRow("Onorari94Euro", -7), "SELECT * FROM Onorari94Euro WHERE Id = -7");
    EXPECT_EQ(sqlFeeRow("Diritti2004Euro", 2147483647), "SELECT * FROM Diritti2004Euro WHERE Id = 2147483647");
}

} // namespace
} // namespace avlor
