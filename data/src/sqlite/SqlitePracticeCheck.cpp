#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

#include <sqlite3.h>

#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"
#include "sqlite/SqliteDatabase.h"

namespace avlor {

namespace {

using Clock = std::chrono::steady_clock;

struct Closer {
    void operator()(sqlite3* db) const noexcept { sqlite3_close_v2(db); }
};
struct Finalizer {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};

// What the file holds, as far as the check is concerned.
struct Look {
    enum Kind { None, Complete, NoVersioni, Incomplete, Locked, Unopenable, Failed } kind = None;
    std::string message; // SQLite's, for Unopenable and Failed
};

// The file as the system describes it, and whether a "-wal" is beside it:
// read before and after a read without locks, to tell whether a program
// began writing meanwhile.
struct FileStamp {
    bool present = false;
    struct stat info { };
    bool walBeside = false;

    bool operator==(const FileStamp& other) const noexcept
    {
        return present && other.present && info.st_dev == other.info.st_dev && info.st_ino == other.info.st_ino &&
            info.st_size == other.info.st_size && info.st_mtim.tv_sec == other.info.st_mtim.tv_sec &&
            info.st_mtim.tv_nsec == other.info.st_mtim.tv_nsec && info.st_ctim.tv_sec == other.info.st_ctim.tv_sec &&
            info.st_ctim.tv_nsec == other.info.st_ctim.tv_nsec && walBeside == other.walBeside;
    }
};

FileStamp stampOf(const std::filesystem::path& file)
{
    FileStamp stamp;
    stamp.present = ::stat(file.c_str(), &stamp.info) == 0;
    std::error_code error;
    stamp.walBeside = std::filesystem::exists(file.string() + "-wal", error) || error;
    return stamp;
}

// "60 secondi", "1 secondo", "300 ms".
std::string waitText(std::chrono::milliseconds wait)
{
    if (wait.count() % 1000 != 0) {
        return std::to_string(wait.count()) + " ms";
    }
    const auto seconds = wait.count() / 1000;
    return std::to_string(seconds) + (seconds == 1 ? " secondo" : " secondi");
}

// Opens the file only to read it. Read immutable when readAsImmutable says
// so (a file this process may only read and nobody has open); otherwise
// with SQLite's locks, waiting up to `busy` for a program that holds the
// file locked. That connection is opened read-write although it only reads
// (query_only forbids it any write): a read-only connection to a database
// in WAL mode leaves -wal and -shm files beside it when it closes, because
// it may not checkpoint, while a read-write one, the last to close, removes
// them. No journal mode is set, no file made that outlives the check.
std::unique_ptr<sqlite3, Closer> openToLook(const std::filesystem::path& file, const std::string& location,
                                            bool immutable, std::chrono::milliseconds busy)
{
    const std::string name = immutable ? immutableSqliteUri(file) : file.string();
    const int flags =
        (immutable ? SQLITE_OPEN_READONLY | SQLITE_OPEN_URI : SQLITE_OPEN_READWRITE) | SQLITE_OPEN_EXRESCODE;
    sqlite3* raw = nullptr;
    const int rc = sqlite3_open_v2(name.c_str(), &raw, flags, nullptr);
    std::unique_ptr<sqlite3, Closer> db(raw);
    if (rc != SQLITE_OK) {
        throw DataError("impossibile aprire " + location + ": " +
                        std::string(db != nullptr ? sqlite3_errmsg(db.get()) : sqlite3_errstr(rc)));
    }
    if (!immutable) {
        sqlite3_busy_timeout(db.get(), static_cast<int>(std::max<std::chrono::milliseconds::rep>(busy.count(), 0)));
        sqlite3_exec(db.get(), "PRAGMA query_only = ON", nullptr, nullptr, nullptr);
    }
    return db;
}

// Runs `sql` and gives the first column of its first row as text in
// `value`: true for a row, false for none or a failure, which is then put in
// `look` (Locked for a file still locked after the wait).
bool firstValue(sqlite3* db, const char* sql, std::string& value, Look& look)
{
    value.clear();
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
    switch (rc & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        look.kind = Look::Locked;
        break;
    case SQLITE_CANTOPEN:
        look.kind = Look::Unopenable;
        break;
    default:
        look.kind = Look::Failed;
        break;
    }
    look.message = sqlite3_errmsg(db);
    return false;
}

Look lookInside(const std::filesystem::path& file, const std::string& location, bool immutable,
                std::chrono::milliseconds busy)
{
    const auto db = openToLook(file, location, immutable, busy);
    Look look;
    std::string value;
    if (!firstValue(db.get(), "SELECT count(*) FROM sqlite_schema WHERE type = 'table' AND name = 'Versioni'", value,
                    look)) {
        return look;
    }
    if (value != "1") {
        look.kind = Look::NoVersioni;
    } else if (firstValue(db.get(), "SELECT Versione FROM Versioni", value, look)) {
        look.kind = Look::Complete;
    } else if (look.kind == Look::None) {
        look.kind = Look::Incomplete;
    }
    return look;
}

} // namespace

void requireSqlitePracticeDatabase(const std::string& location, std::chrono::milliseconds wait)
{
    const std::string file = sqliteDatabaseFile(location);
    if (file.empty()) {
        return; // in memory: nothing on disk to look at
    }
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status)) {
        throw DataError("nessun database delle pratiche in " + location + " (per crearne uno: avlor db init " +
                        location + ")");
    }
    if (std::filesystem::is_directory(status)) {
        throw DataError(location + " è una cartella, non un database delle pratiche");
    }
    if (!std::filesystem::is_regular_file(status)) {
        throw DataError(location + " non è un database delle pratiche (non è un file regolare)");
    }
    if (std::filesystem::file_size(file, error) == 0 && !error) {
        throw DataError(location + " non è un database delle pratiche (il file è vuoto)");
    }
    const auto deadline = Clock::now() + wait;
    Look look;
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        const bool immutable = readAsImmutable(file);
        const FileStamp before = immutable ? stampOf(file) : FileStamp{};
        look = lookInside(file, location, immutable, left);
        // Read without locks: if a program began writing the file meanwhile
        // (a "-wal" beside it now, or the file itself changed), what was read
        // may be half-written. Look again: through the writer's files while
        // it is at work, or immutable again once it has finished.
        if (!immutable || stampOf(file) == before) {
            break;
        }
        if (Clock::now() >= deadline) {
            look.kind = Look::Locked;
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    switch (look.kind) {
    case Look::Complete:
        return;
    case Look::NoVersioni:
        throw DataError(location + " non è un database delle pratiche (non contiene la tabella Versioni)");
    case Look::Incomplete:
        throw DataError(location +
                        " è un database delle pratiche incompleto: la sua creazione non è mai finita; eliminarlo ed "
                        "eseguire di nuovo avlor db init");
    case Look::Locked:
        throw DataError(location + ": il database è bloccato da un'altra scrittura da più di " + waitText(wait));
    case Look::Unopenable:
        throw DataError("impossibile aprire " + location + ": " + look.message);
    case Look::None:
    case Look::Failed:
        break;
    }
    throw DataError(location + " non è un database delle pratiche (" + look.message + ")");
}

} // namespace avlor
