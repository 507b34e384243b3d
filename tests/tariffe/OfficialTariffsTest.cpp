// The official figures shipped with the program: loaded into a new practice
// database, each one equals its printed source, nothing else is there, and
// each item carries its source.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "SourceFigures.h"
#include "TestDatabase.h"
#include "avlor/core/FeeTables.h"
#include "avlor/data/TipoCampo.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/tariffe/FeeColumns.h"
#include "avlor/tariffe/OfficialTariffs.h"
#include "avlor/tariffe/TariffExport.h"
#include "avlor/tariffe/TariffFileError.h"

namespace avlor {
namespace {

namespace fs = std::filesystem;
using test::ExpectedItem;
using test::TestDatabase;

// Sets (or clears) an environment variable for one test and puts it back.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const std::optional<std::string>& value) : name_(name)
    {
        if (const char* old = std::getenv(name))
            previous_ = old;
        if (value)
            setenv(name, value->c_str(), 1);
        else
            unsetenv(name);
    }
    ~EnvironmentVariable()
    {
        if (previous_)
            setenv(name_, previous_->c_str(), 1);
        else
            unsetenv(name_);
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    const char* name_;
    std::optional<std::string> previous_;
};

std::string readText(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class OfficialTariffs : public testing::Test {
protected:
    void SetUp() override { loaded = loadOfficialTariffs(test::shippedFolder()); }

    // Compares every row and every column of `table` with the items the
    // sources call for: the texts, each expected amount, and 0 in every
    // amount column that no printed figure fills.
    void expectTableHolds(const std::string& table, const std::vector<ExpectedItem>& expected) const
    {
        SCOPED_TRACE(table);
        clsAccessoDati access(db.connection());
        const auto rows =
            access.Apri("SELECT * FROM " + table + " ORDER BY Id", adOpenForwardOnly, adLockReadOnly, adCmdUnspecified);
        std::set<std::string> amountColumns;
        for (const std::string& column : rows->FieldNames()) {
            if (feeColumnRole(column) == FeeColumnRole::Amount)
                amountColumns.insert(column);
        }
        std::size_t count = 0;
        for (const ExpectedItem& item : expected) {
            SCOPED_TRACE("item " + std::to_string(item.id));
            ASSERT_FALSE(rows->Eof()) << "missing item";
            ++count;
            EXPECT_EQ(rows->Field("Id").toLong(), item.id);
            EXPECT_EQ(rows->Field("CodiceTariffa").toText(), item.code);
            EXPECT_EQ(rows->Field("Azione").toText(), item.azione);
            if (item.autorita) {
                EXPECT_EQ(rows->Field("Autorita").toText(), *item.autorita);
            } else {
                EXPECT_TRUE(rows->Field("Autorita").isNull());
            }
            for (const auto& [column, amount] : item.amounts)
                ASSERT_TRUE(amountColumns.contains(column)) << column;
            for (const std::string& column : amountColumns) {
                const auto wanted = item.amounts.find(column);
                const Currency expectedAmount = wanted == item.amounts.end() ? Currency() : wanted->second;
                EXPECT_EQ(rows->Field(column).toCurrency(), expectedAmount) << column;
            }
            rows->MoveNext();
        }
        EXPECT_TRUE(rows->Eof()) << "more items than the sources hold";
        EXPECT_EQ(count, expected.size());
    }

    TestDatabase db;
    OfficialTariffsResult loaded;
};

TEST_F(OfficialTariffs, Onorari2004EuroEqualsItsSource)
{
    expectTableHolds("Onorari2004Euro", test::expectedOnorari2004Euro());
}
TEST_F(OfficialTariffs, Onorari94EqualsTheOfficialLireText)
{
    expectTableHolds("Onorari94", test::expectedOnorari94());
}
TEST_F(OfficialTariffs, Onorari94EuroEqualsItsSources)
{
    expectTableHolds("Onorari94Euro", test::expectedOnorari94Euro());
}
TEST_F(OfficialTariffs, OnorariPenali94EqualsTheOfficialLireText)
{
    expectTableHolds("OnorariPenali94", test::expectedOnorariPenali94());
}
TEST_F(OfficialTariffs, OnorariPenali2004EuroEqualsItsSource)
{
    expectTableHolds("OnorariPenali2004Euro", test::expectedOnorariPenali2004Euro());
}
TEST_F(OfficialTariffs, OnorariStrag2004EuroListsItsItems)
{
    expectTableHolds("OnorariStrag2004Euro", test::expectedOnorariStrag2004Euro());
}

TEST_F(OfficialTariffs, TablesWithoutSourcesStayEmpty)
{
    for (const char* table : {"Diritti94", "Diritti94Euro", "Diritti2004Euro", "OnorariPenali94Euro", "OnorariStrag94",
                              "OnorariStrag94Euro"})
        expectTableHolds(table, {});
}

TEST_F(OfficialTariffs, FiguresOnlyDerivedFromAConversionAreNotShipped)
{
    // The lire of items 9-20 and of the pretore's second bracket exist only
    // as conversions of the euro reprint.
    EXPECT_EQ(db.value("SELECT COUNT(*) FROM Onorari94 WHERE Id > 8").toLong(), 0);
    EXPECT_EQ(db.value("SELECT COUNT(*) FROM Onorari94 WHERE SCA2MIN <> 0 OR SCA2MAX <> 0").toLong(), 0);
    // The maximum of item 8 is cut off in the official extract; its euro
    // conversion (226,21 = L. 438.000) is not a printed lire figure.
    EXPECT_EQ(db.value("SELECT SCA1MAX FROM Onorari94 WHERE Id = 8").toCurrency(), Currency());
    EXPECT_EQ(db.value("SELECT SCA1MIN FROM Onorari94 WHERE Id = 8").toCurrency(), Currency::fromWhole(230000));
    // Item 10's second-bracket minimum stays as printed, not as the rule
    // would make it.
    EXPECT_EQ(db.value("SELECT SCA2MIN FROM Onorari94Euro WHERE Id = 10").toCurrency(), Currency::fromText("49.48"));
}

TEST_F(OfficialTariffs, ReportsWhatItLoaded)
{
    ASSERT_EQ(loaded.tables.size(), 6U);
    const std::vector<std::pair<std::string, std::size_t>> expected{
        {"Onorari94", 8},       {"Onorari94Euro", 19},        {"Onorari2004Euro", 11},
        {"OnorariPenali94", 5}, {"OnorariPenali2004Euro", 4}, {"OnorariStrag2004Euro", 9}};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(loaded.tables[i].table, expected[i].first);
        EXPECT_EQ(loaded.tables[i].added, expected[i].second);
        EXPECT_EQ(loaded.tables[i].replaced, 0U);
    }
    // One source per item (56) and one note per table (12).
    EXPECT_EQ(loaded.sources, 68U);
    EXPECT_EQ(db.value("SELECT COUNT(*) FROM FonteTariffe").toLong(), 68);
}

TEST_F(OfficialTariffs, EveryItemAndEveryTableCarriesItsSource)
{
    for (const FeeTable& table : feeTables()) {
        const std::string name(table.name);
        SCOPED_TRACE(name);
        EXPECT_EQ(db.value("SELECT COUNT(*) FROM FonteTariffe WHERE Tabella = '" + name +
                           "' AND Id IS NULL AND "
                           "Fonte <> '' AND Note <> ''")
                      .toLong(),
                  1);
        EXPECT_EQ(db.value("SELECT COUNT(*) FROM " + name +
                           " t WHERE NOT EXISTS (SELECT 1 FROM FonteTariffe f "
                           "WHERE f.Tabella = '" +
                           name + "' AND f.Id = t.Id AND f.Fonte <> '')")
                      .toLong(),
                  0);
    }
    EXPECT_EQ(db.value("SELECT Fonte FROM FonteTariffe WHERE Tabella = 'Onorari2004Euro' AND Id = 9").toText(),
              "D.M. 8 aprile 2004 n. 127, Tabella A par. I (giudice di pace), ristampa dell'editore: "
              "https://win.infogiur.com/Tariffe/civile_giudice_di_pace.asp");
    EXPECT_EQ(db.value("SELECT Note FROM FonteTariffe WHERE Tabella = 'OnorariPenali2004Euro' AND Id = 1").toText(),
              "Tribunale collegiale (forcella stampata, senza colonna propria): min 10, max 16 euro.");
}

TEST_F(OfficialTariffs, ExportOfEachShippedTableIsTheShippedFile)
{
    for (const FeeTable& table : feeTables()) {
        const fs::path file = test::shippedFolder() / (std::string(table.name) + ".csv");
        if (fs::exists(file)) {
            EXPECT_EQ(exportTariffText(table.name), readText(file)) << table.name;
        }
    }
}

TEST_F(OfficialTariffs, LoadingAgainReplacesEachItemWithItself)
{
    const auto before = db.rows("SELECT * FROM Onorari94Euro ORDER BY Id");
    const OfficialTariffsResult again = loadOfficialTariffs(test::shippedFolder());
    for (const TariffImportResult& table : again.tables)
        EXPECT_EQ(table.added, 0U) << table.table;
    EXPECT_EQ(again.tables[1].replaced, 19U);
    EXPECT_EQ(db.value("SELECT COUNT(*) FROM FonteTariffe").toLong(), 68);
    const auto after = db.rows("SELECT * FROM Onorari94Euro ORDER BY Id");
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t r = 0; r < after.size(); ++r) {
        for (std::size_t c = 0; c < after[r].size(); ++c)
            EXPECT_TRUE(after[r][c].identicalTo(before[r][c]));
    }
}

// A copy of the shipped folder in which a test may break one file.
class BrokenShipment : public testing::Test {
protected:
    BrokenShipment()
    {
        fs::create_directories(folder);
        for (const auto& entry : fs::directory_iterator(test::shippedFolder())) {
            if (entry.is_regular_file())
                fs::copy_file(entry.path(), folder / entry.path().filename());
        }
    }

    void append(const std::string& file, const std::string& text) const
    {
        std::ofstream(folder / file, std::ios::app) << text;
    }

    [[nodiscard]] long long itemsInDatabase() const
    {
        long long count = 0;
        for (const FeeTable& table : feeTables())
            count += db.value("SELECT COUNT(*) FROM " + std::string(table.name)).toLong();
        return count + db.value("SELECT COUNT(*) FROM FonteTariffe").toLong();
    }

    TestDatabase db;
    fs::path folder = db.folder() / "tariffe";
};

TEST_F(BrokenShipment, ABadCellInTheLastFileLoadsNothing)
{
    append("OnorariStrag2004Euro.csv", "10,,\"senza codice\",\n");
    try {
        (void)loadOfficialTariffs(folder);
        FAIL() << "no error";
    } catch (const TariffFileError& e) {
        EXPECT_STREQ(e.what(),
                     "OnorariStrag2004Euro.csv, riga 11, colonna CodiceTariffa: è vuota: ogni voce deve avere "
                     "il suo codice come lo stampa la tariffa");
    }
    EXPECT_EQ(itemsInDatabase(), 0);
}

TEST_F(BrokenShipment, AnItemWithoutItsSourceLoadsNothing)
{
    append("OnorariStrag2004Euro.csv", "10,\"3.a\",\"voce senza fonte\",\n");
    try {
        (void)loadOfficialTariffs(folder);
        FAIL() << "no error";
    } catch (const TariffFileError& e) {
        EXPECT_STREQ(e.what(),
                     "OnorariStrag2004Euro.csv, riga 11, colonna Id: la voce 10 non ha la sua fonte in "
                     "FonteTariffe.csv");
    }
    EXPECT_EQ(itemsInDatabase(), 0);
}

TEST_F(BrokenShipment, ASourceOfAnItemNotShippedLoadsNothing)
{
    append("FonteTariffe.csv", "\"Diritti2004Euro\",391,\"fonte\",\n");
    try {
        (void)loadOfficialTariffs(folder);
        FAIL() << "no error";
    } catch (const TariffFileError& e) {
        EXPECT_EQ(e.file(), "FonteTariffe.csv");
        EXPECT_EQ(e.column(), "Id");
        EXPECT_EQ(e.reason(), "la voce 391 di Diritti2004Euro non è tra le voci fornite");
    }
    EXPECT_EQ(itemsInDatabase(), 0);
}

TEST_F(BrokenShipment, AMissingSourcesFileIsRefused)
{
    fs::remove(folder / "FonteTariffe.csv");
    EXPECT_THROW((void)loadOfficialTariffs(folder), Error);
    EXPECT_EQ(itemsInDatabase(), 0);
}

TEST_F(BrokenShipment, TheFolderOfTheEnvironmentIsLoadedInstead)
{
    append("OnorariStrag2004Euro.csv", "10,\"3.a\",\"voce aggiunta\",\n");
    append("FonteTariffe.csv", "\"OnorariStrag2004Euro\",10,\"fonte della voce aggiunta\",\n");
    {
        const EnvironmentVariable chosen("AVLOR_TARIFFE_DIR", folder.string());
        const OfficialTariffFiles figures = officialTariffFiles();
        EXPECT_EQ(figures.origin, folder.string());
        EXPECT_EQ(figures.files.at("OnorariStrag2004Euro.csv"), readText(folder / "OnorariStrag2004Euro.csv"));
        const OfficialTariffsResult loaded = loadOfficialTariffs(figures);
        EXPECT_EQ(db.value("SELECT Azione FROM OnorariStrag2004Euro WHERE Id = 10").toText(), "voce aggiunta");
        EXPECT_EQ(loaded.sources, 69u);
    }
    const EnvironmentVariable chosen("AVLOR_TARIFFE_DIR", db.folder().string());
    try {
        (void)officialTariffFiles();
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(std::string(e.what()),
                  "AVLOR_TARIFFE_DIR indica " + db.folder().string() + ", che non contiene FonteTariffe.csv");
    }
}

// Without AVLOR_TARIFFE_DIR the figures are those built into the library:
// exactly the files of sql/tariffe/, wherever the program and the working
// folder are.
TEST(BuiltInFigures, AreTheShippedFilesOfTheSourceTree)
{
    const EnvironmentVariable unset("AVLOR_TARIFFE_DIR", std::nullopt);
    const EnvironmentVariable noSource("AVLOR_SOURCE_DIR", std::nullopt);
    const OfficialTariffFiles builtIn = officialTariffFiles();
    std::vector<std::string> expectedNames;
    for (const auto& entry : fs::directory_iterator(test::shippedFolder())) {
        if (entry.path().extension() == ".csv")
            expectedNames.push_back(entry.path().filename().string());
    }
    std::sort(expectedNames.begin(), expectedNames.end());
    std::vector<std::string> names;
    for (const auto& [name, text] : builtIn.files) {
        names.push_back(name);
        EXPECT_EQ(text, readText(test::shippedFolder() / name)) << name;
    }
    EXPECT_EQ(names, expectedNames);
    EXPECT_EQ(names.size(), 7u);
}

} // namespace
} // namespace avlor
