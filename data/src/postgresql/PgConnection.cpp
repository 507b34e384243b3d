#include "postgresql/PgConnection.h"

#include <algorithm>
#include <cctype>

#include <unistd.h>

#include "BufferedRecordSet.h"
#include "FaultPoint.h"
#include "SchemaScripts.h"
#include "avlor/data/DataError.h"
#include "postgresql/PgLocation.h"
#include "postgresql/PgRowSource.h"
#include "postgresql/PgStatementShape.h"
#include "postgresql/PostgresqlDialect.h"
#include "postgresql/SchemaSpelling.h"

namespace avlor {

namespace {

// SQLSTATE of the failures the layer tells apart.
constexpr const char* UndefinedTable = "42P01";
constexpr const char* ReadOnlyTransaction = "25006";
constexpr const char* ConnectionFailure = "08006";
constexpr const char* CannotConnect = "08001";
constexpr const char* QueryCanceled = "57014";
constexpr const char* LockNotAvailable = "55P03";

// How long a writer waits for another one's lock: a little less than a
// statement may run, so that the error names the real cause.
std::chrono::milliseconds lockWait(std::chrono::milliseconds timeLimit) { return timeLimit - timeLimit / 10; }

// The settings every session runs with (see PgConnection.h).
constexpr const char* SessionSettings =
    "SET DateStyle = 'ISO, DMY'; SET IntervalStyle = 'postgres'; SET extra_float_digits = 1; "
    "SET standard_conforming_strings = on; SET default_transaction_read_only = on; "
    "SET idle_in_transaction_session_timeout = 0";

// What a read leaves behind is undone before the session serves the next
// caller: the rollback ends the read's transaction with every setting it
// changed (set_config, SET), and session locks taken by a statement's text
// are released.
constexpr const char* AfterRead = "ROLLBACK; SELECT pg_catalog.pg_advisory_unlock_all()";

// Serialises the making of practice schemas in one database.
constexpr const char* SchemaLock = "SELECT pg_catalog.pg_advisory_xact_lock(7347301501)";

// libpq's messages end with a line break and may span lines; one line reads
// better inside a DataError.
std::string oneLine(const char* message)
{
    std::string text;
    bool blank = false;
    for (const char* c = message != nullptr ? message : ""; *c != '\0'; ++c) {
        if (std::isspace(static_cast<unsigned char>(*c)) != 0) {
            blank = !text.empty();
            continue;
        }
        if (blank) {
            text += ' ';
            blank = false;
        }
        text += *c;
    }
    return text;
}

// The server's notices (a NOTICE of DROP ... IF EXISTS) are of no use to the
// host and must not reach its standard error.
void ignoreNotice(void* /*unused*/, const char* /*message*/) { }

std::string field(const PGresult* result, int code)
{
    const char* value = result != nullptr ? PQresultErrorField(result, code) : nullptr;
    return value != nullptr ? value : "";
}

} // namespace

std::shared_ptr<PgConnection> PgConnection::connect(const std::string& location)
{
    std::shared_ptr<PgConnection> connection(new PgConnection(location, nullptr));
    connection->openSession();
    return connection;
}

PgConnection::PgConnection(std::string location, PGconn* session)
    : location_(std::move(location)), shown_(shownPgLocation(location_)), session_(session)
{
}

PgConnection::~PgConnection() { dropSession(); }

const Dialect& PgConnection::dialect() const { return PostgresqlDialect::instance(); }

void PgConnection::openSession()
{
    // Defaults first, so that the location can change them; the encoding
    // last, so that it cannot.
    const char* const keywords[] = {"connect_timeout", "fallback_application_name", "dbname", "client_encoding",
                                    nullptr};
    const char* const values[] = {"10", "AvlorLogic", location_.c_str(), "UTF8", nullptr};
    PGconn* session = PQconnectdbParams(keywords, values, 1);
    if (session == nullptr) {
        throw DataError("Impossibile collegarsi al server PostgreSQL: memoria esaurita", shown_, CannotConnect);
    }
    if (PQstatus(session) != CONNECTION_OK) {
        // libpq quotes pieces of a malformed URI, the password included.
        const std::string message = withoutPgPassword(oneLine(PQerrorMessage(session)), location_);
        PQfinish(session);
        throw DataError("Impossibile collegarsi al server PostgreSQL: " + message, shown_, CannotConnect);
    }
    PQsetNoticeProcessor(session, ignoreNotice, nullptr);
    const PgResult settings(PQexec(session, SessionSettings));
    if (PQresultStatus(settings.get()) != PGRES_COMMAND_OK) {
        const std::string message = oneLine(PQresultErrorMessage(settings.get()));
        const std::string code = field(settings.get(), PG_DIAG_SQLSTATE);
        PQfinish(session);
        throw DataError("Impossibile preparare la sessione sul server PostgreSQL: " + message, shown_, code);
    }
    session_ = session;
    owner_ = getpid();
    applyTimeLimit();
}

void PgConnection::applyTimeLimit()
{
    // A writer waits for another workstation's write as long as a statement
    // may run, then says why it gave up.
    // The wait for a lock ends a little before the statement's own limit, so
    // that the error names the real cause.
    const std::string sql = "SET statement_timeout = " + std::to_string(timeLimit_.count()) +
        "; SET lock_timeout = " + std::to_string(lockWait(timeLimit_).count());
    const PgResult result(PQexec(session_, sql.c_str()));
    if (PQresultStatus(result.get()) != PGRES_COMMAND_OK) {
        throw DataError("Impossibile preparare la sessione sul server PostgreSQL: " +
                            oneLine(PQresultErrorMessage(result.get())),
                        shown_, field(result.get(), PG_DIAG_SQLSTATE));
    }
}

void PgConnection::setStatementTimeLimit(std::chrono::milliseconds limit)
{
    timeLimit_ = limit;
    if (session_ != nullptr && owner_ == getpid() && PQstatus(session_) == CONNECTION_OK) {
        applyTimeLimit();
    }
}

void PgConnection::dropSession() noexcept
{
    // A session inherited across fork belongs to the parent: closing it here
    // would end the parent's session (libpq says goodbye on the shared
    // socket), so the child only forgets it.
    if (session_ != nullptr && owner_ == getpid()) {
        PQfinish(session_);
    }
    session_ = nullptr;
}

PGconn* PgConnection::session()
{
    if (session_ != nullptr && owner_ != getpid()) {
        dropSession();
        transaction_ = Transaction::None;
    }
    if (session_ != nullptr && PQstatus(session_) == CONNECTION_OK) {
        return session_;
    }
    if (transaction_ != Transaction::None) {
        transaction_ = Transaction::Lost;
        throw DataError(
            "La connessione al server PostgreSQL si è interrotta durante una transazione; nessuna delle sue "
            "modifiche è stata conservata",
            shown_, ConnectionFailure);
    }
    dropSession();
    openSession();
    return session_;
}

void PgConnection::fail(const PGresult* result, const std::string& reportAs)
{
    std::string message = field(result, PG_DIAG_MESSAGE_PRIMARY);
    std::string code = field(result, PG_DIAG_SQLSTATE);
    if (const std::string detail = field(result, PG_DIAG_MESSAGE_DETAIL); !message.empty() && !detail.empty()) {
        message += " (" + detail + ")";
    }
    if (message.empty()) {
        message = oneLine(result != nullptr ? PQresultErrorMessage(result) : PQerrorMessage(session_));
    }
    if (session_ == nullptr || PQstatus(session_) != CONNECTION_OK) {
        if (transaction_ == Transaction::Open) {
            transaction_ = Transaction::Lost;
        }
        throw DataError("La connessione al server PostgreSQL si è interrotta: " + message, reportAs,
                        code.empty() ? ConnectionFailure : code);
    }
    if (code == QueryCanceled) {
        throw DataError("L'istruzione ha superato il tempo massimo di " + timeLimitText(timeLimit_) +
                            " ed è stata fermata",
                        reportAs, code);
    }
    if (code == LockNotAvailable) {
        // The wait that ran out, not the statement's limit above it.
        throw DataError("Un altro programma ha tenuto le righe bloccate in scrittura per " +
                            timeLimitText(lockWait(timeLimit_)) + "; riprovare quando avrà finito",
                        reportAs, code);
    }
    if (code == ReadOnlyTransaction) {
        throw DataError("Non è un'interrogazione: si può aprire solo un'istruzione SELECT o il nome di una tabella (" +
                            message + ")",
                        reportAs, code);
    }
    if (code == UndefinedTable && transaction_ == Transaction::None) {
        // The read's own transaction is spoilt by the failure; the probe
        // needs a fresh one.
        if (PQtransactionStatus(session_) != PQTRANS_IDLE) {
            PQclear(PQexec(session_, "ROLLBACK"));
        }
        // A database made without the practice schema (the wrong database
        // named, or never initialised) is told as such.
        const PgResult probe(PQexec(session_, "SELECT pg_catalog.to_regclass('versioni') IS NULL"));
        if (PQresultStatus(probe.get()) == PGRES_TUPLES_OK && PQntuples(probe.get()) == 1 &&
            std::string(PQgetvalue(probe.get(), 0, 0)) == "t") {
            message = "Il database " + shown_ +
                " non contiene lo schema delle pratiche (crearlo con avlor db init): " + message;
        }
    }
    throw DataError(message, reportAs, code);
}

PgResult PgConnection::run(const std::string& sql, const PgParameters& parameters, const std::string& reportAs)
{
    PGconn* live = session();
    std::vector<const char*> values;
    values.reserve(parameters.size());
    for (const auto& value : parameters) {
        values.push_back(value ? value->c_str() : nullptr);
    }
    PgResult result(
        PQexecParams(live, sql.c_str(), static_cast<int>(values.size()), nullptr, values.data(), nullptr, nullptr, 0));
    const ExecStatusType status = result ? PQresultStatus(result.get()) : PGRES_FATAL_ERROR;
    if (status == PGRES_TUPLES_OK || status == PGRES_COMMAND_OK) {
        return result;
    }
    if (status == PGRES_EMPTY_QUERY) {
        throw DataError("Nessuna istruzione da eseguire", reportAs);
    }
    fail(result.get(), reportAs);
}

void PgConnection::command(const char* sql, const std::string& reportAs) { (void)run(sql, {}, reportAs); }

PgResult PgConnection::query(const std::string& sql, const PgParameters& parameters, const std::string& reportAs)
{
    // Inside a transaction of the layer's own (a write, the schema) the read
    // belongs to it.
    if (transaction_ != Transaction::None ||
        (session_ != nullptr && owner_ == getpid() && PQtransactionStatus(session_) != PQTRANS_IDLE)) {
        return run(sql, parameters, reportAs);
    }
    // A read outside the layer's transactions runs in a read-only
    // transaction of its own, whatever the session's defaults say by now:
    // the statement's text may come from a person (ids are concatenated),
    // and nothing it does may outlive it.
    command("BEGIN READ ONLY", reportAs);
    try {
        PgResult result = run(sql, parameters, reportAs);
        endRead();
        return result;
    } catch (...) {
        endRead();
        throw;
    }
}

void PgConnection::endRead() noexcept
{
    if (session_ == nullptr || owner_ != getpid() || PQstatus(session_) != CONNECTION_OK) {
        return;
    }
    PGresult* result = PQexec(session_, AfterRead);
    PQclear(result);
    // A session that cannot be put back in order is not handed out again.
    if (PQtransactionStatus(session_) != PQTRANS_IDLE) {
        dropSession();
    }
}

PgResult PgConnection::describe(const std::string& sql, const std::string& reportAs)
{
    PGconn* live = session();
    const PgResult prepared(PQprepare(live, "", sql.c_str(), 0, nullptr));
    if (PQresultStatus(prepared.get()) == PGRES_EMPTY_QUERY) {
        throw DataError("Nessuna istruzione da eseguire", reportAs);
    }
    if (PQresultStatus(prepared.get()) != PGRES_COMMAND_OK) {
        fail(prepared.get(), reportAs);
    }
    PgResult described(PQdescribePrepared(live, ""));
    if (PQresultStatus(described.get()) != PGRES_COMMAND_OK) {
        fail(described.get(), reportAs);
    }
    return described;
}

void PgConnection::rollbackQuietly() noexcept
{
    if (session_ != nullptr && owner_ == getpid() && PQstatus(session_) == CONNECTION_OK &&
        PQtransactionStatus(session_) != PQTRANS_IDLE) {
        PQclear(PQexec(session_, "ROLLBACK"));
    }
}

PgResult PgConnection::write(const std::string& sql, const PgParameters& parameters, const std::string& reportAs)
{
    if (transaction_ != Transaction::None) {
        return run(sql, parameters, reportAs);
    }
    command("BEGIN READ WRITE", reportAs);
    try {
        PgResult result = run(sql, parameters, reportAs);
        command("COMMIT", reportAs);
        return result;
    } catch (...) {
        rollbackQuietly();
        throw;
    }
}

std::shared_ptr<RecordSet> PgConnection::open(const std::string& source, bool editable)
{
    databaseCall("open");
    // A whole table opened to add rows is read only if its rows are needed.
    const bool deferred = editable && Dialect::isBareTableName(source);
    auto rows =
        std::make_unique<PgRowSource>(shared_from_this(), source, dialect().translate(source), editable, deferred);
    return std::make_shared<BufferedRecordSet>(
        std::move(rows), editable ? BufferedRecordSet::Mode::Editable : BufferedRecordSet::Mode::ReadOnly,
        deferred ? BufferedRecordSet::Fetch::WhenNeeded : BufferedRecordSet::Fetch::Now);
}

Value PgConnection::singleValue(const std::string& statement)
{
    databaseCall("value");
    const std::string sql = dialect().translate(statement);
    requirePgQuery(sql, statement);
    const PgResult result = query(sql, {}, statement);
    if (PQnfields(result.get()) == 0) {
        throw DataError("Non è un'interrogazione: solo un'istruzione SELECT dà un valore", statement);
    }
    if (PQntuples(result.get()) == 0) {
        return Value();
    }
    if (PQgetisnull(result.get(), 0, 0) != 0) {
        return Value::null();
    }
    const char* name = PQfname(result.get(), 0);
    try {
        return readPgValue(pgKind(PQftype(result.get(), 0), PQfmod(result.get(), 0)), PQgetvalue(result.get(), 0, 0),
                           name != nullptr ? name : "");
    } catch (const DataError& error) {
        throw DataError(error.what(), statement);
    }
}

void PgConnection::runStatements(const std::vector<std::string>& statements)
{
    for (const std::string& statement : statements) {
        (void)run(dialect().translate(statement), {}, statement);
    }
}

void PgConnection::executeScript(const std::string& script)
{
    const std::vector<std::string> statements = Dialect::splitScript(script);
    for (const std::string& statement : statements) {
        if (isTransactionCommand(statement)) {
            throw DataError("Uno script si esegue come un'unica unità: non può aprire né chiudere transazioni",
                            statement);
        }
    }
    if (statements.empty()) {
        return;
    }
    if (transaction_ != Transaction::None) {
        command("SAVEPOINT avlor_script", "SAVEPOINT");
        try {
            runStatements(statements);
            command("RELEASE SAVEPOINT avlor_script", "RELEASE");
        } catch (...) {
            if (transaction_ == Transaction::Open && session_ != nullptr) {
                PQclear(PQexec(session_, "ROLLBACK TO SAVEPOINT avlor_script; RELEASE SAVEPOINT avlor_script"));
            }
            throw;
        }
        return;
    }
    if (statements.size() == 1) {
        command("SET default_transaction_read_only = off", statements.front());
        try {
            runStatements(statements);
        } catch (...) {
            if (session_ != nullptr && PQstatus(session_) == CONNECTION_OK) {
                PQclear(PQexec(session_, "SET default_transaction_read_only = on"));
            }
            throw;
        }
        command("SET default_transaction_read_only = on", statements.front());
        return;
    }
    command("BEGIN READ WRITE", "BEGIN");
    try {
        runStatements(statements);
        command("COMMIT", "COMMIT");
    } catch (...) {
        rollbackQuietly();
        throw;
    }
}

std::vector<std::string> PgConnection::tableNames()
{
    const PgResult result =
        query("SELECT c.relname FROM pg_catalog.pg_class c WHERE c.relkind IN ('r', 'p') AND c.relnamespace = "
              "pg_catalog.to_regnamespace(pg_catalog.current_schema())",
              {}, "nomi delle tabelle");
    std::vector<std::string> names;
    for (int row = 0; row < PQntuples(result.get()); ++row) {
        names.push_back(spelledTable(PQgetvalue(result.get(), row, 0)));
    }
    std::sort(names.begin(), names.end());
    return names;
}

void PgConnection::holdTransaction()
{
    beginTransaction();
    held_ = true;
}

void PgConnection::commitHeldTransaction()
{
    held_ = false;
    nested_ = false;
    commitTransaction();
}

void PgConnection::rollbackHeldTransaction() noexcept
{
    held_ = false;
    nested_ = false;
    rollbackTransaction();
}

void PgConnection::beginTransaction()
{
    if (held_ && !nested_ && transaction_ == Transaction::Open) {
        command("SAVEPOINT avlor_nested", "SAVEPOINT");
        nested_ = true;
        return;
    }
    if (transaction_ != Transaction::None) {
        throw DataError("Su questa connessione c'è già una transazione aperta", shown_);
    }
    databaseCall("begin");
    command("BEGIN READ WRITE", "BEGIN");
    transaction_ = Transaction::Open;
}

void PgConnection::lockForTransaction(std::int32_t space, std::int32_t key)
{
    if (transaction_ == Transaction::None) {
        throw DataError("Un blocco si prende dentro una transazione, e su questa connessione non ce n'è una aperta",
                        shown_);
    }
    databaseCall("lock");
    // Released by the server when the transaction ends, however it ends.
    command(
        ("SELECT pg_catalog.pg_advisory_xact_lock(" + std::to_string(space) + ", " + std::to_string(key) + ")").c_str(),
        "lock");
}

void PgConnection::commitTransaction()
{
    if (nested_) {
        nested_ = false;
        command("RELEASE SAVEPOINT avlor_nested", "RELEASE");
        return;
    }
    if (transaction_ == Transaction::None) {
        throw DataError("Su questa connessione non c'è una transazione aperta", shown_);
    }
    if (transaction_ == Transaction::Lost) {
        transaction_ = Transaction::None;
        throw DataError("La connessione al server PostgreSQL si è interrotta durante la transazione; nessuna delle sue "
                        "modifiche è stata conservata",
                        shown_, ConnectionFailure);
    }
    try {
        databaseCall("commit");
        const PgResult result = run("COMMIT", {}, "COMMIT");
        transaction_ = Transaction::None;
        // The server answers ROLLBACK to the COMMIT of a transaction that a
        // failed statement has spoilt.
        if (std::string(PQcmdStatus(result.get())) == "ROLLBACK") {
            throw DataError("La transazione è stata annullata: una delle sue istruzioni non è riuscita", shown_,
                            "25P02");
        }
    } catch (...) {
        transaction_ = Transaction::None;
        rollbackQuietly();
        throw;
    }
}

void PgConnection::rollbackTransaction() noexcept
{
    if (nested_) {
        nested_ = false;
        if (transaction_ == Transaction::Open && session_ != nullptr && PQstatus(session_) == CONNECTION_OK) {
            PQclear(PQexec(session_, "ROLLBACK TO SAVEPOINT avlor_nested; RELEASE SAVEPOINT avlor_nested"));
        }
        return;
    }
    if (transaction_ == Transaction::None) {
        return;
    }
    transaction_ = Transaction::None;
    rollbackQuietly();
}

void PgConnection::installSchema()
{
    const std::vector<SchemaScript> scripts = schemaScripts(dialect().name());
    if (scripts.empty()) {
        throw DataError("In questa libreria non ci sono gli script dello schema", shown_);
    }
    const bool own = transaction_ == Transaction::None;
    if (own) {
        command("BEGIN READ WRITE", "BEGIN");
    }
    try {
        command(SchemaLock, "blocco dello schema");
        const PgResult tables = query(
            "SELECT count(*) FROM pg_catalog.pg_class c JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace "
            "WHERE c.relkind IN ('r', 'p', 'v', 'm', 'f') AND n.nspname NOT IN ('pg_catalog', 'information_schema') "
            "AND n.nspname NOT LIKE 'pg\\_toast%' AND n.nspname NOT LIKE 'pg\\_temp\\_%'",
            {}, "numero delle tabelle");
        if (std::string(PQgetvalue(tables.get(), 0, 0)) != "0") {
            throw DataError("Il database contiene già delle tabelle; è stato lasciato com'era", shown_);
        }
        for (const SchemaScript& script : scripts) {
            const std::string sql(script.sql);
            const PgResult result(PQexec(session_, sql.c_str()));
            if (PQresultStatus(result.get()) != PGRES_COMMAND_OK) {
                fail(result.get(), "script dello schema " + std::string(script.name));
            }
        }
        if (own) {
            command("COMMIT", "COMMIT");
        }
    } catch (...) {
        if (own) {
            rollbackQuietly();
        }
        throw;
    }
}

std::shared_ptr<const PgTable> PgConnection::findTable(const std::string& name)
{
    const PgResult result = query(
        "SELECT c.oid, c.oid::pg_catalog.regclass::text, c.relname, c.relkind IN ('r', 'p'), a.attnum, a.attname, "
        "a.atttypid, a.atttypmod, coalesce(a.attnum = ANY (i.indkey), false) "
        "FROM pg_catalog.pg_class c "
        "JOIN pg_catalog.pg_attribute a ON a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped "
        "LEFT JOIN pg_catalog.pg_index i ON i.indrelid = c.oid AND i.indisprimary "
        "WHERE c.oid = pg_catalog.to_regclass($1) ORDER BY a.attnum",
        {name}, "colonne di " + name);
    const int rows = PQntuples(result.get());
    if (rows == 0) {
        return nullptr;
    }
    auto table = std::make_shared<PgTable>();
    table->oid = static_cast<std::uint32_t>(std::stoul(PQgetvalue(result.get(), 0, 0)));
    table->reference = PQgetvalue(result.get(), 0, 1);
    table->name = PQgetvalue(result.get(), 0, 2);
    table->writable = std::string(PQgetvalue(result.get(), 0, 3)) == "t";
    for (int row = 0; row < rows; ++row) {
        const int attribute = std::stoi(PQgetvalue(result.get(), row, 4));
        const std::string column = PQgetvalue(result.get(), row, 5);
        table->columns[attribute] = column;
        table->kinds[attribute] = pgKind(static_cast<std::uint32_t>(std::stoul(PQgetvalue(result.get(), row, 6))),
                                         std::stoi(PQgetvalue(result.get(), row, 7)));
        if (std::string(PQgetvalue(result.get(), row, 8)) == "t") {
            table->key.push_back(column);
        }
    }
    tableNames_[table->oid] = table->name;
    return table;
}

std::string PgConnection::tableNameOf(std::uint32_t oid)
{
    if (const auto known = tableNames_.find(oid); known != tableNames_.end()) {
        return known->second;
    }
    const PgResult result =
        query("SELECT relname FROM pg_catalog.pg_class WHERE oid = $1", {std::to_string(oid)}, "nome della tabella");
    std::string name = PQntuples(result.get()) == 1 ? PQgetvalue(result.get(), 0, 0) : "";
    tableNames_[oid] = name;
    return name;
}

} // namespace avlor
