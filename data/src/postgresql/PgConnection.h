#pragma once
// PgConnection: a practice database on a PostgreSQL server shared by the
// firm's workstations, through Debian's libpq. The location is a
// "postgresql://" or "postgres://" URI (user, password, host, port,
// database and libpq's parameters, as libpq reads them; a password may also
// come from PGPASSWORD or ~/.pgpass).
//
// Every session runs with:
//   - default_transaction_read_only, and more: a statement opened as a record
//     set or asked for a single value runs in a read-only transaction of its
//     own (BEGIN READ ONLY), so it can never change the database whatever its
//     text and whatever it did to the session's defaults; the transaction is
//     rolled back afterwards, which undoes every setting the statement
//     changed, and session locks it took are released, so the pooled
//     session goes back to the next caller as it was. The layer's own writes
//     (Update, AddNew, Delete, scripts, rows added in bulk, schema) run in
//     explicit read-write transactions;
//   - statement_timeout: a statement running longer than the time limit
//     (Connection::DefaultStatementTimeLimit) is stopped with a DataError
//     that says so;
//   - DateStyle 'ISO, DMY': dates come back as 'YYYY-MM-DD', and a date
//     written as text in a statement ('02/06/2004') is read day first, as
//     everywhere in the application;
//   - client encoding UTF8 and standard_conforming_strings on, so that the
//     dialect and the server agree on where a literal ends;
//   - autocommit: every Update and Delete is its own transaction, committed
//     when the call returns, except inside beginTransaction/commit.
//
// A lost session (the server restarted, the session ended by an
// administrator, a network failure) makes the operation under way fail with
// DataError; the next operation opens a new session by itself. Inside a
// transaction nothing reconnects: the transaction is lost with its session,
// and every operation fails until it is rolled back.
//
// A process that forks leaves the session to the parent: a child that uses
// the connection opens a session of its own and never touches the
// parent's.
#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "avlor/data/Connection.h"
#include "postgresql/PgHandles.h"
#include "postgresql/PgValues.h"

namespace avlor {

using PgParameters = std::vector<std::optional<std::string>>;

// What a record set needs to know of a table to write its rows back.
struct PgTable {
    std::uint32_t oid = 0;
    std::string name; // as the server keeps it (lower case)
    std::string reference; // quoted and qualified where needed, for statements
    std::map<int, std::string> columns; // attribute number -> name
    std::map<int, PgKind> kinds; // attribute number -> kind
    std::vector<std::string> key; // primary-key columns; empty when none
    bool writable = false; // an ordinary table (not a view)
};

class PgConnection final : public Connection, public std::enable_shared_from_this<PgConnection> {
public:
    // Opens a session on the server named by `location`. Raises DataError,
    // with libpq's and the server's message, when it cannot be opened.
    [[nodiscard]] static std::shared_ptr<PgConnection> connect(const std::string& location);

    PgConnection(const PgConnection&) = delete;
    PgConnection& operator=(const PgConnection&) = delete;
    ~PgConnection() override;

    [[nodiscard]] const std::string& location() const override { return location_; }
    [[nodiscard]] const Dialect& dialect() const override;
    [[nodiscard]] std::shared_ptr<RecordSet> open(const std::string& source, bool editable) override;
    [[nodiscard]] Value singleValue(const std::string& statement) override;
    // A script of one statement runs as that statement alone, so that
    // statements the server refuses inside a transaction block (CREATE
    // DATABASE, for tools) can be run; a longer script runs as one
    // transaction; inside an open transaction the script is a savepoint.
    // Transaction commands (BEGIN, COMMIT...) are refused before anything
    // runs.
    void executeScript(const std::string& script) override;
    [[nodiscard]] std::vector<std::string> tableNames() override;
    // COPY FROM STDIN statements of up to InsertBatchRows rows each
    // (PgRowInsert.cpp).
    void insertRows(const std::string& table, const std::vector<std::string>& columns,
                    const std::vector<std::vector<Value>>& rows) override;
    void beginTransaction() override;
    void commitTransaction() override;
    void rollbackTransaction() noexcept override;
    void lockForTransaction(std::int32_t space, std::int32_t key) override;
    [[nodiscard]] bool inTransaction() const noexcept override { return transaction_ != Transaction::None; }
    void setStatementTimeLimit(std::chrono::milliseconds limit) override;

    // Installs the schema scripts in an empty database, as one transaction
    // (or as part of the held transaction). Refuses (DataError, nothing
    // written) a database that holds any table.
    void installSchema();

    // One transaction around everything that follows until
    // commitHeldTransaction, for making a whole new database in one step:
    // inside it, beginTransaction/commitTransaction (a fee table's load)
    // become a savepoint of it, so the whole is kept together or not at all.
    void holdTransaction();
    void commitHeldTransaction();
    void rollbackHeldTransaction() noexcept;

    // The location with any password masked, for messages.
    [[nodiscard]] const std::string& shownLocation() const noexcept { return shown_; }

    // The backend's own pieces (record sets) work through these. Errors name
    // `reportAs`: the statement as the application wrote it.
    // Runs a query in the current transaction (read-only outside one).
    [[nodiscard]] PgResult query(const std::string& sql, const PgParameters& parameters, const std::string& reportAs);
    // Describes a query without running it (its columns).
    [[nodiscard]] PgResult describe(const std::string& sql, const std::string& reportAs);
    // Runs a write: in the open transaction, or in one of its own that is
    // committed before this returns.
    [[nodiscard]] PgResult write(const std::string& sql, const PgParameters& parameters, const std::string& reportAs);
    // The table `name` names (as a statement writes it), or nothing.
    [[nodiscard]] std::shared_ptr<const PgTable> findTable(const std::string& name);
    // The name of the table of oid `oid` as the server keeps it; empty when
    // none.
    [[nodiscard]] std::string tableNameOf(std::uint32_t oid);

private:
    enum class Transaction { None, Open, Lost };

    PgConnection(std::string location, PGconn* session);
    // The session, reopened first when it was lost.
    PGconn* session();
    void openSession();
    void applyTimeLimit();
    // Ends a read's own transaction and puts the session back in order.
    void endRead() noexcept;
    void dropSession() noexcept;
    // Runs a statement of the layer's own that returns nothing of interest.
    void command(const char* sql, const std::string& reportAs);
    PgResult run(const std::string& sql, const PgParameters& parameters, const std::string& reportAs);
    // Raises the DataError of a failed result (or of the session, without
    // one).
    [[noreturn]] void fail(const PGresult* result, const std::string& reportAs);
    void runStatements(const std::vector<std::string>& statements);
    // Runs `copy` (a COPY ... FROM STDIN) with `data`, rows in COPY's text
    // form.
    void copyIn(const std::string& copy, const std::string& data, const std::string& reportAs);
    void rollbackQuietly() noexcept;

    std::string location_;
    std::string shown_;
    PGconn* session_ = nullptr;
    pid_t owner_ = 0; // the process that opened the session
    Transaction transaction_ = Transaction::None;
    bool held_ = false; // holdTransaction is in force
    bool nested_ = false; // a savepoint of the held transaction is open
    std::chrono::milliseconds timeLimit_ = DefaultStatementTimeLimit;
    std::map<std::uint32_t, std::string> tableNames_; // oid -> name, for result columns
};

} // namespace avlor
