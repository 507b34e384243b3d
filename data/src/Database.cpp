#include "avlor/data/Database.h"

#include <cstdlib>
#include <map>
#include <mutex>

#include <pwd.h>
#include <unistd.h>

#include "avlor/data/Connection.h"
#include "avlor/data/DataError.h"
#include "postgresql/PgConnection.h"
#include "postgresql/PgDatabase.h"
#include "postgresql/PgLocation.h"
#include "sqlite/SqliteConnection.h"
#include "sqlite/SqliteDatabase.h"

namespace avlor {

namespace {

struct Registry {
    std::mutex mutex;
    std::string setByHost;
    std::map<std::string, std::shared_ptr<Connection>> pool;
};

Registry& registry()
{
    static Registry instance;
    return instance;
}

std::string environment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? std::string(value) : std::string();
}

void requireLocation(const std::string& location)
{
    if (location.empty()) {
        throw DataError("Non è stata indicata la posizione del database");
    }
}

// The backend of a location: a "postgresql://" or "postgres://" URI names a
// database on a PostgreSQL server; anything else is a SQLite file.
std::shared_ptr<Connection> openDatabase(const std::string& location)
{
    if (isPgLocation(location)) {
        return PgConnection::connect(location);
    }
    return SqliteConnection::connect(location);
}

std::shared_ptr<Connection> makeDatabase(const std::string& location)
{
    if (isPgLocation(location)) {
        return createPgPracticeDatabase(location);
    }
    return createSqlitePracticeDatabase(location);
}

std::string homeFolder()
{
    std::string home = environment("HOME");
    if (home.empty()) {
        if (const passwd* entry = getpwuid(getuid()); entry != nullptr && entry->pw_dir != nullptr) {
            home = entry->pw_dir;
        }
    }
    return home;
}

} // namespace

void setCurrentDatabase(const std::string& location)
{
    Registry& r = registry();
    const std::lock_guard lock(r.mutex);
    r.setByHost = location;
}

std::string databaseSetByHost()
{
    Registry& r = registry();
    const std::lock_guard lock(r.mutex);
    return r.setByHost;
}

std::string defaultDatabaseLocation()
{
    // The XDG base-directory rules ignore a relative XDG_DATA_HOME.
    std::string data = environment("XDG_DATA_HOME");
    if (data.empty() || data.front() != '/') {
        data = homeFolder() + "/.local/share";
    }
    return data + "/avlor/avlor.db";
}

std::string currentDatabase()
{
    if (std::string location = databaseSetByHost(); !location.empty()) {
        return location;
    }
    if (std::string location = environment("AVLOR_DB"); !location.empty()) {
        return location;
    }
    return defaultDatabaseLocation();
}

std::shared_ptr<Connection> connectionFor(const std::string& location)
{
    Registry& r = registry();
    const std::lock_guard lock(r.mutex);
    if (const auto found = r.pool.find(location); found != r.pool.end()) {
        return found->second;
    }
    requireLocation(location);
    std::shared_ptr<Connection> connection = openDatabase(location);
    r.pool.emplace(location, connection);
    return connection;
}

void closeConnections()
{
    std::map<std::string, std::shared_ptr<Connection>> closing;
    Registry& r = registry();
    {
        const std::lock_guard lock(r.mutex);
        closing.swap(r.pool);
    }
}

void closeConnections(const std::string& location)
{
    std::shared_ptr<Connection> closing;
    Registry& r = registry();
    const std::lock_guard lock(r.mutex);
    if (const auto found = r.pool.find(location); found != r.pool.end()) {
        closing = std::move(found->second);
        r.pool.erase(found);
    }
}

void createPracticeDatabase(const std::string& location)
{
    requireLocation(location);
    Registry& r = registry();
    const std::lock_guard lock(r.mutex);
    if (r.pool.count(location) != 0) {
        throw DataError("In questa posizione esiste già un database; è stato lasciato com'era",
                        shownLocation(location));
    }
    r.pool.emplace(location, makeDatabase(location));
}

bool isServerLocation(const std::string& location) { return isPgLocation(location); }

void requirePracticeDatabase(const std::string& location)
{
    requirePracticeDatabase(location, Connection::DefaultStatementTimeLimit);
}

void requirePracticeDatabase(const std::string& location, std::chrono::milliseconds wait)
{
    requireLocation(location);
    if (!isPgLocation(location)) {
        requireSqlitePracticeDatabase(location, wait);
        return;
    }
    // On a server a read runs in a read-only transaction of its own: looking
    // changes nothing there either.
    Value version;
    try {
        version = connectionFor(location)->singleValue("SELECT Versione FROM Versioni");
    } catch (const DataError& e) {
        throw DataError(shownLocation(location) + " non è un database delle pratiche (" + e.what() + ")");
    }
    if (version.isEmpty()) {
        throw DataError(shownLocation(location) +
                        " è un database delle pratiche incompleto: la sua creazione non è mai finita; svuotare il "
                        "database ed eseguire di nuovo avlor db init");
    }
}

std::optional<std::filesystem::path> databaseFile(const std::string& location)
{
    if (isPgLocation(location)) {
        return std::nullopt;
    }
    const SqliteLocation where = sqliteLocation(location);
    if (where.inMemory) {
        return std::nullopt;
    }
    return where.file;
}

void removeDatabaseFiles(const std::string& location)
{
    closeConnections(location);
    if (const auto file = databaseFile(location)) {
        removeSqliteFiles(*file);
    }
}

std::string shownLocation(const std::string& location)
{
    return isPgLocation(location) ? shownPgLocation(location) : location;
}

} // namespace avlor
