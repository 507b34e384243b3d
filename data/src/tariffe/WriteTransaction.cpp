#include "tariffe/WriteTransaction.h"

#include <sqlite3.h>

#include <string>

#include "avlor/data/DataError.h"
#include "sqlite/SqliteConnection.h"

namespace avlor::tariffe_detail {

namespace {

void run(sqlite3* db, const char* sql, const std::string& location)
{
    if (sqlite3_exec(db, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw DataError(sqlite3_errmsg(db), std::string(sql) + " on " + location,
                        std::to_string(sqlite3_extended_errcode(db)));
}

} // namespace

void writeAtomically(const std::shared_ptr<Connection>& connection, const std::function<void()>& write)
{
    auto* sqlite = dynamic_cast<SqliteConnection*>(connection.get());
    if (sqlite == nullptr)
        throw DataError("Fee tables can be loaded only into a database that offers a transaction over several "
                        "writes; this backend does not yet",
                        connection->location());
    sqlite3* db = sqlite->handle();
    // IMMEDIATE takes the write lock at once, so that another program
    // writing the same file makes this unit wait (busy timeout) rather than
    // fail half-way.
    run(db, "BEGIN IMMEDIATE", connection->location());
    try {
        write();
        run(db, "COMMIT", connection->location());
    } catch (...) {
        // A failed COMMIT or a failed write both leave the transaction open
        // (or already rolled back by SQLite); ROLLBACK ends it either way and
        // its own failure (no transaction left) is of no interest.
        sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

} // namespace avlor::tariffe_detail
