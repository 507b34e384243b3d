#pragma once
// Making a new SQLite practice database, and where a SQLite location keeps
// its file.
#include <filesystem>
#include <memory>
#include <string>

namespace avlor {

class SqliteConnection;

struct SqliteLocation {
    bool inMemory = false;       // ":memory:", "file::memory:", mode=memory
    std::filesystem::path file;  // the database file otherwise
};

// The file of a path or "file:" URI location (percent escapes decoded).
[[nodiscard]] SqliteLocation sqliteLocation(const std::string& location);

// Deletes the database file and the journal files beside it ("-wal",
// "-shm", "-journal"); what is not there is skipped.
void removeSqliteFiles(const std::filesystem::path& file) noexcept;

// Creates the database file (refusing any file already there, atomically),
// installs the schema and returns the open connection. On a failure the
// file made here is removed again.
[[nodiscard]] std::shared_ptr<SqliteConnection> createSqlitePracticeDatabase(const std::string& location);

} // namespace avlor
