#include "sqlite/SqliteStatementCache.h"

#include "sqlite/SqliteConnection.h"

#include <cctype>

#include "avlor/data/DataError.h"

namespace avlor {

void raiseSqliteError(sqlite3* db, int rc, const std::string& sql)
{
    if ((rc & 0xFF) == SQLITE_INTERRUPT) {
        throw DataError("L'istruzione ha superato il suo tempo massimo ed è stata fermata", sql, std::to_string(rc));
    }
    if ((rc & 0xFF) == SQLITE_BUSY) {
        throw DataError("Un altro programma ha tenuto il database bloccato in scrittura per " +
                            std::to_string(SqliteConnection::BusyTimeoutMs / 1000) +
                            " secondi; riprovare quando avrà finito",
                        sql, std::to_string(rc));
    }
    // Extended result codes are on, so rc names the failure exactly; the
    // connection's message is the one of the call that just failed.
    throw DataError(db != nullptr ? sqlite3_errmsg(db) : sqlite3_errstr(rc), sql, std::to_string(rc));
}

SqliteStatementCache::StatementPtr prepareSqliteStatement(sqlite3* db, const std::string& sql, unsigned int flags,
                                                          const std::string& reportAs)
{
    const std::string& reported = reportAs.empty() ? sql : reportAs;
    sqlite3_stmt* raw = nullptr;
    const char* tail = nullptr;
    const int rc = sqlite3_prepare_v3(db, sql.c_str(), static_cast<int>(sql.size() + 1), flags, &raw, &tail);
    SqliteStatementCache::StatementPtr statement(raw);
    if (rc != SQLITE_OK) {
        raiseSqliteError(db, rc, reported);
    }
    if (statement == nullptr) {
        throw DataError("Nessuna istruzione da eseguire", reported);
    }
    for (; tail != nullptr && *tail != '\0'; ++tail) {
        if (std::isspace(static_cast<unsigned char>(*tail)) == 0) {
            throw DataError("Si può eseguire una sola istruzione alla volta: dopo ';' c'è altro testo", reported);
        }
    }
    return statement;
}

SqliteStatementCache::Lease::~Lease()
{
    if (statement_ != nullptr) {
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
    }
    if (inUse_ != nullptr) {
        *inUse_ = false;
    }
}

SqliteStatementCache::Lease SqliteStatementCache::acquire(sqlite3* db, const std::string& sql,
                                                          const std::string& reportAs)
{
    const auto found = entries_.find(sql);
    if (found != entries_.end()) {
        Entry& entry = found->second;
        if (entry.inUse) {
            StatementPtr fresh = prepareSqliteStatement(db, sql, 0, reportAs);
            sqlite3_stmt* raw = fresh.get();
            return Lease(raw, nullptr, std::move(fresh));
        }
        recency_.splice(recency_.begin(), recency_, entry.recency);
        entry.inUse = true;
        return Lease(entry.statement.get(), &entry.inUse, nullptr);
    }
    StatementPtr statement = prepareSqliteStatement(db, sql, SQLITE_PREPARE_PERSISTENT, reportAs);
    recency_.push_front(sql);
    Entry& entry = entries_[sql];
    entry.statement = std::move(statement);
    entry.inUse = true;
    entry.recency = recency_.begin();
    evictBeyondCapacity();
    return Lease(entry.statement.get(), &entry.inUse, nullptr);
}

void SqliteStatementCache::evictBeyondCapacity() noexcept
{
    auto candidate = recency_.end();
    while (entries_.size() > capacity_ && candidate != recency_.begin()) {
        --candidate;
        const auto found = entries_.find(*candidate);
        if (found != entries_.end() && !found->second.inUse) {
            entries_.erase(found);
            candidate = recency_.erase(candidate);
        }
    }
}

void SqliteStatementCache::clear() noexcept
{
    for (auto it = entries_.begin(); it != entries_.end();) {
        if (it->second.inUse) {
            ++it;
            continue;
        }
        recency_.erase(it->second.recency);
        it = entries_.erase(it);
    }
}

} // namespace avlor
