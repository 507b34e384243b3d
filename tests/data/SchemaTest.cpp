// The practice database made by createPracticeDatabase: its tables, its
// version row and its refusal to touch an existing database.
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "TestDatabase.h"
#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"

namespace avlor {
namespace {

TEST(Schema, NewDatabaseHoldsEveryTable) {
    test::TestDatabase db;
    const std::vector<std::string> expected = {
        "Anagrafica",      "Azioni",        "ConfigGenerale",        "Diritti2004Euro", "Diritti94",
        "Diritti94Euro",   "Fatture",       "FonteTariffe",          "MultiIntesta",    "Onorari2004Euro",
        "Onorari94",       "Onorari94Euro", "OnorariPenali2004Euro", "OnorariPenali94", "OnorariPenali94Euro",
        "OnorariStrag2004Euro", "OnorariStrag94", "OnorariStrag94Euro", "ParcellaBase", "Pratica",
        "RelGruppiUtenti", "Utenti",        "Versioni",              "VociParcellaBase"};
    EXPECT_EQ(db.connection()->tableNames(), expected);
}

TEST(Schema, VersionIsOne) {
    test::TestDatabase db;
    const Value version = db.value("SELECT Versione FROM Versioni");
    ASSERT_EQ(version.kind(), ValueKind::Long);
    EXPECT_EQ(version.asLong(), 1);
    EXPECT_EQ(db.rows("Versioni").size(), 1U);
}

TEST(Schema, RefusesAnExistingEmptyFile) {
    test::TestDatabase db;
    const auto file = db.folder() / "empty.db";
    std::ofstream(file).close();
    EXPECT_THROW(createPracticeDatabase(file.string()), DataError);
    EXPECT_EQ(std::filesystem::file_size(file), 0U);
}

} // namespace
} // namespace avlor
