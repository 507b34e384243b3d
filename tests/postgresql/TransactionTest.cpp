// Transactions of the data layer, on both backends: several writes kept
// together or not at all, unseen by other connections until committed.
#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>

#include "TestDatabase.h"
#include "avlor/data/Connection.h"
#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"
#include "avlor/data/InjectedFault.h"
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

// ---- Taking turns on one key ------------------------------------------------

TEST_F(Transactions, ALockIsTakenInsideATransactionOnly)
{
    EXPECT_THROW(db.connection()->lockForTransaction(5, 7), DataError);
}

TEST_F(Transactions, OneKeyIsHeldByOneTransactionAtATime)
{
    if (!TestDatabase::onPostgresql()) {
        GTEST_SKIP() << "SQLite lets one writer at a time into the whole file: there is no key to wait on";
    }
    const std::shared_ptr<Connection> mine = db.connection();
    const std::shared_ptr<Connection> other = otherConnection();
    TransactionScope first(mine);
    mine->lockForTransaction(5, 7);

    other->setStatementTimeLimit(std::chrono::milliseconds(300));
    {
        // Another key, even of the same space, is free.
        TransactionScope second(other);
        EXPECT_NO_THROW(other->lockForTransaction(5, 8));
        EXPECT_NO_THROW(other->lockForTransaction(6, 7));
        second.commit();
    }
    {
        TransactionScope second(other);
        try {
            other->lockForTransaction(5, 7);
            ADD_FAILURE() << "the key was taken twice";
        } catch (const DataError& error) {
            // The wait for the key: a tenth less than the 300 ms limit.
            EXPECT_NE(std::string(error.what()).find("bloccate in scrittura per 270 ms"), std::string::npos)
                << error.what();
        }
    }
    first.commit();
    // Released with the transaction that held it.
    TransactionScope second(other);
    EXPECT_NO_THROW(other->lockForTransaction(5, 7));
    second.commit();
    other->setStatementTimeLimit(Connection::DefaultStatementTimeLimit);
}

// ---- The switch that fails the k-th call ------------------------------------

TEST_F(Transactions, AnInjectedFaultFailsTheChosenCallOnly)
{
    const std::shared_ptr<Connection> connection = db.connection();
    InjectedFault fault(3);
    connection->beginTransaction(); // 1: begin
    clsAccessoDati data(connection);
    data.Apri("Azioni", 1, 3, -1); // 2: open
    data.Recordset().AddNew();
    data.ImpostaCampo("IdPra", Value(std::int32_t{100}));
    try {
        data.Recordset().Update(); // 3: update
        ADD_FAILURE() << "the third call did not fail";
    } catch (const DataError& error) {
        EXPECT_EQ(std::string(error.what()), "Guasto simulato alla chiamata al database numero 3 (update)");
    }
    EXPECT_TRUE(fault.fired());
    EXPECT_EQ(fault.firedAt(), "update");
    data.Recordset().Update(); // 4: works again
    connection->commitTransaction(); // 5: commit
    EXPECT_EQ(fault.calls(), 5);
    EXPECT_EQ(actions(connection), 1);
}

TEST_F(Transactions, AnInjectedFailureOfTheCommitKeepsNothing)
{
    const std::shared_ptr<Connection> connection = db.connection();
    {
        InjectedFault fault(4);
        TransactionScope transaction(connection); // 1
        clsAccessoDati data(connection);
        data.Apri("Azioni", 1, 3, -1); // 2
        data.Recordset().AddNew();
        data.ImpostaCampo("IdPra", Value(std::int32_t{100}));
        data.Recordset().Update(); // 3
        EXPECT_THROW(transaction.commit(), DataError); // 4
        EXPECT_EQ(fault.firedAt(), "commit");
    }
    EXPECT_FALSE(connection->inTransaction());
    EXPECT_EQ(actions(connection), 0);
    // The connection goes on as before.
    TransactionScope transaction(connection);
    clsAccessoDati data(connection);
    data.Apri("Azioni", 1, 3, -1);
    data.Recordset().AddNew();
    data.ImpostaCampo("IdPra", Value(std::int32_t{100}));
    data.Recordset().Update();
    transaction.commit();
    EXPECT_EQ(actions(connection), 1);
}

TEST_F(Transactions, OnlyOneInjectedFaultAtATime)
{
    InjectedFault first(0);
    EXPECT_THROW(InjectedFault second(1), std::logic_error);
    static_cast<void>(db.connection()->singleValue("SELECT Count(*) FROM Azioni"));
    EXPECT_EQ(first.calls(), 1);
    EXPECT_FALSE(first.fired());
}

TEST_F(Transactions, WithoutAnInjectedFaultNothingIsCountedOrFailed)
{
    {
        InjectedFault fault(1);
    }
    EXPECT_EQ(actions(db.connection()), 0);
}

} // namespace
} // namespace avlor::test
