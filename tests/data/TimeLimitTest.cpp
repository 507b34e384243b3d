// A statement that runs away (a recursive query or a sleep put into an id)
// is stopped at the time limit on both backends, with a message that says
// so, and the connection goes on serving.
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "TestDatabase.h"
#include "avlor/data/Connection.h"
#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"

namespace avlor::test {
namespace {

TEST(TimeLimit, ARunawayQueryIsStoppedAtTheLimit)
{
    TestDatabase db;
    const auto connection = connectionFor(db.location());
    connection->setStatementTimeLimit(std::chrono::milliseconds(300));
    // A recursive query without an end, as an id can carry it.
    const std::string endless =
        "SELECT (WITH RECURSIVE r(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM r) SELECT count(*) FROM r)";
    const auto started = std::chrono::steady_clock::now();
    try {
        (void)connection->singleValue(endless);
        ADD_FAILURE() << "the query ran to an end";
    } catch (const DataError& e) {
        EXPECT_EQ(std::string(e.what()),
                  "L'istruzione ha superato il tempo massimo di 300 ms ed è stata fermata [" + endless + "]");
    }
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(10));
    // Record sets are stopped the same way.
    EXPECT_THROW((void)connection->open(endless, false), DataError);
    EXPECT_EQ(connection->singleValue("SELECT Versione FROM Versioni").asLong(), 1);
}

TEST(TimeLimit, TheDefaultLimitIsAMinute)
{
    EXPECT_EQ(Connection::DefaultStatementTimeLimit, std::chrono::seconds(60));
    EXPECT_EQ(timeLimitText(std::chrono::seconds(60)), "60 secondi");
    EXPECT_EQ(timeLimitText(std::chrono::seconds(1)), "1 secondo");
    EXPECT_EQ(timeLimitText(std::chrono::milliseconds(1500)), "1500 ms");
}

} // namespace
} // namespace avlor::test
