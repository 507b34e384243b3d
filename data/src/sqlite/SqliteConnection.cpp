#include "sqlite/SqliteConnection.h"

#include "FaultPoint.h"

#include "BufferedRecordSet.h"
#include "SchemaScripts.h"
#include "avlor/data/DataError.h"
#include "avlor/data/SqliteDialect.h"
#include "sqlite/SqliteDatabase.h"
#include "sqlite/SqliteRowSource.h"
#include "sqlite/SqliteValues.h"

namespace avlor {

std::shared_ptr<SqliteConnection> SqliteConnection::connect(const std::string& location)
{
    // A file this user may only read, with no program writing it, is read as
    // an immutable file: reading it then leaves no -wal or -shm file beside
    // it, and works in a folder this user cannot write either. Every other
    // file is opened with SQLite's locks and waits for a writer (the busy
    // timeout below); see readAsImmutable for why.
    std::string opened = location;
    if (const SqliteLocation where = sqliteLocation(location); !where.inMemory && readAsImmutable(where.file)) {
        opened = immutableSqliteUri(where.file);
    }
    sqlite3* raw = nullptr;
    // Never SQLITE_OPEN_CREATE: a mistyped location must fail, not leave an
    // empty database behind. New databases are made by
    // createPracticeDatabase.
    const int rc =
        sqlite3_open_v2(opened.c_str(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI | SQLITE_OPEN_EXRESCODE, nullptr);
    std::unique_ptr<sqlite3, Closer> db(raw);
    if (rc != SQLITE_OK) {
        raiseSqliteError(db.get(), rc, location);
    }
    std::shared_ptr<SqliteConnection> connection(new SqliteConnection(location, std::move(db)));
    sqlite3_busy_timeout(connection->handle(), BusyTimeoutMs);
    // Checked every few thousand virtual-machine steps: cheap, and fine
    // enough to stop a runaway statement within a fraction of a second.
    sqlite3_progress_handler(connection->handle(), 4096, &SqliteConnection::pastDeadline, connection.get());
    // A file that may only be read (an archive copy) is opened as it is.
    if (sqlite3_db_readonly(connection->handle(), "main") != 1) {
        connection->execute("PRAGMA journal_mode = WAL");
    }
    connection->execute("PRAGMA synchronous = FULL");
    return connection;
}

SqliteConnection::SqliteConnection(std::string location, std::unique_ptr<sqlite3, Closer> db)
    : location_(std::move(location)), db_(std::move(db))
{
}

SqliteConnection::~SqliteConnection() { statements_.clear(); }

const Dialect& SqliteConnection::dialect() const { return SqliteDialect::instance(); }

SqliteStatementCache::Lease SqliteConnection::prepare(const std::string& sql, const std::string& reportAs)
{
    return statements_.acquire(db_.get(), sql, reportAs);
}

int SqliteConnection::pastDeadline(void* connection) noexcept
{
    return std::chrono::steady_clock::now() > static_cast<SqliteConnection*>(connection)->deadline_ ? 1 : 0;
}

bool SqliteConnection::step(sqlite3_stmt* statement, const std::string& reportAs)
{
    startClock();
    const int rc = sqlite3_step(statement);
    if (rc == SQLITE_ROW) {
        return true;
    }
    if (rc == SQLITE_DONE) {
        return false;
    }
    if (rc == SQLITE_INTERRUPT) {
        throw DataError("L'istruzione ha superato il tempo massimo di " + timeLimitText(timeLimit_) +
                            " ed è stata fermata",
                        reportAs, std::to_string(rc));
    }
    raiseSqliteError(db_.get(), rc, reportAs);
}

void SqliteConnection::execute(const std::string& sql, const std::string& reportAs)
{
    char* message = nullptr;
    startClock();
    const int rc = sqlite3_exec(db_.get(), sql.c_str(), nullptr, nullptr, &message);
    if (rc != SQLITE_OK) {
        if (rc == SQLITE_INTERRUPT) {
            sqlite3_free(message);
            throw DataError("L'istruzione ha superato il tempo massimo di " + timeLimitText(timeLimit_) +
                                " ed è stata fermata",
                            reportAs.empty() ? sql : reportAs, std::to_string(rc));
        }
        if (rc == SQLITE_BUSY) {
            sqlite3_free(message);
            raiseSqliteError(db_.get(), rc, reportAs.empty() ? sql : reportAs);
        }
        const std::string text = message != nullptr ? message : sqlite3_errstr(rc);
        sqlite3_free(message);
        throw DataError(text, reportAs.empty() ? sql : reportAs, std::to_string(rc));
    }
}

std::shared_ptr<RecordSet> SqliteConnection::open(const std::string& source, bool editable)
{
    databaseCall("open");
    const bool wholeTable = Dialect::isBareTableName(source);
    auto rows = std::make_unique<SqliteRowSource>(shared_from_this(), source, dialect().translate(source), editable);
    // A whole table opened to add rows is read only if its rows are needed.
    const auto fetch = editable && wholeTable ? BufferedRecordSet::Fetch::WhenNeeded : BufferedRecordSet::Fetch::Now;
    return std::make_shared<BufferedRecordSet>(
        std::move(rows), editable ? BufferedRecordSet::Mode::Editable : BufferedRecordSet::Mode::ReadOnly, fetch);
}

Value SqliteConnection::singleValue(const std::string& statement)
{
    databaseCall("value");
    const std::string sql = dialect().translate(statement);
    const SqliteStatementCache::Lease lease = prepare(sql, statement);
    if (sqlite3_column_count(lease.get()) == 0 || sqlite3_stmt_readonly(lease.get()) == 0) {
        throw DataError("Non è un'interrogazione: solo un'istruzione SELECT dà un valore", statement);
    }
    if (!step(lease.get(), statement)) {
        return Value();
    }
    const char* name = sqlite3_column_name(lease.get(), 0);
    try {
        return readSqliteColumn(lease.get(), 0, sqliteColumnKind(sqlite3_column_decltype(lease.get(), 0)),
                                name != nullptr ? name : "");
    } catch (const DataError& error) {
        throw DataError(error.what(), statement);
    }
}

void SqliteConnection::executeScript(const std::string& script)
{
    const std::vector<std::string> statements = Dialect::splitScript(script);
    // Inside an open transaction the script is a savepoint of it, so that a
    // failing script undoes itself and leaves the transaction to its owner.
    execute(inTransaction_ ? "SAVEPOINT avlor_script" : "BEGIN IMMEDIATE");
    try {
        for (const std::string& statement : statements) {
            const std::string sql = dialect().translate(statement);
            const SqliteStatementCache::StatementPtr prepared = prepareSqliteStatement(db_.get(), sql, 0, statement);
            while (step(prepared.get(), statement)) { }
        }
        execute(inTransaction_ ? "RELEASE avlor_script" : "COMMIT");
    } catch (...) {
        sqlite3_exec(db_.get(), inTransaction_ ? "ROLLBACK TO avlor_script; RELEASE avlor_script" : "ROLLBACK", nullptr,
                     nullptr, nullptr);
        statements_.clear();
        throw;
    }
    // The script may have changed tables that cached statements describe.
    statements_.clear();
}

void SqliteConnection::beginTransaction()
{
    if (inTransaction_) {
        throw DataError("Su questa connessione c'è già una transazione aperta", location_);
    }
    databaseCall("begin");
    execute("BEGIN IMMEDIATE");
    inTransaction_ = true;
}

void SqliteConnection::commitTransaction()
{
    if (!inTransaction_) {
        throw DataError("Su questa connessione non c'è una transazione aperta", location_);
    }
    inTransaction_ = false;
    try {
        databaseCall("commit");
        execute("COMMIT");
    } catch (...) {
        // A failed COMMIT leaves the transaction open (or already rolled
        // back by SQLite); ROLLBACK ends it either way.
        sqlite3_exec(db_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

void SqliteConnection::lockForTransaction(std::int32_t /*space*/, std::int32_t /*key*/)
{
    if (!inTransaction_) {
        throw DataError("Un blocco si prende dentro una transazione, e su questa connessione non ce n'è una aperta",
                        location_);
    }
    databaseCall("lock");
    // BEGIN IMMEDIATE took the database's one write lock already.
}

void SqliteConnection::rollbackTransaction() noexcept
{
    if (!inTransaction_) {
        return;
    }
    inTransaction_ = false;
    // Its own failure (SQLite already rolled back after an error) is of no
    // interest: either way no transaction is left.
    sqlite3_exec(db_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

std::vector<std::string> SqliteConnection::tableNames()
{
    const std::string sql =
        "SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY name";
    const SqliteStatementCache::Lease lease = prepare(sql);
    std::vector<std::string> names;
    while (step(lease.get(), sql)) {
        names.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(lease.get(), 0)));
    }
    return names;
}

void SqliteConnection::installSchema()
{
    const std::vector<SchemaScript> scripts = schemaScripts(dialect().name());
    if (scripts.empty()) {
        throw DataError("In questa libreria non ci sono gli script dello schema", location_);
    }
    execute("BEGIN IMMEDIATE");
    try {
        for (const SchemaScript& script : scripts) {
            execute(std::string(script.sql), "script dello schema " + std::string(script.name));
        }
        execute("COMMIT");
    } catch (...) {
        sqlite3_exec(db_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
    statements_.clear();
}

} // namespace avlor
