#pragma once
// SqliteStatementCache: the prepared statements of one connection, kept by
// their text so that a routine that runs the same statement again (the same
// query for another id is another text; the write-back statements of a
// table are the same text) skips SQLite's parser. The least recently used
// statements are finalised past the capacity.
//
// A statement is lent out for one use: the lease resets it and clears its
// parameters when it ends. Asking for a statement that is already lent out
// gives a fresh one that is not kept.
#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>

#include <sqlite3.h>

namespace avlor {

class SqliteStatementCache {
public:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };
    using StatementPtr = std::unique_ptr<sqlite3_stmt, Finalizer>;

    class Lease {
    public:
        Lease(sqlite3_stmt* statement, bool* inUse, StatementPtr owned) noexcept
            : statement_(statement), inUse_(inUse), owned_(std::move(owned))
        {
        }
        Lease(Lease&& other) noexcept
            : statement_(std::exchange(other.statement_, nullptr)), inUse_(std::exchange(other.inUse_, nullptr)),
              owned_(std::move(other.owned_))
        {
        }
        Lease& operator=(Lease&&) = delete;
        Lease(const Lease&) = delete;
        Lease& operator=(const Lease&) = delete;
        ~Lease();

        [[nodiscard]] sqlite3_stmt* get() const noexcept { return statement_; }

    private:
        sqlite3_stmt* statement_;
        bool* inUse_;
        StatementPtr owned_;
    };

    explicit SqliteStatementCache(std::size_t capacity) : capacity_(capacity) { }

    // The prepared statement of `sql`. Raises DataError with SQLite's message
    // when it does not prepare, and when text other than blanks follows the
    // first statement (so a second statement never runs). The error names
    // `reportAs` (the statement as the application wrote it), or `sql`.
    [[nodiscard]] Lease acquire(sqlite3* db, const std::string& sql, const std::string& reportAs = {});

    // Finalises every statement not lent out (after a change of schema).
    void clear() noexcept;

    [[nodiscard]] std::size_t size() const noexcept { return entries_.size(); }

private:
    struct Entry {
        StatementPtr statement;
        bool inUse = false;
        std::list<std::string>::iterator recency;
    };

    void evictBeyondCapacity() noexcept;

    std::size_t capacity_;
    std::unordered_map<std::string, Entry> entries_;
    std::list<std::string> recency_; // most recent first
};

// Prepares `sql` on its own (not cached), with the same checks as the cache.
[[nodiscard]] SqliteStatementCache::StatementPtr
prepareSqliteStatement(sqlite3* db, const std::string& sql, unsigned int flags, const std::string& reportAs = {});

// Raises DataError with the connection's last message, `sql` and the code.
[[noreturn]] void raiseSqliteError(sqlite3* db, int rc, const std::string& sql);

} // namespace avlor
