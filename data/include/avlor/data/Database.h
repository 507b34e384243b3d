#pragma once
// Which practice database the component works on, and how a new one is made.
//
// The location is, in this order: the one the host (or the avlor command's
// --db) set with setCurrentDatabase; the environment variable AVLOR_DB; the
// per-user file $XDG_DATA_HOME/avlor/avlor.db (~/.local/share/avlor/avlor.db
// when XDG_DATA_HOME is unset). A location is a file path, a "file:" SQLite
// URI, or a "postgresql://" (or "postgres://") URI for a shared server. On a
// server the database itself must already exist, made by the firm's
// administrator; createPracticeDatabase then lays out the schema in it.
#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace avlor {

class Connection;

// True for a location on a PostgreSQL server ("postgresql://", "postgres://").
[[nodiscard]] bool isServerLocation(const std::string& location);
// The location as messages show it: a server password replaced by "***".
[[nodiscard]] std::string shownLocation(const std::string& location);
// The file that holds a SQLite location: the path itself, or the path of a
// "file:" URI with its percent escapes decoded ("file:///a%20b.db" ->
// "/a b.db"). None for an in-memory database or a server location.
[[nodiscard]] std::optional<std::filesystem::path> databaseFile(const std::string& location);

// The file a SQLite location keeps its database in: a path as it is, a
// "file:" URI with its percent escapes decoded and its authority
// ("file://localhost/p" is "/p") and parameters dropped, exactly as SQLite
// itself reads it. Empty for an in-memory database (":memory:",
// "file::memory:", mode=memory). Also empty for a server location.
[[nodiscard]] std::string sqliteDatabaseFile(const std::string& location);
// The files a SQLite database may have beside it while in use ("-wal",
// "-shm", "-journal" after the file's own name).
[[nodiscard]] std::vector<std::string> sqliteCompanionFiles(const std::string& file);

// Checks that `location` holds a complete practice database, without
// changing anything there: no file is made, no journal mode switched, no
// row written. Raises DataError saying what it is instead (missing, empty,
// a folder, not a practice database, or a practice database whose creation
// never finished). A SQLite file that another program keeps locked while it
// writes is waited for up to the statement time limit
// (Connection::DefaultStatementTimeLimit), then reported as locked.
void requirePracticeDatabase(const std::string& location);
// The same, waiting at most `wait` for a SQLite file kept locked.
void requirePracticeDatabase(const std::string& location, std::chrono::milliseconds wait);

// Sets the database of this process; an empty text returns to the default.
void setCurrentDatabase(const std::string& location);
// The location given to setCurrentDatabase; empty when none is in force.
[[nodiscard]] std::string databaseSetByHost();
// The location in force, resolved as above.
[[nodiscard]] std::string currentDatabase();
// The per-user default location.
[[nodiscard]] std::string defaultDatabaseLocation();

// The pooled connection to `location` (one per location per process),
// opened on first use. Raises DataError when the database cannot be opened.
[[nodiscard]] std::shared_ptr<Connection> connectionFor(const std::string& location);
// Drops pooled connections (all, or the one of `location`). Record sets and
// record-access objects still holding a connection keep it until released.
void closeConnections();
void closeConnections(const std::string& location);

// Creates a new practice database at `location` with the whole schema and
// its version row. Refuses (DataError) to touch a database that already
// exists or already holds tables: for a file, any existing file, even an
// empty one, is refused; on a server, a database holding any table. The folder of the file is made when missing. The
// new database has one ConfigGenerale row (ValutaDefault "EURO",
// CambioLiraEuro 1936.27) and Versioni 1; its connection joins the pool.
void createPracticeDatabase(const std::string& location);

// Removes a SQLite database made by mistake or left half-made: closes its
// pooled connection and deletes its file with the journal files SQLite keeps
// beside it ("-wal", "-shm", "-journal"). Nothing is done for an in-memory
// database or a server location (a server database is the administrator's).
void removeDatabaseFiles(const std::string& location);

} // namespace avlor
