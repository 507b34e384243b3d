#include "avlor/data/NewPracticeDatabase.h"

#include <cerrno>
#include <cstring>

#include <signal.h>
#include <unistd.h>

#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"
#include "postgresql/PgConnection.h"
#include "postgresql/PgLocation.h"
#include "sqlite/SqliteDatabase.h"

namespace avlor {

namespace {

void removeFileAndCompanions(const std::filesystem::path& file) noexcept { removeSqliteFiles(file); }

// Removes the databases in the making of runs that were killed: those whose
// process is gone, with their companion files, and a companion file left
// alone when a run was killed while removing its database.
void removeAbandoned(const std::filesystem::path& folder, const std::string& hidden) noexcept
{
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        const std::string name = entry.path().filename().string();
        if (name.rfind(hidden, 0) != 0) {
            continue;
        }
        std::string digits = name.substr(hidden.size());
        for (const std::string_view companion : {"-wal", "-shm", "-journal"}) {
            if (digits.ends_with(companion)) {
                digits.resize(digits.size() - companion.size());
                break;
            }
        }
        if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos || digits.size() > 9) {
            continue;
        }
        const auto pid = static_cast<pid_t>(std::stol(digits));
        if (::kill(pid, 0) != 0 && errno == ESRCH) {
            removeFileAndCompanions(folder / (hidden + digits));
        }
    }
}

} // namespace

NewPracticeDatabase::NewPracticeDatabase(std::string location) : location_(std::move(location))
{
    if (location_.empty()) {
        throw DataError("Non è stata indicata la posizione del database");
    }
    if (isPgLocation(location_)) {
        fill_ = location_;
        server_ = std::dynamic_pointer_cast<PgConnection>(connectionFor(location_));
        if (server_ == nullptr) {
            throw DataError("Non è una connessione PostgreSQL", shownPgLocation(location_));
        }
        server_->holdTransaction();
        try {
            server_->installSchema();
        } catch (...) {
            discard();
            throw;
        }
        return;
    }
    const SqliteLocation where = sqliteLocation(location_);
    if (where.inMemory) {
        throw DataError("Un database in memoria sparisce alla chiusura del programma; indicare un file per il database "
                        "delle pratiche",
                        location_);
    }
    file_ = where.file;
    std::error_code error;
    const auto status = std::filesystem::symlink_status(file_, error);
    if (std::filesystem::is_directory(status)) {
        throw DataError(
            "Questa posizione è una cartella; indicare un file al suo interno per il database delle pratiche",
            location_);
    }
    if (std::filesystem::exists(status)) {
        throw DataError("In questa posizione esiste già un database; è stato lasciato com'era", location_);
    }
    // The folders that do not exist yet. The database is built in the
    // nearest folder that exists and the missing ones are made only when it
    // is put in place: a run killed on the way leaves no folder behind.
    const std::filesystem::path folder = std::filesystem::absolute(file_).parent_path();
    std::filesystem::path existing = folder;
    for (; !existing.empty() && !std::filesystem::exists(existing, error); existing = existing.parent_path()) {
        folders_.insert(folders_.begin(), existing);
        if (existing == existing.parent_path()) {
            break;
        }
    }
    if (!std::filesystem::is_directory(existing, error)) {
        throw DataError("Impossibile creare la cartella del database: " + existing.string() + " non è una cartella",
                        location_);
    }
    const std::string hidden = "." + file_.filename().string() + ".nuovo-";
    removeAbandoned(existing, hidden);
    fill_ = (existing / (hidden + std::to_string(::getpid()))).string();
    removeFileAndCompanions(fill_); // left by a killed run of a process with the same id
    try {
        createPracticeDatabase(fill_);
    } catch (...) {
        discard();
        throw;
    }
}

NewPracticeDatabase::~NewPracticeDatabase()
{
    if (!published_) {
        discard();
    }
}

void NewPracticeDatabase::grantWorkstationRole(const std::string& role)
{
    if (server_ == nullptr) {
        throw DataError("I ruoli delle postazioni esistono solo su un server PostgreSQL", location_);
    }
    bool plain = !role.empty() && role.size() <= 63 && (role.front() < '0' || role.front() > '9');
    for (const char c : role) {
        plain = plain && ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_');
    }
    if (!plain) {
        throw DataError("'" + role +
                        "' non è un semplice nome di ruolo (lettere, cifre e '_', senza una cifra all'inizio)");
    }
    const std::string grantee = "\"" + role + "\"";
    const PgResult schema = server_->query("SELECT pg_catalog.quote_ident(pg_catalog.current_schema())", {}, "schema");
    const std::string in = PQgetvalue(schema.get(), 0, 0);
    for (const std::string& grant :
         {"GRANT USAGE ON SCHEMA " + in + " TO " + grantee,
          "GRANT SELECT, INSERT, UPDATE, DELETE ON ALL TABLES IN SCHEMA " + in + " TO " + grantee,
          // USAGE draws the next id; UPDATE (setval) is left out on purpose.
          "GRANT USAGE, SELECT ON ALL SEQUENCES IN SCHEMA " + in + " TO " + grantee}) {
        (void)server_->write(grant, {}, grant);
    }
}

void NewPracticeDatabase::publish()
{
    if (server_ != nullptr) {
        try {
            server_->commitHeldTransaction();
        } catch (...) {
            discard();
            throw;
        }
        published_ = true;
        return;
    }
    // Closing the last connection folds the write-ahead log into the file,
    // so that the one file holds the whole database.
    closeConnections(fill_);
    std::error_code error;
    if (std::filesystem::exists(fill_ + "-wal", error)) {
        discard();
        throw DataError("Il nuovo database è ancora in uso e non si può mettere al suo posto", location_);
    }
    for (const auto& folder : folders_) {
        if (std::filesystem::create_directory(folder, error)) {
            made_.push_back(folder);
        } else if (error) {
            discard();
            throw DataError("Impossibile creare la cartella del database: " + error.message(), location_);
        }
    }
    // link() never replaces an existing file: a database that appeared
    // meanwhile stays as it is.
    if (::link(fill_.c_str(), file_.c_str()) != 0) {
        const int failure = errno;
        discard();
        if (failure == EEXIST) {
            throw DataError("In questa posizione esiste già un database; è stato lasciato com'era", location_);
        }
        throw DataError(std::string("Impossibile mettere al suo posto il nuovo database: ") + std::strerror(failure),
                        location_);
    }
    published_ = true;
    removeFileAndCompanions(fill_);
}

void NewPracticeDatabase::discard() noexcept
{
    if (server_ != nullptr) {
        server_->rollbackHeldTransaction();
        return;
    }
    if (!fill_.empty()) {
        closeConnections(fill_);
        removeFileAndCompanions(fill_);
    }
    std::error_code ignored;
    for (auto folder = made_.rbegin(); folder != made_.rend(); ++folder) {
        std::filesystem::remove(*folder, ignored); // only when empty
    }
    made_.clear();
}

} // namespace avlor
