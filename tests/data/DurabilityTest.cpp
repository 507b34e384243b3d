// Durability: every written row is committed when its call returns, a
// process killed between or during writes leaves a sound database with
// whole rows only, and two processes wait for each other instead of failing.
#include <chrono>
#include <thread>

#include <csignal>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "TestDatabase.h"
#include "avlor/data/DataError.h"
#include "avlor/data/clsAccessoDati.h"

namespace avlor {
namespace {

// A raw SQLite handle on the file, as another program would open it.
class RawHandle {
public:
    explicit RawHandle(const std::string& file)
    {
        if (sqlite3_open_v2(file.c_str(), &db_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
            throw std::runtime_error("cannot open " + file);
        }
        sqlite3_busy_timeout(db_, 5000);
    }
    ~RawHandle() { sqlite3_close_v2(db_); }
    RawHandle(const RawHandle&) = delete;
    RawHandle& operator=(const RawHandle&) = delete;

    std::string text(const std::string& sql) const
    {
        sqlite3_stmt* statement = nullptr;
        std::string result;
        if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr) == SQLITE_OK &&
            sqlite3_step(statement) == SQLITE_ROW && sqlite3_column_text(statement, 0) != nullptr) {
            result = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
        }
        sqlite3_finalize(statement);
        return result;
    }
    int exec(const std::string& sql) const { return sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr); }

private:
    sqlite3* db_ = nullptr;
};

// Writes action number `n` of case 100 through the record-access layer:
// each field tells the row's number, so a half-written row shows.
void writeAction(int n)
{
    clsAccessoDati data;
    data.Apri("Azioni", 1, 3, -1);
    data.Recordset().AddNew();
    data.ImpostaCampo("IdPra", Value(100));
    data.ImpostaCampo("NOrdine", Value(n));
    data.ImpostaCampo("Descr", Value("row " + std::to_string(n)));
    data.ImpostaCampo("Onorari", Value(Currency::fromWhole(n)));
    data.ImpostaCampo("Data", Value("02/06/2004"));
    data.ImpostaCampo("IsTariffa", Value(true));
    data.Recordset().Update();
}

// The database is sound and holds rows 1..count of case 100, each whole.
void expectWholeRows(const std::string& file, int atLeast, int atMost)
{
    RawHandle raw(file);
    EXPECT_EQ(raw.text("PRAGMA integrity_check"), "ok");
    const int count = std::stoi(raw.text("SELECT Count(*) FROM Azioni WHERE IdPra = 100"));
    EXPECT_GE(count, atLeast);
    EXPECT_LE(count, atMost);
    EXPECT_EQ(raw.text("SELECT Count(*) FROM Azioni WHERE IdPra = 100 AND NOT (Descr = 'row ' || NOrdine AND "
                       "Onorari = NOrdine * 10000 AND Data = '2004-06-02' AND IsTariffa = 'True')"),
              "0");
    EXPECT_EQ(raw.text("SELECT Coalesce(Max(NOrdine), 0) FROM Azioni WHERE IdPra = 100"), std::to_string(count));
}

// The checks here read the SQLite file with SQLite's own handle, its
// journal and its locks; the server's side of the same promises (killed
// writers, two writers at once) is tested in tests/postgresql.
constexpr const char* SqliteFileChecks = "the test reads the database file with SQLite's own handle";

int waitFor(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

TEST(Durability, ConnectionSettings)
{
    AVLOR_SQLITE_ONLY(SqliteFileChecks);
    test::TestDatabase db;
    EXPECT_EQ(db.value("SELECT * FROM pragma_journal_mode").asText(), "wal");
    EXPECT_EQ(db.value("SELECT * FROM pragma_synchronous").asLong(), 2); // FULL
    EXPECT_EQ(db.value("SELECT * FROM pragma_busy_timeout").asLong(), 60000); // a writer waits a minute for another
    EXPECT_THROW((void)db.value("PRAGMA synchronous = OFF"), DataError);
    RawHandle raw(db.location());
    EXPECT_EQ(raw.text("PRAGMA journal_mode"), "wal"); // kept in the file
}

TEST(Durability, RowsWrittenBeforeAnErrorStay)
{
    AVLOR_SQLITE_ONLY(SqliteFileChecks);
    test::TestDatabase db;
    writeAction(1);
    writeAction(2);
    clsAccessoDati data;
    data.Apri("SELECT * FROM Azioni WHERE IdPra = 100 ORDER BY NOrdine", 1, 3, -1);
    data.ImpostaCampo("Descr", Value("row 1"));
    data.Recordset().Update();
    data.ImpostaCampo("NOrdine", Value(40000)); // refused by the table
    EXPECT_THROW(data.Recordset().Update(), DataError);
    expectWholeRows(db.location(), 2, 2);
}

// The writer kills itself right after its 25th row: every row it wrote is
// there, without any orderly close.
TEST(Durability, ProcessKilledAfterItsWrites)
{
    AVLOR_SQLITE_ONLY(SqliteFileChecks);
    test::TestDatabase db;
    closeConnections(); // no connection crosses the fork
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        for (int n = 1; n <= 25; ++n) {
            writeAction(n);
        }
        raise(SIGKILL);
        _exit(1);
    }
    const int status = waitFor(child);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGKILL);
    expectWholeRows(db.location(), 25, 25);
    writeAction(26); // and the database goes on working
    expectWholeRows(db.location(), 26, 26);
}

// The writer is killed from outside while it writes as fast as it can.
TEST(Durability, ProcessKilledWhileWriting)
{
    AVLOR_SQLITE_ONLY(SqliteFileChecks);
    test::TestDatabase db;
    closeConnections();
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        for (int n = 1; n <= 30000; ++n) {
            writeAction(n);
        }
        _exit(0);
    }
    {
        RawHandle raw(db.location());
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (std::chrono::steady_clock::now() < deadline) {
            const std::string count = raw.text("SELECT Count(*) FROM Azioni WHERE IdPra = 100");
            if (!count.empty() && std::stoi(count) >= 40) {
                break;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }
    kill(child, SIGKILL);
    const int status = waitFor(child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the writer finished before it could be killed";
    expectWholeRows(db.location(), 40, 30000);
}

// Another process holds the write lock for a while: a write here waits for
// it and then succeeds.
TEST(Durability, SecondProcessWaitsForTheWriter)
{
    AVLOR_SQLITE_ONLY(SqliteFileChecks);
    test::TestDatabase db;
    closeConnections();
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        close(ready[0]);
        {
            RawHandle raw(db.location());
            raw.exec("BEGIN IMMEDIATE");
            raw.exec("INSERT INTO Azioni (IdPra, NOrdine, Descr, Onorari, Data, IsTariffa) "
                     "VALUES (100, 1, 'row 1', 10000, '2004-06-02', 'True')");
            const char go = 'x';
            (void)!write(ready[1], &go, 1);
            std::this_thread::sleep_for(std::chrono::milliseconds(400));
            raw.exec("COMMIT");
        }
        _exit(0);
    }
    close(ready[1]);
    char go = 0;
    ASSERT_EQ(read(ready[0], &go, 1), 1);
    close(ready[0]);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_NO_THROW(writeAction(2));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(200));
    EXPECT_EQ(waitFor(child), 0);
    expectWholeRows(db.location(), 2, 2);
}

} // namespace
} // namespace avlor
