#pragma once
// SqliteRowSource: the rows of one statement on a SQLite connection.
//
// To write rows back, an editable record set needs to know which table row
// each fetched row is. When the statement is a plain SELECT (no DISTINCT,
// GROUP BY or compound) whose columns all come from one table, the
// statement is run with that table's row id added in front of its columns
// ("SELECT rowid, NOrdine From Azioni WHERE ..."), the row id is kept with
// each row, and writes go to that table by row id, column by column under
// each field's own name in the table (the column's origin, so an alias
// still writes the right column). Any other statement gives rows that can
// be read but not written.
#include <memory>
#include <string>
#include <vector>

#include "RowSource.h"
#include "sqlite/SqliteValues.h"

namespace avlor {

class SqliteConnection;

class SqliteRowSource final : public RowSource {
public:
    // Prepares `sql` (`source` through the dialect) and reads the shape of
    // its rows. With `editable`, tries the row-id form first. Raises
    // DataError, naming `source`, when the statement does not prepare or is
    // not a query.
    SqliteRowSource(std::shared_ptr<SqliteConnection> connection, std::string source, const std::string& sql,
                    bool editable);

    [[nodiscard]] const std::vector<std::string>& fieldNames() const override { return names_; }
    [[nodiscard]] const std::string& statement() const override { return source_; }
    [[nodiscard]] std::vector<FetchedRow> fetch() override;
    [[nodiscard]] std::string whyNotUpdatable() const override { return whyNotUpdatable_; }
    [[nodiscard]] Value normalise(std::size_t field, const Value& value) const override;
    [[nodiscard]] FetchedRow insert(const FieldChanges& changes) override;
    void update(const std::string& key, const FieldChanges& changes) override;
    void remove(const std::string& key) override;

private:
    // Reads names, kinds and origins of the prepared statement's columns,
    // from column `first` on. Returns false when they do not all come from
    // one table.
    bool readShape(sqlite3_stmt* statement, int first);
    [[nodiscard]] bool tryRowIdForm(const std::string& sql);
    [[nodiscard]] std::vector<Value> readRow(sqlite3_stmt* statement, int first) const;
    [[nodiscard]] std::vector<Value> reread(sqlite3_int64 rowId);
    [[nodiscard]] std::string quotedTable() const;

    std::shared_ptr<SqliteConnection> connection_;
    std::string source_; // as the application wrote it
    std::string sql_; // the statement run (with the row id when keyed)
    bool keyed_ = false; // column 0 is the row id
    std::vector<std::string> names_;
    std::vector<SqliteColumnKind> kinds_;
    std::vector<std::string> origins_;
    std::string table_;
    std::string whyNotUpdatable_;
};

} // namespace avlor
