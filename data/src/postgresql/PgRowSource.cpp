#include "postgresql/PgRowSource.h"

#include "avlor/data/DataError.h"
#include "avlor/data/Dialect.h"
#include "postgresql/PgStatementShape.h"
#include "postgresql/SchemaSpelling.h"

namespace avlor {

namespace {

// The alias the layer's own writes give the table.
constexpr const char* RowAlias = "avlor_riga";

std::string parameter(std::size_t number) { return "$" + std::to_string(number); }

std::string qualified(const std::string& qualifier, const std::string& column)
{
    return qualifier + "." + Dialect::quoteIdentifier(column);
}

// The field name as the application sees it: a column of a schema table in
// the schema's spelling, an alias or an expression as the statement writes
// it, anything else as the server reports it.
std::string fieldName(const std::string& reported, const std::string& table, const std::string& statementText)
{
    if (!table.empty() && schemaHasColumn(table, reported)) {
        return spelledColumn(table, reported);
    }
    if (const auto written = spellingInStatement(statementText, reported)) {
        return *written;
    }
    return reported;
}

std::string text(const PGresult* result, int row, int column)
{
    return std::string(PQgetvalue(result, row, column), static_cast<std::size_t>(PQgetlength(result, row, column)));
}

} // namespace

PgRowSource::PgRowSource(std::shared_ptr<PgConnection> connection, std::string source, const std::string& sql,
                         bool editable, bool deferred)
    : connection_(std::move(connection)), source_(std::move(source))
{
    requirePgQuery(sql, source_);
    if (editable && tryKeyedForm(sql, deferred)) {
        return;
    }
    sql_ = sql;
    identityWidth_ = 0;
    PgResult result = deferred ? connection_->describe(sql_, source_) : connection_->query(sql_, {}, source_);
    if (PQnfields(result.get()) == 0) {
        throw DataError("Non è un'interrogazione: si può aprire solo un'istruzione SELECT o il nome di una tabella",
                        source_);
    }
    readShape(result.get(), 0);
    if (!deferred) {
        opened_ = std::move(result);
    }
    if (editable && whyNotUpdatable_.empty()) {
        whyNotUpdatable_ = "le sue colonne non vengono tutte da una sola tabella";
    }
}

bool PgRowSource::tryKeyedForm(const std::string& sql, bool deferred)
{
    const auto shape = singleTableQuery(sql, whyNotUpdatable_);
    if (!shape) {
        return false;
    }
    table_ = connection_->findTable(shape->table);
    if (!table_ || !table_->writable) {
        table_.reset();
        whyNotUpdatable_ = "non legge una tabella";
        return false;
    }
    const std::vector<std::string> identity = identityColumns(shape->qualifier);
    const std::string keyed = withLeadingColumns(sql, *shape, identity);
    PgResult result;
    try {
        result = deferred ? connection_->describe(keyed, source_) : connection_->query(keyed, {}, source_);
    } catch (const DataError&) {
        // Inside a transaction the failure has ended it: report it as it
        // is. Otherwise the statement runs again as written, so that its
        // own error (or its rows) come as the application expects.
        if (connection_->inTransaction()) {
            throw;
        }
        table_.reset();
        whyNotUpdatable_ = "le sue righe non si possono distinguere l'una dall'altra";
        return false;
    }
    sql_ = keyed;
    identityWidth_ = static_cast<int>(identity.size());
    if (readShape(result.get(), identityWidth_)) {
        whyNotUpdatable_.clear();
    } else {
        whyNotUpdatable_ = "le sue colonne non vengono tutte da una sola tabella";
    }
    if (!deferred) {
        opened_ = std::move(result);
    }
    return true;
}

bool PgRowSource::readShape(const PGresult* result, int first)
{
    const int count = PQnfields(result);
    names_.clear();
    kinds_.clear();
    origins_.clear();
    bool oneTable = table_ != nullptr;
    for (int column = first; column < count; ++column) {
        const std::uint32_t oid = PQftable(result, column);
        const int attribute = PQftablecol(result, column);
        std::string table;
        std::string origin;
        if (oid != InvalidOid && attribute > 0) {
            if (table_ && oid == table_->oid) {
                table = table_->name;
                const auto found = table_->columns.find(attribute);
                origin = found != table_->columns.end() ? found->second : std::string();
            } else {
                table = connection_->tableNameOf(oid);
            }
        }
        oneTable = oneTable && !origin.empty();
        const char* reported = PQfname(result, column);
        names_.push_back(fieldName(reported != nullptr ? reported : "", table, source_));
        kinds_.push_back(pgKind(PQftype(result, column), PQfmod(result, column)));
        origins_.push_back(origin);
    }
    return oneTable;
}

std::vector<Value> PgRowSource::readRow(const PGresult* result, int row, int first) const
{
    if (PQnfields(result) != first + static_cast<int>(names_.size())) {
        throw DataError("Le colonne dell'istruzione sono cambiate da quando è stata aperta", source_);
    }
    std::vector<Value> values;
    values.reserve(names_.size());
    try {
        for (std::size_t i = 0; i < names_.size(); ++i) {
            const int column = first + static_cast<int>(i);
            values.push_back(PQgetisnull(result, row, column) != 0
                                 ? Value::null()
                                 : readPgValue(kinds_[i], text(result, row, column), names_[i]));
        }
    } catch (const DataError& error) {
        throw DataError(error.what(), source_);
    }
    return values;
}

PgRowSource::Identity PgRowSource::identityOf(const PGresult* result, int row) const
{
    Identity identity;
    for (int column = 0; column < identityWidth_; ++column) {
        identity.push_back(text(result, row, column));
    }
    return identity;
}

std::string PgRowSource::tokenFor(const Identity& identity)
{
    if (const auto known = tokens_.find(identity); known != tokens_.end()) {
        return known->second;
    }
    std::string token;
    for (const std::string& part : identity) {
        token += token.empty() ? "" : "\x1f";
        token += part;
    }
    // A row that took the identity another row had (a key written back)
    // still gets a token of its own.
    const std::string base = token;
    for (int n = 2; identities_.count(token) != 0; ++n) {
        token = base + "#" + std::to_string(n);
    }
    identities_.emplace(token, identity);
    tokens_.emplace(identity, token);
    return token;
}

const PgRowSource::Identity& PgRowSource::identityFor(const std::string& token) const
{
    const auto found = identities_.find(token);
    if (found == identities_.end()) {
        throw DataError("La riga non appartiene a questo recordset", source_);
    }
    return found->second;
}

void PgRowSource::moveIdentity(const std::string& token, Identity identity)
{
    tokens_.erase(identities_.at(token));
    tokens_[identity] = token;
    identities_[token] = std::move(identity);
}

std::vector<FetchedRow> PgRowSource::fetch()
{
    PgResult result = opened_ ? std::move(opened_) : connection_->query(sql_, {}, source_);
    const bool updatable = whyNotUpdatable_.empty();
    std::vector<FetchedRow> rows;
    const int count = PQntuples(result.get());
    rows.reserve(static_cast<std::size_t>(count));
    for (int row = 0; row < count; ++row) {
        FetchedRow fetched;
        if (updatable) {
            fetched.key = tokenFor(identityOf(result.get(), row));
        }
        fetched.values = readRow(result.get(), row, identityWidth_);
        rows.push_back(std::move(fetched));
    }
    return rows;
}

Value PgRowSource::normalise(std::size_t field, const Value& value) const
{
    return normaliseForPg(kinds_.at(field), value);
}

std::vector<std::string> PgRowSource::identityColumns(const std::string& qualifier) const
{
    if (keyless()) {
        return {qualifier + ".ctid", "ROW(" + qualifier + ".*)::text"};
    }
    std::vector<std::string> columns;
    for (const std::string& key : table_->key) {
        columns.push_back(qualified(qualifier, key));
    }
    return columns;
}

std::string PgRowSource::identityCondition(const Identity& identity, std::size_t first, PgParameters& parameters) const
{
    std::string condition = " WHERE ";
    if (keyless()) {
        condition += std::string(RowAlias) + ".ctid = " + parameter(first) + "::tid AND ROW(" + RowAlias +
            ".*)::text = " + parameter(first + 1);
    } else {
        for (std::size_t i = 0; i < table_->key.size(); ++i) {
            condition += i == 0 ? "" : " AND ";
            condition += qualified(RowAlias, table_->key[i]) + " = " + parameter(first + i);
        }
    }
    parameters.insert(parameters.end(), identity.begin(), identity.end());
    return condition;
}

std::string PgRowSource::returningList() const
{
    std::string list = " RETURNING ";
    for (const std::string& column : identityColumns(RowAlias)) {
        list += column;
        list += ", ";
    }
    for (std::size_t i = 0; i < origins_.size(); ++i) {
        list += i == 0 ? "" : ", ";
        list += qualified(RowAlias, origins_[i]);
    }
    return list;
}

FetchedRow PgRowSource::insert(const FieldChanges& changes)
{
    std::string sql = "INSERT INTO " + table_->reference + " AS " + RowAlias;
    PgParameters parameters;
    if (changes.empty()) {
        sql += " DEFAULT VALUES";
    } else {
        std::string columns;
        std::string values;
        for (std::size_t i = 0; i < changes.size(); ++i) {
            const auto& [field, value] = changes[i];
            columns += i == 0 ? "" : ", ";
            columns += Dialect::quoteIdentifier(origins_.at(field));
            values += i == 0 ? "" : ", ";
            values += parameter(i + 1);
            parameters.push_back(pgParameter(kinds_[field], value));
        }
        sql += " (" + columns + ") VALUES (" + values + ")";
    }
    sql += returningList();
    const PgResult result = connection_->write(sql, parameters, source_);
    if (PQntuples(result.get()) != 1) {
        throw DataError("La riga appena scritta non si può rileggere", source_);
    }
    return FetchedRow{tokenFor(identityOf(result.get(), 0)), readRow(result.get(), 0, identityWidth_)};
}

void PgRowSource::update(const std::string& key, const FieldChanges& changes)
{
    if (changes.empty()) {
        return;
    }
    const Identity& identity = identityFor(key);
    std::string sql = "UPDATE " + table_->reference + " AS " + RowAlias + " SET ";
    PgParameters parameters;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const auto& [field, value] = changes[i];
        sql += i == 0 ? "" : ", ";
        sql += Dialect::quoteIdentifier(origins_.at(field)) + " = " + parameter(i + 1);
        parameters.push_back(pgParameter(kinds_[field], value));
    }
    sql += identityCondition(identity, changes.size() + 1, parameters);
    sql += " RETURNING ";
    const std::vector<std::string> columns = identityColumns(RowAlias);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        sql += i == 0 ? "" : ", ";
        sql += columns[i];
    }
    const PgResult result = connection_->write(sql, parameters, source_);
    if (PQntuples(result.get()) == 0) {
        throw DataError("La riga da aggiornare non è più nella tabella", source_);
    }
    moveIdentity(key, identityOf(result.get(), 0));
}

void PgRowSource::remove(const std::string& key)
{
    PgParameters parameters;
    std::string sql = "DELETE FROM " + table_->reference + " AS " + RowAlias;
    sql += identityCondition(identityFor(key), 1, parameters);
    const PgResult result = connection_->write(sql, parameters, source_);
    if (std::string(PQcmdTuples(result.get())) == "0") {
        throw DataError("La riga da cancellare non è più nella tabella", source_);
    }
}

} // namespace avlor
