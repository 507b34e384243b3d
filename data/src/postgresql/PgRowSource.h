#pragma once
// PgRowSource: the rows of one statement on a PostgreSQL connection.
//
// To write rows back, an editable record set must know which table row each
// fetched row is. When the statement is a plain query of one table
// (PgStatementShape.h) and every column it selects is a column of that
// table, the statement is run with the row's identity put in front of its
// columns, and writes go to that table by that identity, column by column
// under each field's own name in the table (so an alias still writes the
// right column):
//   - the primary key, for the tables that have one
//     ("SELECT Azioni.idazione, NOrdine From Azioni WHERE ...");
//   - for the tables without a key, the row's physical place (ctid)
//     together with the row's whole content as read: a write reaches the row
//     only if nobody changed it since, and a place reused by another row
//     never matches.
// The record set keeps, for each row, a token that stays the same while the
// identity changes (a write to a key column, a row moved by an update);
// the token is the identity of the row when it was first seen. Any other
// statement gives rows that can be read but not written.
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "RowSource.h"
#include "postgresql/PgConnection.h"

namespace avlor {

class PgRowSource final : public RowSource {
public:
    // Runs `sql` (`source` through the dialect), or with `deferred` only
    // describes it, until the rows are first needed. With `editable`, tries
    // the form with the rows' identity first. Raises DataError, naming
    // `source`, when the statement fails or is not a query.
    PgRowSource(std::shared_ptr<PgConnection> connection, std::string source, const std::string& sql, bool editable,
                bool deferred);

    [[nodiscard]] const std::vector<std::string>& fieldNames() const override { return names_; }
    [[nodiscard]] const std::string& statement() const override { return source_; }
    [[nodiscard]] std::vector<FetchedRow> fetch() override;
    [[nodiscard]] std::string whyNotUpdatable() const override { return whyNotUpdatable_; }
    [[nodiscard]] Value normalise(std::size_t field, const Value& value) const override;
    [[nodiscard]] FetchedRow insert(const FieldChanges& changes) override;
    void update(const std::string& key, const FieldChanges& changes) override;
    void remove(const std::string& key) override;

private:
    // The identity of a table row: the key's values, or ctid and content.
    using Identity = std::vector<std::string>;

    [[nodiscard]] bool tryKeyedForm(const std::string& sql, bool deferred);
    // Reads names, kinds and origins of the result's columns from column
    // `first` on. Returns false when they are not all columns of table_.
    bool readShape(const PGresult* result, int first);
    [[nodiscard]] std::vector<Value> readRow(const PGresult* result, int row, int first) const;
    [[nodiscard]] Identity identityOf(const PGresult* result, int row) const;
    [[nodiscard]] std::string tokenFor(const Identity& identity);
    [[nodiscard]] const Identity& identityFor(const std::string& token) const;
    void moveIdentity(const std::string& token, Identity identity);
    // The identity columns as a query or RETURNING list names them.
    [[nodiscard]] std::vector<std::string> identityColumns(const std::string& qualifier) const;
    // " WHERE ..." matching `identity`, its parameters numbered from `first`.
    [[nodiscard]] std::string identityCondition(const Identity& identity, std::size_t first,
                                                PgParameters& parameters) const;
    [[nodiscard]] std::string returningList() const;
    [[nodiscard]] bool keyless() const { return table_->key.empty(); }

    std::shared_ptr<PgConnection> connection_;
    std::string source_; // as the application wrote it
    std::string sql_; // the statement run (with the identity when keyed)
    int identityWidth_ = 0; // leading columns that hold the identity
    std::vector<std::string> names_;
    std::vector<PgKind> kinds_;
    std::vector<std::string> origins_; // the table column of each field
    std::shared_ptr<const PgTable> table_;
    std::string whyNotUpdatable_;
    PgResult opened_; // the rows read when the record set was opened
    std::map<std::string, Identity> identities_; // token -> identity now
    std::map<Identity, std::string> tokens_; // identity now -> token
};

} // namespace avlor
