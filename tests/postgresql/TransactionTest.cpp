// Transactions of the data layer, on both backends: several writes kept
// together or not at all, unseen by other connections until committed.
#include <gtest/gtest.h>

#include <stdexcept>

#include "TestDatabase.h"
#include "avlor/data/Connection.h"
#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"
#include "avlor/data/clsAccessoDati.h"

namespace avlor::test {
namespace {

class Transactions : public testing::Test {
protected:
    // Another connection to the same database, as another program has.
    std::shared_ptr<Connection> otherConnection() const
    {
        if (TestDatabase::onPostgresql()) {
            return connectionFor(db.location() + "?application_name=avlor_altro");
        }
        return connectionFor("file:" + db.location());
    }

    std::int64_t actions(const std::shared_ptr<Connection>& connection) const
    {
        return connection->singleValue("SELECT Count(*) FROM Azioni").asLong();
    }

    void TearDown() override
    {
        closeConnections(TestDatabase::onPostgresql() ? db.location() + "?application_name=avlor_altro"
                                                      : "file:" + db.location());
    }

    TestDatabase db;
};

TEST_F(Transactions, CommitKeepsEveryWrite)
{
    const auto connection = db.connection();
    {
        TransactionScope transaction(connection);
        EXPECT_TRUE(connection->inTransaction());
        const Value first = db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Descr", Value("uno")}});
        db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Descr", Value("due")}});
        clsAccessoDati data(connection);
        data.Apri("SELECT * FROM Azioni WHERE IdAzione = " + std::to_string(first.asLong()), 1, 3, -1);
        data.ImpostaCampo("Descr", Value("uno bis"));
        data.Recordset().Update();
        db.exec("INSERT INTO Azioni (IdPra, Descr) VALUES (5, 'tre'); DELETE FROM Azioni WHERE Descr = 'due'");
        EXPECT_EQ(actions(otherConnection()), 0); // nothing seen before the commit
        transaction.commit();
    }
    EXPECT_FALSE(connection->inTransaction());
    EXPECT_EQ(actions(otherConnection()), 2);
    const auto rows = db.rows("SELECT Descr FROM Azioni ORDER BY IdAzione");
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0][0].asText(), "uno bis");
    EXPECT_EQ(rows[1][0].asText(), "tre");
}

TEST_F(Transactions, LeavingWithoutCommitKeepsNothing)
{
    db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Descr", Value("prima")}});
    const auto connection = db.connection();
    EXPECT_THROW(
        {
            TransactionScope transaction(connection);
            db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Descr", Value("dentro")}});
            db.exec("UPDATE Azioni SET Descr = 'cambiata'");
            throw std::runtime_error("the routine fails");
        },
        std::runtime_error);
    EXPECT_FALSE(connection->inTransaction());
    const auto rows = db.rows("SELECT Descr FROM Azioni");
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0][0].asText(), "prima");
    // The connection writes on its own again.
    db.insertRow("Azioni", {{"IdPra", Value(5)}});
    EXPECT_EQ(actions(otherConnection()), 2);
}

TEST_F(Transactions, AFailedWriteEndsTheUnitWithNothingKept)
{
    const auto connection = db.connection();
    {
        TransactionScope transaction(connection);
        db.insertRow("Azioni", {{"IdPra", Value(5)}});
        // Refused by the table (order numbers are 16-bit).
        EXPECT_THROW(db.insertRow("Azioni", {{"IdPra", Value(5)}, {"NOrdine", Value(40000)}}), DataError);
    }
    EXPECT_EQ(actions(connection), 0);
}

TEST_F(Transactions, AFailingScriptUndoesItselfOnly)
{
    const auto connection = db.connection();
    {
        TransactionScope transaction(connection);
        db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Descr", Value("prima")}});
        EXPECT_THROW(db.exec("INSERT INTO Azioni (IdPra, Descr) VALUES (5, 'script'); INSERT INTO Nowhere VALUES (1)"),
                     DataError);
        db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Descr", Value("dopo")}});
        transaction.commit();
    }
    const auto rows = db.rows("SELECT Descr FROM Azioni ORDER BY IdAzione");
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0][0].asText(), "prima");
    EXPECT_EQ(rows[1][0].asText(), "dopo");
}

TEST_F(Transactions, DoNotNest)
{
    const auto connection = db.connection();
    EXPECT_THROW(connection->commitTransaction(), DataError);
    EXPECT_NO_THROW(connection->rollbackTransaction());
    TransactionScope transaction(connection);
    EXPECT_THROW(TransactionScope{connection}, DataError);
    EXPECT_TRUE(connection->inTransaction());
    transaction.commit();
    EXPECT_FALSE(connection->inTransaction());
}

} // namespace
} // namespace avlor::test
