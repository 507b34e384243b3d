#pragma once
// SqliteConnection: a practice database in a SQLite file, through Debian's
// SQLite library.
//
// Every connection runs with:
//   - journal_mode=WAL: readers and the writer do not block each other, and
//     a write is one append to the log, so a process killed in the middle of
//     a write leaves the database as it was before that write;
//   - synchronous=FULL: each commit is flushed to the disk before the call
//     returns, so an action recorded by the user survives a power cut too,
//     not only a crash of the program. The cost is one flush per written
//     row, which is small beside the user's pace; NORMAL would only protect
//     against crashes of the program;
//   - busy_timeout of BusyTimeoutMs: a second process (another workstation
//     on a shared file, a second import) waits for a write in progress as
//     long as a person would wait for it, instead of failing at once; past
//     that the error says that another program kept the database locked;
//   - a time limit per statement (Connection::DefaultStatementTimeLimit),
//     checked by a progress handler: a statement running past it is
//     interrupted with a DataError that says so;
//   - autocommit: every Update and Delete is its own transaction, except
//     inside a transaction opened with beginTransaction (BEGIN IMMEDIATE:
//     the write lock is taken at once, so that another program writing the
//     same file makes the transaction wait, busy timeout, rather than fail
//     half-way).
#include <chrono>
#include <memory>
#include <string>

#include <sqlite3.h>

#include "avlor/data/Connection.h"
#include "sqlite/SqliteStatementCache.h"

namespace avlor {

class SqliteConnection final : public Connection, public std::enable_shared_from_this<SqliteConnection> {
public:
    static constexpr int BusyTimeoutMs = 60000;

    // Opens the existing database at `location` (a path or a "file:" URI);
    // never creates one. Raises DataError when it cannot be opened.
    [[nodiscard]] static std::shared_ptr<SqliteConnection> connect(const std::string& location);

    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;
    ~SqliteConnection() override;

    [[nodiscard]] const std::string& location() const override { return location_; }
    [[nodiscard]] const Dialect& dialect() const override;
    [[nodiscard]] std::shared_ptr<RecordSet> open(const std::string& source, bool editable) override;
    [[nodiscard]] Value singleValue(const std::string& statement) override;
    void executeScript(const std::string& script) override;
    [[nodiscard]] std::vector<std::string> tableNames() override;
    // One cached INSERT, bound and stepped row after row (SqliteRowInsert.cpp).
    void insertRows(const std::string& table, const std::vector<std::string>& columns,
                    const std::vector<std::vector<Value>>& rows) override;
    void beginTransaction() override;
    void commitTransaction() override;
    void rollbackTransaction() noexcept override;
    void lockForTransaction(std::int32_t space, std::int32_t key) override;
    [[nodiscard]] bool inTransaction() const noexcept override { return inTransaction_; }
    void setStatementTimeLimit(std::chrono::milliseconds limit) override { timeLimit_ = limit; }

    // Runs the schema scripts of a new database, as one transaction.
    void installSchema();

    // The backend's own pieces (record sets) work through these.
    [[nodiscard]] sqlite3* handle() const noexcept { return db_.get(); }
    // Errors name `reportAs` when given: the statement as the application
    // wrote it, before the dialect.
    [[nodiscard]] SqliteStatementCache::Lease prepare(const std::string& sql, const std::string& reportAs = {});
    // Steps once: true for a row, false when done; DataError otherwise.
    bool step(sqlite3_stmt* statement, const std::string& reportAs);

private:
    struct Closer {
        void operator()(sqlite3* db) const noexcept { sqlite3_close_v2(db); }
    };

    SqliteConnection(std::string location, std::unique_ptr<sqlite3, Closer> db);
    // Runs statements that return nothing the caller needs (pragmas,
    // transaction control, schema scripts); a failure names `reportAs` (the
    // statement itself by default).
    void execute(const std::string& sql, const std::string& reportAs = {});
    // Starts the time limit of the statement about to run.
    void startClock() noexcept { deadline_ = std::chrono::steady_clock::now() + timeLimit_; }
    static int pastDeadline(void* connection) noexcept;

    std::string location_;
    std::unique_ptr<sqlite3, Closer> db_;
    SqliteStatementCache statements_{128};
    bool inTransaction_ = false;
    std::chrono::milliseconds timeLimit_ = DefaultStatementTimeLimit;
    std::chrono::steady_clock::time_point deadline_ = std::chrono::steady_clock::time_point::max();
};

} // namespace avlor
