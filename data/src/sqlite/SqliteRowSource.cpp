#include "sqlite/SqliteRowSource.h"

#include <optional>

#include "SqlLexer.h"
#include "avlor/data/DataError.h"
#include "avlor/data/Dialect.h"
#include "sqlite/SqliteConnection.h"

namespace avlor {

namespace {

// `sql` with the row id added in front of its columns; or nothing, with the
// reason, when its rows cannot be tied to table rows.
std::optional<std::string> rowIdForm(const std::string& sql, std::string& reason)
{
    const std::vector<SqlToken> tokens = lexSql(sql);
    const auto next = [&](std::size_t i) {
        while (i < tokens.size() && isFiller(tokens[i])) {
            ++i;
        }
        return i;
    };
    const std::size_t select = next(0);
    if (select == tokens.size() || !isKeyword(tokens[select], "SELECT")) {
        reason = "non è una semplice SELECT";
        return std::nullopt;
    }
    std::size_t insertAfter = select;
    const std::size_t quantifier = next(select + 1);
    if (quantifier < tokens.size() && isKeyword(tokens[quantifier], "DISTINCT")) {
        reason = "seleziona righe distinte";
        return std::nullopt;
    }
    if (quantifier < tokens.size() && isKeyword(tokens[quantifier], "ALL")) {
        insertAfter = quantifier;
    }
    for (std::size_t i = quantifier; i < tokens.size(); ++i) {
        if (tokens[i].depth != 0) {
            continue;
        }
        if (isKeyword(tokens[i], "GROUP")) {
            reason = "raggruppa le righe";
            return std::nullopt;
        }
        if (isKeyword(tokens[i], "UNION") || isKeyword(tokens[i], "INTERSECT") || isKeyword(tokens[i], "EXCEPT")) {
            reason = "combina più interrogazioni";
            return std::nullopt;
        }
    }
    const std::string_view keyword = tokens[insertAfter].text;
    const auto offset = static_cast<std::size_t>(keyword.data() - sql.data()) + keyword.size();
    std::string keyed = sql.substr(0, offset);
    keyed += " rowid,";
    keyed += sql.substr(offset);
    return keyed;
}

void requireQuery(sqlite3_stmt* statement, const std::string& sql)
{
    if (sqlite3_column_count(statement) == 0 || sqlite3_stmt_readonly(statement) == 0) {
        throw DataError("Non è un'interrogazione: si può aprire solo un'istruzione SELECT o il nome di una tabella",
                        sql);
    }
}

std::string text(const char* maybe) { return maybe == nullptr ? std::string() : std::string(maybe); }

// The numbered parameter "?n".
std::string parameter(std::size_t number)
{
    std::string name = "?";
    name += std::to_string(number);
    return name;
}

} // namespace

SqliteRowSource::SqliteRowSource(std::shared_ptr<SqliteConnection> connection, std::string source,
                                 const std::string& sql, bool editable)
    : connection_(std::move(connection)), source_(std::move(source))
{
    if (editable) {
        if (const auto keyed = rowIdForm(sql, whyNotUpdatable_); keyed && tryRowIdForm(*keyed)) {
            return;
        }
    }
    sql_ = sql;
    keyed_ = false;
    table_.clear();
    const SqliteStatementCache::Lease lease = connection_->prepare(sql_, source_);
    requireQuery(lease.get(), source_);
    readShape(lease.get(), 0);
    if (editable && whyNotUpdatable_.empty()) {
        whyNotUpdatable_ = "le sue colonne non vengono tutte da una sola tabella";
    }
}

bool SqliteRowSource::tryRowIdForm(const std::string& sql)
{
    try {
        const SqliteStatementCache::Lease lease = connection_->prepare(sql);
        requireQuery(lease.get(), sql);
        table_ = text(sqlite3_column_table_name(lease.get(), 0));
        if (table_.empty() || !readShape(lease.get(), 1)) {
            whyNotUpdatable_ = "le sue colonne non vengono tutte da una sola tabella";
            return false;
        }
    } catch (const DataError& error) {
        whyNotUpdatable_ =
            std::string("le sue righe non si possono distinguere l'una dall'altra (") + error.what() + ")";
        return false;
    }
    sql_ = sql;
    keyed_ = true;
    whyNotUpdatable_.clear();
    return true;
}

bool SqliteRowSource::readShape(sqlite3_stmt* statement, int first)
{
    const int count = sqlite3_column_count(statement);
    names_.clear();
    kinds_.clear();
    origins_.clear();
    bool oneTable = true;
    for (int column = first; column < count; ++column) {
        names_.push_back(text(sqlite3_column_name(statement, column)));
        kinds_.push_back(sqliteColumnKind(sqlite3_column_decltype(statement, column)));
        origins_.push_back(text(sqlite3_column_origin_name(statement, column)));
        oneTable = oneTable && !table_.empty() && text(sqlite3_column_table_name(statement, column)) == table_;
    }
    return oneTable;
}

std::vector<Value> SqliteRowSource::readRow(sqlite3_stmt* statement, int first) const
{
    if (sqlite3_column_count(statement) != first + static_cast<int>(names_.size())) {
        throw DataError("Le colonne dell'istruzione sono cambiate da quando è stata aperta", source_);
    }
    std::vector<Value> values;
    values.reserve(names_.size());
    try {
        for (std::size_t i = 0; i < names_.size(); ++i) {
            values.push_back(readSqliteColumn(statement, first + static_cast<int>(i), kinds_[i], names_[i]));
        }
    } catch (const DataError& error) {
        throw DataError(error.what(), source_);
    }
    return values;
}

std::vector<FetchedRow> SqliteRowSource::fetch()
{
    const SqliteStatementCache::Lease lease = connection_->prepare(sql_, source_);
    std::vector<FetchedRow> rows;
    while (connection_->step(lease.get(), source_)) {
        FetchedRow row;
        if (keyed_) {
            row.key = std::to_string(sqlite3_column_int64(lease.get(), 0));
        }
        row.values = readRow(lease.get(), keyed_ ? 1 : 0);
        rows.push_back(std::move(row));
    }
    return rows;
}

Value SqliteRowSource::normalise(std::size_t field, const Value& value) const
{
    return normaliseForSqlite(kinds_.at(field), value);
}

std::string SqliteRowSource::quotedTable() const { return Dialect::quoteIdentifier(table_); }

std::vector<Value> SqliteRowSource::reread(sqlite3_int64 rowId)
{
    std::string sql = "SELECT ";
    for (std::size_t i = 0; i < origins_.size(); ++i) {
        sql += i == 0 ? "" : ", ";
        sql += Dialect::quoteIdentifier(origins_[i]);
    }
    sql += " FROM ";
    sql += quotedTable();
    sql += " WHERE rowid = ?1";
    const SqliteStatementCache::Lease lease = connection_->prepare(sql);
    sqlite3_bind_int64(lease.get(), 1, rowId);
    if (!connection_->step(lease.get(), sql)) {
        throw DataError("La riga appena scritta non si può rileggere", sql);
    }
    return readRow(lease.get(), 0);
}

FetchedRow SqliteRowSource::insert(const FieldChanges& changes)
{
    std::string sql = "INSERT INTO ";
    sql += quotedTable();
    if (changes.empty()) {
        sql += " DEFAULT VALUES";
    } else {
        std::string columns;
        std::string parameters;
        for (std::size_t i = 0; i < changes.size(); ++i) {
            columns += i == 0 ? "" : ", ";
            columns += Dialect::quoteIdentifier(origins_.at(changes[i].first));
            parameters += i == 0 ? "" : ", ";
            parameters += parameter(i + 1);
        }
        sql += " (";
        sql += columns;
        sql += ") VALUES (";
        sql += parameters;
        sql += ")";
    }
    {
        const SqliteStatementCache::Lease lease = connection_->prepare(sql);
        for (std::size_t i = 0; i < changes.size(); ++i) {
            const auto& [field, value] = changes[i];
            if (const int rc = bindSqliteValue(lease.get(), static_cast<int>(i + 1), kinds_[field], value);
                rc != SQLITE_OK) {
                raiseSqliteError(connection_->handle(), rc, sql);
            }
        }
        connection_->step(lease.get(), sql);
    }
    const sqlite3_int64 rowId = sqlite3_last_insert_rowid(connection_->handle());
    return FetchedRow{std::to_string(rowId), reread(rowId)};
}

void SqliteRowSource::update(const std::string& key, const FieldChanges& changes)
{
    if (changes.empty()) {
        return;
    }
    std::string sql = "UPDATE ";
    sql += quotedTable();
    sql += " SET ";
    for (std::size_t i = 0; i < changes.size(); ++i) {
        sql += i == 0 ? "" : ", ";
        sql += Dialect::quoteIdentifier(origins_.at(changes[i].first));
        sql += " = ";
        sql += parameter(i + 1);
    }
    sql += " WHERE rowid = ";
    sql += parameter(changes.size() + 1);
    const SqliteStatementCache::Lease lease = connection_->prepare(sql);
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const auto& [field, value] = changes[i];
        if (const int rc = bindSqliteValue(lease.get(), static_cast<int>(i + 1), kinds_[field], value);
            rc != SQLITE_OK) {
            raiseSqliteError(connection_->handle(), rc, sql);
        }
    }
    sqlite3_bind_int64(lease.get(), static_cast<int>(changes.size() + 1), std::stoll(key));
    connection_->step(lease.get(), sql);
    if (sqlite3_changes64(connection_->handle()) == 0) {
        throw DataError("La riga da aggiornare non è più nella tabella", source_);
    }
}

void SqliteRowSource::remove(const std::string& key)
{
    std::string sql = "DELETE FROM ";
    sql += quotedTable();
    sql += " WHERE rowid = ?1";
    const SqliteStatementCache::Lease lease = connection_->prepare(sql);
    sqlite3_bind_int64(lease.get(), 1, std::stoll(key));
    connection_->step(lease.get(), sql);
    if (sqlite3_changes64(connection_->handle()) == 0) {
        throw DataError("La riga da cancellare non è più nella tabella", source_);
    }
}

} // namespace avlor
