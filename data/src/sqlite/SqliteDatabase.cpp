#include "sqlite/SqliteDatabase.h"

#include <cerrno>
#include <cstring>
#include <string_view>

#include <fcntl.h>
#include <unistd.h>

#include "avlor/core/Text.h"
#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"
#include "postgresql/PgLocation.h"
#include "sqlite/SqliteConnection.h"

namespace avlor {

namespace {

// Makes the file, failing if anything is there already: the test and the
// creation are one step, so two processes cannot both create it.
void createEmptyFile(const std::string& location, const std::filesystem::path& file)
{
    if (file.has_parent_path()) {
        std::error_code error;
        std::filesystem::create_directories(file.parent_path(), error);
        if (error) {
            throw DataError("Impossibile creare la cartella del database: " + error.message(), location);
        }
    }
    const int fd = ::open(file.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0644);
    if (fd < 0) {
        const int failure = errno;
        if (failure == EEXIST) {
            throw DataError("In questa posizione esiste già un database; è stato lasciato com'era", location);
        }
        throw DataError(std::string("Impossibile creare il file del database: ") + std::strerror(failure), location);
    }
    ::close(fd);
}

} // namespace

void removeSqliteFiles(const std::filesystem::path& file) noexcept
{
    std::error_code ignored;
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        std::filesystem::remove(file.string() + suffix, ignored);
    }
}

SqliteLocation sqliteLocation(const std::string& location)
{
    SqliteLocation where;
    if (location.empty() || location == ":memory:") {
        where.inMemory = true;
        return where;
    }
    if (location.rfind("file:", 0) != 0) {
        where.file = location;
        return where;
    }
    std::string_view rest = std::string_view(location).substr(5);
    const std::size_t end = rest.find_first_of("?#");
    const std::string_view query = end == std::string_view::npos ? std::string_view() : rest.substr(end);
    rest = rest.substr(0, end);
    if (rest.rfind("//", 0) == 0) {
        const std::size_t slash = rest.find('/', 2);
        rest = slash == std::string_view::npos ? std::string_view() : rest.substr(slash);
    }
    const std::string path = percentDecoded(rest);
    where.inMemory = path.empty() || path == ":memory:" || query.find("mode=memory") != std::string_view::npos;
    if (!where.inMemory) {
        where.file = path;
    }
    return where;
}

std::string immutableSqliteUri(const std::filesystem::path& file)
{
    static const char* const hex = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : std::filesystem::absolute(file).string()) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte <= 0x20 || byte >= 0x7F || c == '%' || c == '?' || c == '#') {
            uri += '%';
            uri += hex[byte >> 4U];
            uri += hex[byte & 0x0FU];
        } else {
            uri += c;
        }
    }
    return uri + "?mode=ro&immutable=1";
}

bool readAsImmutable(const std::filesystem::path& file)
{
    if (::access(file.c_str(), W_OK) == 0 || errno == ENOENT) {
        return false;
    }
    std::error_code error;
    // When it cannot be told whether a "-wal" is there, it is not read as
    // immutable: the plain open then fails or works by SQLite's own rules.
    return !std::filesystem::exists(file.string() + "-wal", error) && !error;
}

std::shared_ptr<SqliteConnection> createSqlitePracticeDatabase(const std::string& location)
{
    const SqliteLocation where = sqliteLocation(location);
    if (!where.inMemory) {
        createEmptyFile(location, where.file);
    }
    std::shared_ptr<SqliteConnection> connection;
    try {
        connection = SqliteConnection::connect(location);
    } catch (...) {
        if (!where.inMemory) {
            removeSqliteFiles(where.file);
        }
        throw;
    }
    // Only a shared in-memory database can hold tables here: the file was
    // made empty a moment ago.
    if (!connection->tableNames().empty()) {
        throw DataError("Il database contiene già delle tabelle; è stato lasciato com'era", location);
    }
    try {
        connection->installSchema();
    } catch (...) {
        connection.reset();
        if (!where.inMemory) {
            removeSqliteFiles(where.file);
        }
        throw;
    }
    return connection;
}

std::string sqliteDatabaseFile(const std::string& location)
{
    const auto file = databaseFile(location);
    return file ? file->string() : std::string();
}

std::vector<std::string> sqliteCompanionFiles(const std::string& file)
{
    return {file + "-wal", file + "-shm", file + "-journal"};
}

} // namespace avlor
