#pragma once
// Connection: one open practice database, as the record-access classes see
// it whatever the backend (a SQLite file, or PostgreSQL for a shared
// server). Each backend implements it in its own sources; driver headers
// stay there.
//
// Promises of every backend:
//   - statements run exactly as the application wrote them, through the
//     backend's Dialect, one statement at a time;
//   - every change a record set writes (Update, Delete) is committed when the
//     call returns, so rows written before a later failure stay written, and
//     a crash never leaves a half-written row; the one exception is a
//     transaction opened on purpose (TransactionScope below), whose changes
//     are kept together or not at all;
//   - a failure raises DataError with the database's own message and the
//     statement.
// A connection is used from one thread at a time: the component runs on the
// host's user-interface thread. Connections are pooled (Database.h), so
// opening one per routine costs nothing.
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "avlor/core/Value.h"
#include "avlor/data/RecordSet.h"

namespace avlor {

class Dialect;

class Connection {
public:
    // How long one statement may run before it is stopped: a statement
    // whose text came from a person (an injected recursive query, a sleep)
    // must not hang the workstation. Long enough for any statement of the
    // application on a large practice database.
    static constexpr std::chrono::milliseconds DefaultStatementTimeLimit{60000};

    virtual ~Connection() = default;

    [[nodiscard]] virtual const std::string& location() const = 0;
    [[nodiscard]] virtual const Dialect& dialect() const = 0;

    // Opens a full SELECT statement or a bare table name. Read-only record
    // sets refuse writes; editable ones write back when the statement's
    // columns all come from one table (see RecordSet.h). All rows are
    // fetched at once, except that a whole table opened editable is read
    // only when its rows are first needed (opening "Azioni" to add a row
    // does not read the table).
    [[nodiscard]] virtual std::shared_ptr<RecordSet> open(const std::string& source, bool editable) = 0;

    // The first column of the first row of the statement, as stored; an
    // empty value when the statement yields no row.
    [[nodiscard]] virtual Value singleValue(const std::string& statement) = 0;

    // Runs a script of statements separated by ';' (fixtures, tools), each
    // through the dialect, all of them as one unit: on a failure none stays.
    virtual void executeScript(const std::string& script) = 0;

    // The names of the database's tables, in alphabetical order.
    [[nodiscard]] virtual std::vector<std::string> tableNames() = 0;

    // Adds many rows to `table` at once (loading a whole fee table): each
    // row gives the values of `columns` (any letter case) in that order, and
    // the table's other columns take their defaults. Values are converted
    // and stored exactly as a record set's AddNew and Update store them.
    // The rows are written all or none: outside a transaction in one of
    // their own, inside one as a unit of it that undoes itself alone on a
    // failure, as a script does. SQLite writes them one prepared statement
    // after the other; PostgreSQL copies them InsertBatchRows to a
    // statement, so that a large load does not pay one round trip to the
    // server per row. Raises DataError with the database's message (for a
    // table or column that does not exist, a row the table refuses, a row
    // without one value per column) and ValueError for a value its column
    // cannot take, as SetField does.
    virtual void insertRows(const std::string& table, const std::vector<std::string>& columns,
                            const std::vector<std::vector<Value>>& rows) = 0;

    // Rows per statement of insertRows on PostgreSQL.
    static constexpr std::size_t InsertBatchRows = 500;

    // One transaction over several writes (loading a whole fee table, for
    // one): between beginTransaction and commitTransaction every write of
    // every record set and script on this connection belongs to it, and
    // other connections see none of it until the commit. Transactions do not
    // nest: beginning a second one raises DataError. A failure of commit
    // (DataError) leaves nothing of the transaction. rollbackTransaction
    // drops whatever the transaction wrote and never fails; without an open
    // transaction it does nothing. After a statement of the transaction
    // fails, rolling back is the one certain way on: PostgreSQL refuses
    // every further statement of it (and its commit), SQLite undoes the
    // failed statement alone. A script that fails inside a transaction
    // undoes itself alone on both. Prefer TransactionScope.
    virtual void beginTransaction() = 0;
    virtual void commitTransaction() = 0;
    virtual void rollbackTransaction() noexcept = 0;
    [[nodiscard]] virtual bool inTransaction() const noexcept = 0;
    // Inside a transaction: waits until no other session holds the lock
    // (`space`, `key`) in a transaction of its own, then holds it until this
    // transaction ends, so that writers of one thing (the actions of one
    // case file) take turns while writers of others go on. The wait is
    // bounded by the statement time limit. SQLite lets one writer at a time
    // into the whole database already, so there it only checks that a
    // transaction is open (DataError otherwise).
    virtual void lockForTransaction(std::int32_t space, std::int32_t key) = 0;

    // Changes the time limit of each statement on this connection (tests,
    // tools); a statement past it fails with DataError saying so.
    virtual void setStatementTimeLimit(std::chrono::milliseconds limit) = 0;
};

// The time limit as messages write it ("60 secondi", "250 ms").
[[nodiscard]] std::string timeLimitText(std::chrono::milliseconds limit);

// TransactionScope: a transaction on `connection` for the lifetime of the
// scope. Its writes stay only if commit() is called; leaving the scope
// otherwise (an error, an early return) rolls them back.
//
//     TransactionScope transaction(connection);
//     ... writes through record sets on `connection` ...
//     transaction.commit();
class TransactionScope {
public:
    explicit TransactionScope(std::shared_ptr<Connection> connection) : connection_(std::move(connection))
    {
        connection_->beginTransaction();
    }
    ~TransactionScope()
    {
        if (open_) {
            connection_->rollbackTransaction();
        }
    }
    TransactionScope(const TransactionScope&) = delete;
    TransactionScope& operator=(const TransactionScope&) = delete;

    // Makes the writes of the scope durable. After a failed commit the
    // transaction is over and nothing of it stays.
    void commit()
    {
        open_ = false;
        connection_->commitTransaction();
    }

private:
    std::shared_ptr<Connection> connection_;
    bool open_ = true;
};

} // namespace avlor
