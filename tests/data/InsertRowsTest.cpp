// Adding many rows at once (Connection::insertRows): the values are stored
// exactly as a record set stores them, the batches of the server backend
// meet without losing or doubling a row, and the rows are written all or
// none, on their own and inside a transaction.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "TestDatabase.h"
#include "avlor/core/Date.h"
#include "avlor/core/Error.h"
#include "avlor/data/Connection.h"
#include "avlor/data/DataError.h"
#include "avlor/data/clsAccessoDati.h"

namespace avlor {
namespace {

using test::TestDatabase;
using Rows = std::vector<std::vector<Value>>;

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

const std::vector<std::string> ActionColumns = {"IdPra", "NOrdine",  "Data",    "IsTariffa", "Codice",
                                                "Descr", "Quantita", "Onorari", "Ore",       "Minuti"};

// What the application writes into actions, awkward values included: texts
// with the characters a bulk load must escape, a text that reads like a
// null marker, a text holding a NUL, empty text beside null, dates as a
// date and as day-first text, yes/no as a boolean and as text, amounts at
// the edge of their precision, numbers into a text column.
Rows awkwardActions(std::int32_t practice)
{
    const Value p = Value::longValue(practice);
    return {
        {p, Value::longValue(1), Value::date(Date::fromYmd(2004, 6, 2)), Value::boolean(true), Value::text("1.1"),
         Value::text("tab\there, line\nbreak, return\r\n, back\\slash"), Value::text("\\N"),
         Value::currency(Currency::fromText("1234567.8912")), Value::dbl(1.5), Value::longValue(30)},
        {p, Value::integer(2), Value::text("02/06/2004"), Value::text("false"), Value::text(""), Value::null(),
         Value::longValue(3), Value::currency(Currency::fromText("-0.0001")), Value::dbl(0.1), Value::null()},
        {p, Value::longValue(3), Value::null(), Value::boolean(false), Value::text("àèìòù €"),
         Value::text("\"quoted\", 'single'; semi"), Value::text(std::string("a\tb\0c", 5)), Value::currency(Currency()),
         Value::longValue(2), Value::longValue(-1)},
    };
}

const char* const ActionsOf = "SELECT NOrdine, Data, IsTariffa, Codice, Descr, Quantita, Onorari, Ore, Minuti "
                              "FROM Azioni WHERE IdPra = ";

// Rows of FonteTariffe numbered from `first`: (table, id, source, note).
Rows sources(std::int32_t first, std::size_t count)
{
    Rows rows;
    for (std::size_t i = 0; i < count; ++i) {
        const auto id = static_cast<std::int32_t>(first + static_cast<std::int32_t>(i));
        rows.push_back({Value::text("Onorari2004Euro"), Value::longValue(id),
                        Value::text("fonte " + std::to_string(id)),
                        id % 7 == 0 ? Value::text("nota\t" + std::to_string(id)) : Value::null()});
    }
    return rows;
}

const std::vector<std::string> SourceColumns = {"Tabella", "Id", "Fonte", "Note"};
const char* const AllSources = "SELECT Tabella, Id, Fonte, Note FROM FonteTariffe ORDER BY Id";

class InsertRows : public testing::Test {
protected:
    TestDatabase db;
};

TEST_F(InsertRows, StoresEveryValueAsARecordSetDoes)
{
    for (const std::vector<Value>& row : awkwardActions(1)) {
        clsAccessoDati data(db.connection());
        const auto actions = data.Apri("Azioni", 1, 3, -1);
        actions->AddNew();
        for (std::size_t i = 0; i < ActionColumns.size(); ++i)
            actions->SetField(ActionColumns[i], row[i]);
        actions->Update();
    }
    db.connection()->insertRows("Azioni", ActionColumns, awkwardActions(2));
    const Rows byRecordSet = db.rows(std::string(ActionsOf) + "1 ORDER BY IdAzione");
    ASSERT_EQ(byRecordSet.size(), 3U);
    expectSameRows(db.rows(std::string(ActionsOf) + "2 ORDER BY IdAzione"), byRecordSet);
    // The columns not given take their defaults, the key its next value.
    expectSameRows(db.rows("SELECT Diritti, bFattura FROM Azioni WHERE IdPra = 2"),
                   {{Value::currency(Currency()), Value::boolean(false)},
                    {Value::currency(Currency()), Value::boolean(false)},
                    {Value::currency(Currency()), Value::boolean(false)}});
    EXPECT_EQ(db.value("SELECT Count(DISTINCT IdAzione) FROM Azioni").asLong(), 6);
}

TEST_F(InsertRows, ColumnNamesInAnyLetterCase)
{
    db.connection()->insertRows("fontetariffe", {"TABELLA", "id", "Fonte", "note"}, sources(1, 2));
    expectSameRows(db.rows(AllSources), sources(1, 2));
}

// The server backend copies InsertBatchRows rows to a statement: a load of
// exactly one batch, one row more, and several batches and a bit.
TEST_F(InsertRows, BatchesMeetWithoutLosingOrDoublingARow)
{
    constexpr std::size_t batch = Connection::InsertBatchRows;
    std::int32_t first = 1;
    Rows expected;
    for (const std::size_t count : {batch, batch + 1, 2 * batch + 3, std::size_t{1}}) {
        const Rows rows = sources(first, count);
        db.connection()->insertRows("FonteTariffe", SourceColumns, rows);
        expected.insert(expected.end(), rows.begin(), rows.end());
        first += static_cast<std::int32_t>(count);
        expectSameRows(db.rows(AllSources), expected);
    }
}

TEST_F(InsertRows, NoRowsWriteNothing)
{
    db.connection()->insertRows("FonteTariffe", SourceColumns, {});
    EXPECT_EQ(db.value("SELECT Count(*) FROM FonteTariffe").asLong(), 0);
}

// Items of a fee table from `first` on, the item `refused` taking the id of
// item 7 instead of its own.
Rows items(std::int32_t first, std::size_t count, std::size_t refused = SIZE_MAX)
{
    Rows rows;
    for (std::size_t i = 0; i < count; ++i) {
        const auto id = i == refused ? 7 : first + static_cast<std::int32_t>(i);
        rows.push_back({Value::longValue(id), Value::text(std::to_string(id))});
    }
    return rows;
}

const std::vector<std::string> ItemColumns = {"Id", "CodiceTariffa"};

// A row refused by the table in the second batch: the rows of the first
// batch, already sent, go too.
TEST_F(InsertRows, ARefusedRowLeavesNoneOfTheRows)
{
    db.insertRow("Onorari2004Euro", {{"Id", Value::longValue(7)}, {"CodiceTariffa", Value::text("7")}});
    const std::size_t count = Connection::InsertBatchRows + 20;
    EXPECT_THROW(db.connection()->insertRows("Onorari2004Euro", ItemColumns,
                                             items(1000, count, Connection::InsertBatchRows + 10)),
                 DataError);
    expectSameRows(db.rows("SELECT Id FROM Onorari2004Euro"), {{Value::longValue(7)}});
    // The connection goes on as usual.
    db.connection()->insertRows("Onorari2004Euro", ItemColumns, items(1000, count));
    EXPECT_EQ(db.value("SELECT Count(*) FROM Onorari2004Euro").asLong(), static_cast<std::int32_t>(count) + 1);
}

TEST_F(InsertRows, InsideATransactionAFailureUndoesItselfAlone)
{
    const auto connection = db.connection();
    {
        TransactionScope transaction(connection);
        connection->insertRows("Onorari2004Euro", ItemColumns, items(1, 10));
        EXPECT_THROW(
            connection->insertRows("Onorari2004Euro", ItemColumns,
                                   items(100, Connection::InsertBatchRows + 5, Connection::InsertBatchRows + 2)),
            DataError);
        connection->insertRows("Onorari2004Euro", ItemColumns, items(11, 1));
        transaction.commit();
    }
    expectSameRows(db.rows("SELECT Id, CodiceTariffa FROM Onorari2004Euro ORDER BY Id"), items(1, 11));
    // Rows written in a transaction that is rolled back do not stay.
    {
        TransactionScope transaction(connection);
        connection->insertRows("Onorari2004Euro", ItemColumns, items(100, Connection::InsertBatchRows + 1));
    }
    expectSameRows(db.rows("SELECT Id, CodiceTariffa FROM Onorari2004Euro ORDER BY Id"), items(1, 11));
}

TEST_F(InsertRows, AValueItsColumnCannotTakeIsRefusedAsBySetField)
{
    Rows rows = sources(1, 3);
    rows[2][1] = Value::text("dodici");
    EXPECT_THROW(db.connection()->insertRows("FonteTariffe", SourceColumns, rows), ValueError);
    EXPECT_EQ(db.value("SELECT Count(*) FROM FonteTariffe").asLong(), 0);
}

TEST_F(InsertRows, UnknownTableOrColumnAndRowsOfTheWrongWidthAreRefused)
{
    const auto connection = db.connection();
    EXPECT_THROW(connection->insertRows("NoSuchTable", SourceColumns, sources(1, 1)), DataError);
    EXPECT_THROW(connection->insertRows("FonteTariffe", {"Tabella", "Idd", "Fonte", "Note"}, sources(1, 1)), DataError);
    Rows rows = sources(1, 3);
    rows[1].pop_back();
    try {
        connection->insertRows("FonteTariffe", SourceColumns, rows);
        FAIL() << "no error";
    } catch (const DataError& e) {
        EXPECT_NE(std::string(e.what()).find("La riga 2 dà 3 valori per 4 colonne"), std::string::npos) << e.what();
    }
    EXPECT_EQ(db.value("SELECT Count(*) FROM FonteTariffe").asLong(), 0);
}

} // namespace
} // namespace avlor
