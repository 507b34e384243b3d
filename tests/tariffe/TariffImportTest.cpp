// Importing and exporting a fee table through the practice database: a file
// is written whole or not at all, every fault names its line and column, and
// an export reads back to the same rows.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "TestDatabase.h"
#include "avlor/data/Connection.h"
#include "avlor/data/DataError.h"
#include "avlor/tariffe/TariffExport.h"
#include "avlor/tariffe/TariffFileError.h"
#include "avlor/tariffe/TariffImport.h"

namespace avlor {
namespace {

using test::TestDatabase;
using Rows = std::vector<std::vector<Value>>;

// Rows compared value by value, kind included (null is not "" and not 0).
void expectSameRows(const Rows& actual, const Rows& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t r = 0; r < actual.size(); ++r) {
        ASSERT_EQ(actual[r].size(), expected[r].size()) << "row " << r;
        for (std::size_t c = 0; c < actual[r].size(); ++c)
            EXPECT_TRUE(actual[r][c].identicalTo(expected[r][c]))
                << "row " << r << ", field " << c << ": " << actual[r][c].toText() << " vs " << expected[r][c].toText();
    }
}

// Runs SQL through a connection of its own (a trigger body holds a ';',
// which the fixture's script runner would take for the end of a statement).
void runOnTheSideOf(const TestDatabase& database, const char* sql)
{
    sqlite3* side = nullptr;
    ASSERT_EQ(sqlite3_open(database.location().c_str(), &side), SQLITE_OK);
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(side, sql, nullptr, nullptr, &message), SQLITE_OK) << (message ? message : "");
    sqlite3_free(message);
    sqlite3_close(side);
}

Value money(const char* text) { return Value::currency(Currency::fromText(text)); }
Value id(std::int32_t n) { return Value::longValue(n); }
Value text(const char* s) { return Value::text(s); }

const char* const CriminalSelect =
    "SELECT Id, CodiceTariffa, Azione, Autorita, PreturaMIN, PreturaMAX, TribunaleMIN, TribunaleMAX, GiuPaceMIN, "
    "GiuPaceMAX FROM OnorariPenali2004Euro ORDER BY Id";
const char* const SourcesSelect = "SELECT Tabella, Id, Fonte, Note FROM FonteTariffe ORDER BY Tabella, Id";

// A file of `count` items of OnorariPenali2004Euro numbered from `first`,
// and the rows the table holds for them (as CriminalSelect reads them):
// texts with commas and quotes, null and empty texts, amounts with cents,
// at the edge of their precision and left empty.
struct ItemsFile {
    std::string text;
    Rows rows;
};

ItemsFile itemsFile(std::int32_t first, std::size_t count, const std::string& code)
{
    ItemsFile file{"Id,CodiceTariffa,Azione,Autorita,TribunaleMIN,TribunaleMAX,GiuPaceMIN\n", {}};
    for (std::int32_t item = first; item < first + static_cast<std::int32_t>(count); ++item) {
        const std::string n = std::to_string(item);
        const std::string cents = std::to_string(item % 1000) + ".25";
        const bool large = item % 11 == 0;
        file.text += n + ",\"" + code + n + "\"," +
            (item % 5 == 0 ? "" : "\"Voce " + n + ", detta \"\"" + code + "\"\"\"") + "," +
            (item % 3 == 0 ? "\"\"" : "\"Tribunale\"") + "," + cents + ",," + (large ? "1234567.8912" : "7") + "\n";
        file.rows.push_back({id(item), Value::text(code + n),
                             item % 5 == 0 ? Value::null() : Value::text("Voce " + n + ", detta \"" + code + "\""),
                             Value::text(item % 3 == 0 ? "" : "Tribunale"), money("0"), money("0"),
                             Value::currency(Currency::fromText(cents)), money("0"),
                             large ? money("1234567.8912") : money("7"), money("0")});
    }
    return file;
}

// The FonteTariffe rows of items `first` to `last` of OnorariPenali2004Euro.
Rows sourcesOf(std::int32_t first, std::int32_t last, const std::string& fonte)
{
    Rows rows;
    for (std::int32_t item = first; item <= last; ++item)
        rows.push_back({text("OnorariPenali2004Euro"), id(item), Value::text(fonte), Value::null()});
    return rows;
}

class TariffImport : public testing::Test {
protected:
    // Everything the import may touch, to compare before and after.
    [[nodiscard]] Rows snapshot() const
    {
        Rows all = db.rows("SELECT * FROM OnorariPenali2004Euro ORDER BY Id");
        for (auto& row : db.rows(SourcesSelect))
            all.push_back(row);
        return all;
    }

    void seed() const
    {
        (void)importTariffText("OnorariPenali2004Euro",
                               "Id,CodiceTariffa,Azione,TribunaleMIN,TribunaleMAX\n"
                               "1,\"1.1\",\"Informativa\",8,12\n"
                               "4,\"2\",\"Esame e studio\",25,45\n",
                               "seed");
    }

    // Imports `file`, expects it refused at `line` / `column`, and the
    // database as it was.
    void expectRefused(const std::string& file, std::size_t line, const std::string& column) const
    {
        seed();
        const Rows before = snapshot();
        try {
            (void)importTariffText("OnorariPenali2004Euro", file, "rifiutato");
            ADD_FAILURE() << "accepted: " << file;
        } catch (const TariffFileError& e) {
            EXPECT_EQ(e.line(), line) << e.what();
            EXPECT_EQ(e.column(), column) << e.what();
        }
        expectSameRows(snapshot(), before);
    }

    TestDatabase db;
};

TEST_F(TariffImport, ValidFileAddsItsRowsAndTheirSource)
{
    const TariffImportResult result = importTariffText(
        "OnorariPenali2004Euro",
        "Id,CodiceTariffa,Azione,GiuPaceMIN,GiuPaceMAX,TribunaleMIN,TribunaleMAX\n"
        "1,\"1.1\",\"Corrispondenza e sessioni - Informativa anche telefonica o telematica, per ognuna\",6,10,8,12\n"
        "2,\"1.2\",\"Sessione \"\"in studio\"\", per ogni sessione\",19,39,24,48\n",
        "Tabella C, ristampa");
    EXPECT_EQ(result.table, "OnorariPenali2004Euro");
    EXPECT_EQ(result.added, 2U);
    EXPECT_EQ(result.replaced, 0U);
    expectSameRows(
        db.rows(CriminalSelect),
        {{id(1), text("1.1"), text("Corrispondenza e sessioni - Informativa anche telefonica o telematica, per ognuna"),
          Value::null(), money("0"), money("0"), money("8"), money("12"), money("6"), money("10")},
         {id(2), text("1.2"), text("Sessione \"in studio\", per ogni sessione"), Value::null(), money("0"), money("0"),
          money("24"), money("48"), money("19"), money("39")}});
    expectSameRows(db.rows(SourcesSelect),
                   {{text("OnorariPenali2004Euro"), id(1), text("Tabella C, ristampa"), Value::null()},
                    {text("OnorariPenali2004Euro"), id(2), text("Tabella C, ristampa"), Value::null()}});
}

TEST_F(TariffImport, AnItemAlreadyInTheTableIsReplacedWholeAndOthersStay)
{
    seed();
    const TariffImportResult result = importTariffText("onorariPENALI2004euro",
                                                       "Id,CodiceTariffa,GiuPaceMIN,GiuPaceMAX\n"
                                                       "4,\"2\",20,35\n"
                                                       "5,\"3\",1,2\n",
                                                       "seconda fonte");
    EXPECT_EQ(result.added, 1U);
    EXPECT_EQ(result.replaced, 1U);
    // Item 1 untouched; item 4 holds only what the second file gave (its
    // description and Tribunale band are gone); item 5 is new.
    expectSameRows(db.rows(CriminalSelect),
                   {{id(1), text("1.1"), text("Informativa"), Value::null(), money("0"), money("0"), money("8"),
                     money("12"), money("0"), money("0")},
                    {id(4), text("2"), Value::null(), Value::null(), money("0"), money("0"), money("0"), money("0"),
                     money("20"), money("35")},
                    {id(5), text("3"), Value::null(), Value::null(), money("0"), money("0"), money("0"), money("0"),
                     money("1"), money("2")}});
    expectSameRows(db.rows(SourcesSelect),
                   {{text("OnorariPenali2004Euro"), id(1), text("seed"), Value::null()},
                    {text("OnorariPenali2004Euro"), id(4), text("seconda fonte"), Value::null()},
                    {text("OnorariPenali2004Euro"), id(5), text("seconda fonte"), Value::null()}});
}

TEST_F(TariffImport, BadNumberChangesNothing)
{
    expectRefused("Id,CodiceTariffa,GipMIN\n1,\"1.1\",8\n2,\"1.2\",24\n3,\"1.3\",4O\n", 4, "GipMIN");
}

TEST_F(TariffImport, UnknownColumnChangesNothing)
{
    expectRefused("Id,CodiceTariffa,TribunaleCollMIN\n1,\"1.1\",10\n", 1, "TribunaleCollMIN");
}

TEST_F(TariffImport, DuplicateIdChangesNothing)
{
    expectRefused("Id,CodiceTariffa,GipMIN\n1,\"1.1\",8\n2,\"1.2\",24\n1,\"1.3\",48\n", 4, "Id");
}

TEST_F(TariffImport, EmptyFileChangesNothing) { expectRefused("", 1, ""); }

TEST_F(TariffImport, HeaderWithoutItemsChangesNothing) { expectRefused("Id,CodiceTariffa\n", 2, ""); }

TEST_F(TariffImport, MissingCodeChangesNothing)
{
    expectRefused("Id,CodiceTariffa,GipMIN\n1,\"1.1\",8\n2,,24\n", 3, "CodiceTariffa");
}

TEST_F(TariffImport, MissingCodeColumnChangesNothing) { expectRefused("Id,GipMIN\n1,8\n", 1, "CodiceTariffa"); }

TEST_F(TariffImport, WrongNumberOfFieldsChangesNothing)
{
    // An Italian amount left unquoted in a comma-separated file splits in two.
    expectRefused("Id,CodiceTariffa,GipMIN\n1,\"1.1\",8,50\n", 2, "");
}

TEST_F(TariffImport, DatabaseFailureHalfWayChangesNothing)
{
    seed();
    // The third item is refused by the database itself, after two items of
    // the same file have been written.
    if (TestDatabase::onPostgresql())
        db.exec("ALTER TABLE OnorariPenali2004Euro ADD CONSTRAINT refuse_999 CHECK (Id <> 999)");
    else
        runOnTheSideOf(db,
                       "CREATE TRIGGER refuse_999 BEFORE INSERT ON OnorariPenali2004Euro WHEN NEW.Id = 999 "
                       "BEGIN SELECT RAISE(ABORT, 'refused by the test'); END");
    const Rows before = snapshot();
    EXPECT_THROW((void)importTariffText("OnorariPenali2004Euro",
                                        "Id,CodiceTariffa,GipMIN\n4,\"2\",99\n7,\"5\",1\n999,\"x\",1\n", "parziale"),
                 DataError);
    expectSameRows(snapshot(), before);
    // And the database takes the next import normally.
    if (TestDatabase::onPostgresql())
        db.exec("ALTER TABLE OnorariPenali2004Euro DROP CONSTRAINT refuse_999");
    else
        runOnTheSideOf(db, "DROP TRIGGER refuse_999");
    EXPECT_EQ(importTariffText("OnorariPenali2004Euro", "Id,CodiceTariffa\n7,\"5\"\n", "dopo").added, 1U);
}

// The items are written in batches (Connection::InsertBatchRows to a
// statement on the server): a file of exactly one batch, then one of a
// batch and one more item that replaces half of the first.
TEST_F(TariffImport, BatchBoundariesStoreEveryItemAndItsSource)
{
    constexpr std::size_t batch = Connection::InsertBatchRows;
    const ItemsFile whole = itemsFile(1, batch, "A");
    TariffImportResult result = importTariffText("OnorariPenali2004Euro", whole.text, "prima");
    EXPECT_EQ(result.added, batch);
    EXPECT_EQ(result.replaced, 0U);
    expectSameRows(db.rows(CriminalSelect), whole.rows);
    expectSameRows(db.rows(SourcesSelect), sourcesOf(1, static_cast<std::int32_t>(batch), "prima"));

    const auto half = static_cast<std::int32_t>(batch / 2);
    const ItemsFile more = itemsFile(half + 1, batch + 1, "B");
    result = importTariffText("OnorariPenali2004Euro", more.text, "seconda");
    EXPECT_EQ(result.added, batch / 2 + 1);
    EXPECT_EQ(result.replaced, batch / 2);
    Rows expected(whole.rows.begin(), whole.rows.begin() + half);
    expected.insert(expected.end(), more.rows.begin(), more.rows.end());
    expectSameRows(db.rows(CriminalSelect), expected);
    Rows sources = sourcesOf(1, half, "prima");
    for (auto& row : sourcesOf(half + 1, half + static_cast<std::int32_t>(batch) + 1, "seconda"))
        sources.push_back(row);
    expectSameRows(db.rows(SourcesSelect), sources);
}

// A table of 20,000 items whose item 15,000 the database refuses: the 14,999
// items before it, written by then, go with it.
TEST_F(TariffImport, AnItemRefusedByTheDatabaseLateInALargeFileChangesNothing)
{
    seed();
    if (TestDatabase::onPostgresql())
        db.exec("ALTER TABLE OnorariPenali2004Euro ADD CONSTRAINT refuse_15000 CHECK (Id <> 15000)");
    else
        runOnTheSideOf(db,
                       "CREATE TRIGGER refuse_15000 BEFORE INSERT ON OnorariPenali2004Euro WHEN NEW.Id = 15000 "
                       "BEGIN SELECT RAISE(ABORT, 'refused by the test'); END");
    const Rows before = snapshot();
    EXPECT_THROW((void)importTariffText("OnorariPenali2004Euro", itemsFile(1, 20000, "L").text, "grande"), DataError);
    expectSameRows(snapshot(), before);
}

TEST_F(TariffImport, AFaultOfItem15000InALargeFileChangesNothing)
{
    std::string file = itemsFile(1, 20000, "L").text;
    const std::string item = "\n15000,\"L15000\",,\"\",0.25,";
    ASSERT_NE(file.find(item), std::string::npos);
    file.replace(file.find(item), item.size(), "\n15000,\"L15000\",,\"\",x0.25,");
    expectRefused(file, 15001, "TribunaleMIN");
}

TEST_F(TariffImport, ItalianAndPointDecimalsStoreTheSameAmounts)
{
    (void)importTariffText("Onorari94Euro",
                           "Id;CodiceTariffa;SCA3MIN;SCA3MAX;SCA6MAX;SCA5MAX\n"
                           "11;\"11\";61,97;167,85;1.007,09;671,39\n"
                           "18;\"18\";167,85;325,37;1.952,21;1301,47\n",
                           "italiano");
    const Rows italian = db.rows("SELECT * FROM Onorari94Euro ORDER BY Id");
    (void)importTariffText("Onorari94Euro",
                           "Id,CodiceTariffa,SCA3MIN,SCA3MAX,SCA6MAX,SCA5MAX\n"
                           "11,\"11\",61.97,167.85,1007.09,671.39\n"
                           "18,\"18\",167.85,325.37,1952.21,1301.47\n",
                           "punto");
    const Rows point = db.rows("SELECT * FROM Onorari94Euro ORDER BY Id");
    expectSameRows(point, italian);
    expectSameRows(db.rows("SELECT SCA3MIN, SCA6MAX, SCA5MAX FROM Onorari94Euro WHERE Id = 18"),
                   {{money("167.85"), money("1952.21"), money("1301.47")}});
}

TEST_F(TariffImport, LireAmountsInItalianNotation)
{
    (void)importTariffText("Onorari94", "Id,CodiceTariffa,SCA1MIN,SCA1MAX,SCA4MAX\n2,\"2\",85.000,225.000,1.300.000\n",
                           "lire");
    expectSameRows(db.rows("SELECT SCA1MIN, SCA1MAX, SCA4MAX FROM Onorari94"),
                   {{money("85000"), money("225000"), money("1300000")}});
}

TEST_F(TariffImport, ExportWritesEveryColumnExactly)
{
    seed();
    db.exec("UPDATE OnorariPenali2004Euro SET Autorita = 'Tribunale', CostCassMAX = " + TestDatabase::amount("0.0001") +
            " WHERE Id = 4");
    EXPECT_EQ(exportTariffText("OnorariPenali2004Euro"),
              "Id,CodiceTariffa,Azione,Autorita,PreturaMIN,PreturaMAX,TribunaleMIN,TribunaleMAX,GiuPaceMIN,GiuPaceMAX,"
              "GipMIN,GipMAX,AssiseAppMIN,AssiseAppMAX,AppelloMIN,AppelloMAX,CostCassMIN,CostCassMAX\n"
              "1,\"1.1\",\"Informativa\",,0.0000,0.0000,8.0000,12.0000,0.0000,0.0000,0.0000,0.0000,0.0000,0.0000,"
              "0.0000,0.0000,0.0000,0.0000\n"
              "4,\"2\",\"Esame e studio\",\"Tribunale\",0.0000,0.0000,25.0000,45.0000,0.0000,0.0000,0.0000,0.0000,"
              "0.0000,0.0000,0.0000,0.0000,0.0000,0.0001\n");
}

TEST_F(TariffImport, ExportOfAnEmptyTableIsItsHeader)
{
    EXPECT_EQ(exportTariffText("OnorariStrag94"), "Id,CodiceTariffa,Azione,Autorita\n");
}

TEST_F(TariffImport, ExportThenImportGivesIdenticalRows)
{
    (void)importTariffText("Onorari2004Euro",
                           "Id,CodiceTariffa,Azione,Autorita,SCA01MIN,SCA01MAX,SCA02MIN,SCA02MAX,MININDET,MAXINDET\n"
                           "1,\"1\",\"Per l'intero giudizio\",\"Giudice di pace\",55,190,,,0.0001,1234567.8912\n"
                           "9,\"9\",\"Redazione delle difese (comparse conclusionali e repliche)\",,0,0,150,280,,\n"
                           "12,\"1.B.a\",\"Due righe:\nseconda, con \"\"virgolette\"\"\",\"\",1.055,0,0,0,0,2.5\n",
                           "originale");
    const Rows original = db.rows("SELECT * FROM Onorari2004Euro ORDER BY Id");
    const std::string exported = exportTariffText("Onorari2004Euro");

    TestDatabase other;
    const TariffImportResult result = importTariffText("Onorari2004Euro", exported, "copia");
    EXPECT_EQ(result.added, 3U);
    expectSameRows(other.rows("SELECT * FROM Onorari2004Euro ORDER BY Id"), original);
    EXPECT_EQ(exportTariffText("Onorari2004Euro"), exported);
}

TEST_F(TariffImport, ItemIdsAcrossThe16BitBoundaryUpToTheLargest)
{
    const std::string file = "Id,CodiceTariffa\n32767,\"a\"\n32768,\"b\"\n2147483647,\"c\"\n";
    EXPECT_EQ(importTariffText("OnorariStrag2004Euro", file, "limiti").added, 3U);
    expectSameRows(db.rows("SELECT Id FROM OnorariStrag2004Euro ORDER BY Id"),
                   {{id(32767)}, {id(32768)}, {id(2147483647)}});
    EXPECT_EQ(exportTariffText("OnorariStrag2004Euro"),
              "Id,CodiceTariffa,Azione,Autorita\n32767,\"a\",,\n32768,\"b\",,\n2147483647,\"c\",,\n");
}

TEST_F(TariffImport, ExportThenImportIntoTheSameDatabaseChangesNoRow)
{
    seed();
    const Rows before = db.rows("SELECT * FROM OnorariPenali2004Euro ORDER BY Id");
    const TariffImportResult result =
        importTariffText("OnorariPenali2004Euro", exportTariffText("OnorariPenali2004Euro"), "stesso");
    EXPECT_EQ(result.replaced, 2U);
    expectSameRows(db.rows("SELECT * FROM OnorariPenali2004Euro ORDER BY Id"), before);
}

TEST_F(TariffImport, UnknownTableIsRefusedBeforeReadingTheFile)
{
    try {
        (void)importTariffText("Onorari2005Euro", "Id,CodiceTariffa\n1,a\n", "x");
        FAIL() << "no error";
    } catch (const TariffFileError&) {
        FAIL() << "the file was read";
    } catch (const Error& e) {
        EXPECT_STREQ(e.what(),
                     "\"Onorari2005Euro\" non è una tabella delle tariffe (le tabelle sono Diritti94, Diritti94Euro, "
                     "Diritti2004Euro, Onorari94, Onorari94Euro, Onorari2004Euro, OnorariPenali94, "
                     "OnorariPenali94Euro, OnorariPenali2004Euro, OnorariStrag94, OnorariStrag94Euro, "
                     "OnorariStrag2004Euro)");
    }
    EXPECT_THROW((void)exportTariffText("Azioni"), Error);
}

TEST_F(TariffImport, FromAFileRecordsItsNameAndPlacesFaultsInIt)
{
    const std::filesystem::path good = db.folder() / "penale.csv";
    std::ofstream(good) << "Id,CodiceTariffa,GipMIN,GipMAX\n3,\"1.3\",48,129\n";
    EXPECT_EQ(importTariffFile("OnorariPenali2004Euro", good).added, 1U);
    expectSameRows(db.rows("SELECT Fonte FROM FonteTariffe"), {{text("File importato: penale.csv")}});

    const std::filesystem::path bad = db.folder() / "errata.csv";
    std::ofstream(bad) << "Id,CodiceTariffa,GipMIN\n3,\"1.3\",x\n";
    try {
        (void)importTariffFile("OnorariPenali2004Euro", bad);
        FAIL() << "no error";
    } catch (const TariffFileError& e) {
        EXPECT_EQ(e.file(), "errata.csv");
        EXPECT_STREQ(e.what(), "errata.csv, riga 2, colonna GipMIN: \"x\" non è un importo");
    }
    try {
        (void)importTariffFile("OnorariPenali2004Euro", db.folder() / "assente.csv");
        FAIL() << "no error";
    } catch (const TariffFileError&) {
        FAIL() << "wrong error";
    } catch (const Error& e) {
        EXPECT_EQ(std::string(e.what()),
                  "Impossibile leggere " + (db.folder() / "assente.csv").string() + ": No such file or directory");
    }
    try {
        (void)importTariffFile("OnorariPenali2004Euro", db.folder());
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(std::string(e.what()), "Impossibile leggere " + db.folder().string() + ": è una cartella");
    }
}

} // namespace
} // namespace avlor
