// The look at a location before it is used: a SQLite file another program
// keeps locked while it writes is waited for and then read, or reported as
// locked once the wait is over; what is not a complete practice database is
// named for what it is.
#include <gtest/gtest.h>

#include <sqlite3.h>

#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "TestDatabase.h"
#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"

namespace avlor::test {
namespace {

// Another program writing the file: a connection that holds it locked (its
// own locking mode exclusive, a write transaction open) until release().
class LockingWriter {
public:
    explicit LockingWriter(const std::string& file)
    {
        EXPECT_EQ(sqlite3_open(file.c_str(), &db_), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(db_,
                               "PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE; "
                               "INSERT INTO Utenti (NomeUtente) VALUES ('Altro')",
                               nullptr, nullptr, nullptr),
                  SQLITE_OK)
            << sqlite3_errmsg(db_);
    }
    LockingWriter(const LockingWriter&) = delete;
    LockingWriter& operator=(const LockingWriter&) = delete;
    ~LockingWriter() { release(); }

    // Commits and closes: the lock goes with the connection.
    void release()
    {
        if (db_ != nullptr) {
            sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr);
            sqlite3_close(db_);
            db_ = nullptr;
        }
    }

private:
    sqlite3* db_ = nullptr;
};

std::string failureOf(const std::string& location, std::chrono::milliseconds wait = std::chrono::seconds(60))
{
    try {
        requirePracticeDatabase(location, wait);
    } catch (const DataError& e) {
        return e.what();
    }
    return "";
}

TEST(PracticeCheck, AFileLockedByAWriterIsWaitedForAndThenRead)
{
    AVLOR_SQLITE_ONLY("a server's reads never wait for its writers");
    TestDatabase db;
    closeConnections(db.location()); // the writer below locks the whole file
    LockingWriter writer(db.location());
    std::thread releasing([&writer] {
        std::this_thread::sleep_for(std::chrono::milliseconds(1500));
        writer.release();
    });
    const auto started = std::chrono::steady_clock::now();
    EXPECT_EQ(failureOf(db.location()), "");
    EXPECT_GE(std::chrono::steady_clock::now() - started, std::chrono::seconds(1));
    releasing.join();
    EXPECT_EQ(db.value("SELECT count(*) FROM Utenti WHERE NomeUtente = 'Altro'").asLong(), 1);
}

TEST(PracticeCheck, AFileLockedPastTheWaitIsReportedLocked)
{
    AVLOR_SQLITE_ONLY("a server's reads never wait for its writers");
    TestDatabase db;
    closeConnections(db.location());
    LockingWriter writer(db.location());
    const auto started = std::chrono::steady_clock::now();
    EXPECT_EQ(failureOf(db.location(), std::chrono::milliseconds(400)),
              db.location() + ": il database è bloccato da un'altra scrittura da più di 400 ms");
    EXPECT_GE(std::chrono::steady_clock::now() - started, std::chrono::milliseconds(300));
    EXPECT_EQ(failureOf(db.location(), std::chrono::seconds(1)),
              db.location() + ": il database è bloccato da un'altra scrittura da più di 1 secondo");
    writer.release();
    EXPECT_EQ(failureOf(db.location(), std::chrono::milliseconds(400)), "");
}

// Another program writing the file over and over, each write on a
// connection of its own as a run of the command makes it: opened, one
// transaction, closed. The last connection to close copies the log back into
// the file under an exclusive lock and removes it; each write here carries
// a large row, so that copy takes a while. Runs until `stop` exists; exits 0
// when every write went in.
[[noreturn]] void writeUntil(const std::string& file, const std::filesystem::path& stop)
{
    int failures = 0;
    int written = 0;
    while (!std::filesystem::exists(stop)) {
        sqlite3* db = nullptr;
        if (sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
            ++failures;
        } else {
            sqlite3_busy_timeout(db, 60000);
            const std::string sql =
                "BEGIN IMMEDIATE; DELETE FROM Utenti WHERE NomeUtente LIKE 'Zavorra%'; "
                "INSERT INTO Utenti (NomeUtente) VALUES ('Zavorra' || printf('%.*c', 100000, 'x')); "
                "INSERT INTO Utenti (NomeUtente) VALUES ('Scrittore " +
                std::to_string(written) + "'); COMMIT";
            if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK) {
                ++written;
            } else {
                ++failures;
            }
        }
        sqlite3_close(db);
    }
    ::_exit(failures == 0 && written > 0 ? 0 : 1);
}

TEST(PracticeCheck, ManyChecksWhileAnotherProgramWritesAreNeverRefused)
{
    AVLOR_SQLITE_ONLY("a server's reads never wait for its writers");
    TestDatabase db;
    closeConnections(db.location()); // only the writer and the checks use the file
    const std::filesystem::path stop = db.folder() / "basta";
    const pid_t writer = ::fork();
    ASSERT_GE(writer, 0);
    if (writer == 0) {
        writeUntil(db.location(), stop);
    }
    constexpr int threads = 4;
    constexpr int checksEach = 750;
    std::atomic<int> passed{0};
    std::vector<std::string> refusals(threads);
    std::vector<std::thread> checking;
    for (std::size_t t = 0; t < threads; ++t) {
        checking.emplace_back([&, t] {
            for (int i = 0; i < checksEach; ++i) {
                const std::string failure = failureOf(db.location());
                if (failure.empty()) {
                    ++passed;
                } else if (refusals[t].empty()) {
                    refusals[t] = failure;
                }
            }
        });
    }
    for (auto& thread : checking) {
        thread.join();
    }
    std::ofstream(stop).close();
    int status = -1;
    ::waitpid(writer, &status, 0);
    EXPECT_EQ(passed.load(), threads * checksEach);
    for (const std::string& refusal : refusals) {
        EXPECT_EQ(refusal, "");
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_GT(db.value("SELECT count(*) FROM Utenti WHERE NomeUtente LIKE 'Scrittore %'").asLong(), 0);
}

TEST(PracticeCheck, WhatIsNotACompletePracticeDatabaseIsNamed)
{
    TestDatabase db;
    db.exec("DELETE FROM Versioni");
    const std::string again = TestDatabase::onPostgresql() ? "svuotare il database" : "eliminarlo";
    EXPECT_EQ(failureOf(db.location()),
              shownLocation(db.location()) +
                  " è un database delle pratiche incompleto: la sua creazione non è mai finita; " + again +
                  " ed eseguire di nuovo avlor db init");
    if (TestDatabase::onPostgresql()) {
        return;
    }
    const std::string folder = db.folder().string();
    EXPECT_EQ(failureOf(folder), folder + " è una cartella, non un database delle pratiche");
    EXPECT_EQ(failureOf("/dev/null"), "/dev/null non è un database delle pratiche (non è un file regolare)");
}

} // namespace
} // namespace avlor::test
