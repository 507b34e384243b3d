// Two writers on one SQLite file (two imports at once, two workstations): the
// second waits for the first as long as a person would, instead of failing
// after a few seconds with "database is locked".
#include <gtest/gtest.h>

#include <sqlite3.h>

#include <chrono>
#include <thread>

#include "TestDatabase.h"
#include "avlor/data/Connection.h"
#include "avlor/data/Database.h"

namespace avlor::test {
namespace {

TEST(WaitForWriter, AWriteWaitsForAnotherProgramsTransaction)
{
    AVLOR_SQLITE_ONLY("the server waits on its own locks; see ServerHardening");
    TestDatabase db;
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(db.location().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE; INSERT INTO Utenti (NomeUtente) VALUES ('Altro')", nullptr, nullptr,
                           nullptr),
              SQLITE_OK);
    std::thread release([other] {
        // Longer than the five seconds a writer used to wait.
        std::this_thread::sleep_for(std::chrono::seconds(7));
        sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr);
    });
    const auto connection = connectionFor(db.location());
    const auto started = std::chrono::steady_clock::now();
    EXPECT_NO_THROW({
        TransactionScope transaction(connection);
        connection->executeScript("INSERT INTO Utenti (NomeUtente) VALUES ('Questo')");
        transaction.commit();
    });
    EXPECT_GE(std::chrono::steady_clock::now() - started, std::chrono::seconds(6));
    release.join();
    sqlite3_close(other);
    EXPECT_EQ(connection->singleValue("SELECT count(*) FROM Utenti WHERE NomeUtente IN ('Altro', 'Questo')").asLong(),
              2);
}

} // namespace
} // namespace avlor::test
