#pragma once
// Making a new SQLite practice database, and where a SQLite location keeps
// its file.
#include <chrono>
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
// is created beside it (no -shm, no -wal) and nothing is locked. Only for a
// file readAsImmutable allows.
[[nodiscard]] std::string immutableSqliteUri(const std::filesystem::path& file);

// Whether `file` is read as an immutable file. Immutable is the one way
// SQLite reads a database kept in WAL mode without making -wal and -shm
// files beside it; but it takes no lock and trusts that nobody changes the
// file while it reads it: a write or a checkpoint meanwhile would hand it
// half-written pages. So it is chosen only when both hold:
//   - this process cannot write the file (its permissions, a read-only
//     mount): it is never the one writing it, and a plain read-only open of
//     a WAL database would leave -wal and -shm files that only a writer can
//     remove again (or fail, in a folder it cannot write);
//   - no "-wal" is beside it: no program has it open in WAL mode (every
//     connection keeps that file while it is open; the last one to close
//     removes it).
// A file this process may write is never read immutable, whatever is beside
// it at the moment: another run of the command, another workstation, may
// begin writing it at any instant, so it is opened with SQLite's locks and a
// busy wait. A file this process may only read is an archive copy or a file
// on read-only media; what is left is another account that may write it
// starting to write while this one reads: the practice check notices that
// and looks again (SqlitePracticeCheck.cpp), and a firm whose workstations
// share a file gives every account that uses it the right to write it.
[[nodiscard]] bool readAsImmutable(const std::filesystem::path& file);

// Raises DataError unless the SQLite location holds a complete practice
// database; looks without changing anything (see Database.h). Waits at most
// `wait` for another program's write that keeps the file locked.
void requireSqlitePracticeDatabase(const std::string& location, std::chrono::milliseconds wait);

// Deletes the database file and the journal files beside it ("-wal",
// "-shm", "-journal"); what is not there is skipped.
void removeSqliteFiles(const std::filesystem::path& file) noexcept;

// Creates the database file (refusing any file already there, atomically),
// installs the schema and returns the open connection. On a failure the
// file made here is removed again.
[[nodiscard]] std::shared_ptr<SqliteConnection> createSqlitePracticeDatabase(const std::string& location);

} // namespace avlor
