// Connection::insertRows on SQLite: there is no server to reach, so one
// prepared INSERT is bound and stepped once per row; what makes a large load
// fast here is that it commits once, not once per row.
#include "avlor/data/DataError.h"
#include "avlor/data/Dialect.h"
#include "sqlite/SqliteConnection.h"
#include "sqlite/SqliteValues.h"

namespace avlor {

namespace {

std::string columnList(const std::vector<std::string>& columns)
{
    std::string list;
    for (const std::string& column : columns) {
        list += list.empty() ? "" : ", ";
        list += Dialect::quoteIdentifier(column);
    }
    return list;
}

} // namespace

void SqliteConnection::insertRows(const std::string& table, const std::vector<std::string>& columns,
                                  const std::vector<std::vector<Value>>& rows)
{
    if (rows.empty()) {
        return;
    }
    std::string sql = "INSERT INTO " + Dialect::quoteIdentifier(table) + " (" + columnList(columns) + ") VALUES (";
    for (std::size_t i = 0; i < columns.size(); ++i) {
        sql += (i == 0 ? "?" : ", ?") + std::to_string(i + 1);
    }
    sql += ")";
    if (columns.empty()) {
        throw DataError("Nessuna colonna da scrivere", sql);
    }
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (rows[row].size() != columns.size()) {
            throw DataError("La riga " + std::to_string(row + 1) + " dà " + std::to_string(rows[row].size()) +
                                " valori per " + std::to_string(columns.size()) + " colonne",
                            sql);
        }
    }
    // The declared types decide how values are stored, as for a record set.
    std::vector<SqliteColumnKind> kinds;
    {
        const SqliteStatementCache::Lease probe =
            prepare("SELECT " + columnList(columns) + " FROM " + Dialect::quoteIdentifier(table), sql);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            kinds.push_back(sqliteColumnKind(sqlite3_column_decltype(probe.get(), static_cast<int>(i))));
        }
    }
    execute(inTransaction_ ? "SAVEPOINT avlor_rows" : "BEGIN IMMEDIATE");
    try {
        {
            const SqliteStatementCache::Lease insert = prepare(sql);
            for (const std::vector<Value>& row : rows) {
                for (std::size_t i = 0; i < columns.size(); ++i) {
                    const int rc = bindSqliteValue(insert.get(), static_cast<int>(i + 1), kinds[i],
                                                   normaliseForSqlite(kinds[i], row[i]));
                    if (rc != SQLITE_OK) {
                        raiseSqliteError(db_.get(), rc, sql);
                    }
                }
                step(insert.get(), sql);
                sqlite3_reset(insert.get());
                sqlite3_clear_bindings(insert.get());
            }
        }
        execute(inTransaction_ ? "RELEASE avlor_rows" : "COMMIT");
    } catch (...) {
        sqlite3_exec(db_.get(), inTransaction_ ? "ROLLBACK TO avlor_rows; RELEASE avlor_rows" : "ROLLBACK", nullptr,
                     nullptr, nullptr);
        throw;
    }
}

} // namespace avlor
