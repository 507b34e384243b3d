#include <filesystem>
#include <memory>

#include <sqlite3.h>

#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"
#include "sqlite/SqliteDatabase.h"

namespace avlor {

namespace {

struct Closer {
    void operator()(sqlite3* db) const noexcept { sqlite3_close_v2(db); }
};
struct Finalizer {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};

// Opens the file only to read it. With no program writing it (no "-wal"
// beside it) it is opened immutable, so that not even a shared-memory file
// is left beside it; otherwise read-only, using the files the writer made.
std::unique_ptr<sqlite3, Closer> openToLook(const std::filesystem::path& file, const std::string& location)
{
    std::error_code error;
    const bool writerActive = std::filesystem::exists(file.string() + "-wal", error);
    const std::string name = writerActive ? file.string() : immutableSqliteUri(file);
    sqlite3* raw = nullptr;
    const int rc = sqlite3_open_v2(name.c_str(), &raw, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
    std::unique_ptr<sqlite3, Closer> db(raw);
    if (rc != SQLITE_OK) {
        throw DataError(location + " cannot be opened: " +
                        std::string(db != nullptr ? sqlite3_errmsg(db.get()) : sqlite3_errstr(rc)));
    }
    return db;
}

// The first column of the first row, as text; nothing when there is no row.
// Raises DataError with SQLite's message when the statement fails.
bool firstValue(sqlite3* db, const char* sql, std::string& value)
{
    sqlite3_stmt* raw = nullptr;
    int rc = sqlite3_prepare_v2(db, sql, -1, &raw, nullptr);
    const std::unique_ptr<sqlite3_stmt, Finalizer> statement(raw);
    if (rc == SQLITE_OK) {
        rc = sqlite3_step(statement.get());
        if (rc == SQLITE_ROW) {
            const unsigned char* text = sqlite3_column_text(statement.get(), 0);
            value = text != nullptr ? reinterpret_cast<const char*>(text) : "";
            return true;
        }
        if (rc == SQLITE_DONE) {
            return false;
        }
    }
    throw DataError(sqlite3_errmsg(db));
}

} // namespace

void requireSqlitePracticeDatabase(const std::string& location)
{
    const std::string file = sqliteDatabaseFile(location);
    if (file.empty()) {
        return; // in memory: nothing on disk to look at
    }
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status)) {
        throw DataError("no practice database at " + location + " (create one with: avlor db init " + location + ")");
    }
    if (std::filesystem::is_directory(status)) {
        throw DataError(location + " is a folder, not a practice database");
    }
    if (!std::filesystem::is_regular_file(status)) {
        throw DataError(location + " is not a practice database (not a regular file)");
    }
    if (std::filesystem::file_size(file, error) == 0 && !error) {
        throw DataError(location + " is not a practice database (the file is empty)");
    }
    const auto db = openToLook(file, location);
    std::string value;
    try {
        if (!firstValue(db.get(), "SELECT count(*) FROM sqlite_schema WHERE type = 'table' AND name = 'Versioni'",
                        value) ||
            value != "1") {
            throw DataError("it holds no table Versioni");
        }
        if (!firstValue(db.get(), "SELECT Versione FROM Versioni", value)) {
            throw DataError(location +
                            " is an incomplete practice database: its creation never finished; remove it "
                            "and run avlor db init again");
        }
    } catch (const DataError& e) {
        const std::string what = e.what();
        if (what.rfind(location, 0) == 0) {
            throw;
        }
        throw DataError(location + " is not a practice database (" + what + ")");
    }
}

} // namespace avlor
