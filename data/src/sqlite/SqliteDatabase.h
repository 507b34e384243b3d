#pragma once
// Making a new SQLite practice database, and where a SQLite location keeps
// its file.
#include <filesystem>
#include <memory>
#include <string>

namespace avlor {

class SqliteConnection;

struct SqliteLocation {
    bool inMemory = false; // ":memory:", "file::memory:", mode=memory
    std::filesystem::path file; // the database file otherwise
};

// The file of a path or "file:" URI location (percent escapes decoded).
[[nodiscard]] SqliteLocation sqliteLocation(const std::string& location);

// A "file:" URI that opens `file` read-only as an immutable file: nothing
// is created beside it (no -shm, no -wal) and nothing is locked. Used to
// look at a file that may be read only, when no other program is writing it
// (no "-wal" beside it).
[[nodiscard]] std::string immutableSqliteUri(const std::filesystem::path& file);

// True when `file` may only be read by this process and no program is
// writing it now (no "-wal" beside it): it is then opened immutable, so that
// reading it leaves nothing behind.
[[nodiscard]] bool readOnlyAndQuiet(const std::filesystem::path& file);

// Raises DataError unless the SQLite location holds a complete practice
// database; looks without changing anything (see Database.h).
void requireSqlitePracticeDatabase(const std::string& location);

// Deletes the database file and the journal files beside it ("-wal",
// "-shm", "-journal"); what is not there is skipped.
void removeSqliteFiles(const std::filesystem::path& file) noexcept;

// Creates the database file (refusing any file already there, atomically),
// installs the schema and returns the open connection. On a failure the
// file made here is removed again.
[[nodiscard]] std::shared_ptr<SqliteConnection> createSqlitePracticeDatabase(const std::string& location);

} // namespace avlor
