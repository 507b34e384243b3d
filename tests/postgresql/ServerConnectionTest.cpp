// The connection to the server: what each failure to connect says, a
// database without the practice schema, making a practice database, and a
// lost session that the next operation replaces by itself.
#include <gtest/gtest.h>

#include "ServerSupport.h"
#include "TestDatabase.h"
#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/data/clsValoreSql.h"
#include "avlor/data/queries/clsDataBase.h"

namespace avlor::test {
namespace {

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// Puts back the database the host had set.
class ScopedHostDatabase {
public:
    ScopedHostDatabase() : previous_(databaseSetByHost()) { }
    ~ScopedHostDatabase() { setCurrentDatabase(previous_); }
    ScopedHostDatabase(const ScopedHostDatabase&) = delete;
    ScopedHostDatabase& operator=(const ScopedHostDatabase&) = delete;

private:
    std::string previous_;
};

// The error of the first operation on `location`; FAIL when there is none.
DataError firstError(const std::string& location)
{
    try {
        (void)connectionFor(location);
    } catch (const DataError& error) {
        return error;
    }
    ADD_FAILURE() << "no error connecting to " << location;
    return DataError("none");
}

TEST(ServerConnection, RefusedConnectionSaysSo)
{
    const std::string location = withPort(TestDatabase::serverUri(), freePort());
    const DataError error = firstError(location);
    EXPECT_EQ(error.driverCode(), "08001");
    EXPECT_TRUE(contains(error.what(), "Impossibile collegarsi al server PostgreSQL")) << error.what();
    EXPECT_TRUE(contains(error.what(), "Connection refused")) << error.what();
    EXPECT_EQ(error.statement(), location);
    // The record-access classes report it the same way; nothing is pooled.
    const ScopedHostDatabase restore;
    setCurrentDatabase(location);
    EXPECT_THROW(clsAccessoDati().Apri("Versioni", 0, 1, -1), DataError);
    EXPECT_EQ(clsDataBase().VersioneMdb().toLong(), -1);
}

TEST(ServerConnection, WrongPasswordSaysSoWithoutShowingIt)
{
    TestDatabase db;
    const std::string location = withUserInfo(db.location(), "avlor_test:sbagliata");
    const DataError error = firstError(location);
    EXPECT_EQ(error.driverCode(), "08001");
    EXPECT_TRUE(contains(error.what(), "password authentication failed for user \"avlor_test\"")) << error.what();
    EXPECT_FALSE(contains(error.what(), "sbagliata")) << error.what();
    EXPECT_TRUE(contains(error.statement(), "avlor_test:***@")) << error.statement();
    // Nothing could be written through it.
    {
        const ScopedHostDatabase restore;
        setCurrentDatabase(location);
        clsAccessoDati data;
        EXPECT_THROW(data.Apri("Azioni", 1, 3, -1), DataError);
    }
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni").asLong(), 0);
}

TEST(ServerConnection, MissingDatabaseSaysSo)
{
    const std::string location = TestDatabase::withDatabase(TestDatabase::serverUri(), "avlor_nessuno");
    const DataError error = firstError(location);
    EXPECT_TRUE(contains(error.what(), "database \"avlor_nessuno\" does not exist")) << error.what();
}

TEST(ServerConnection, DatabaseWithoutTheSchemaSaysSo)
{
    const EmptyServerDatabase empty("schema");
    const ScopedHostDatabase restore;
    setCurrentDatabase(empty.location());
    try {
        clsAccessoDati().Apri("Versioni", 0, 1, -1);
        FAIL();
    } catch (const DataError& error) {
        EXPECT_EQ(error.driverCode(), "42P01");
        EXPECT_EQ(error.statement(), "Versioni");
        EXPECT_TRUE(contains(error.what(), "non contiene lo schema delle pratiche")) << error.what();
        EXPECT_TRUE(contains(error.what(), "relation \"versioni\" does not exist")) << error.what();
    }
    EXPECT_EQ(clsDataBase().VersioneMdb().toLong(), -1);
    // Adding a row fails before anything is made.
    clsAccessoDati data;
    EXPECT_THROW(data.Apri("Azioni", 1, 3, -1), DataError);
    EXPECT_TRUE(connectionFor(empty.location())->tableNames().empty());
}

TEST(ServerConnection, PracticeDatabaseIsMadeInAnEmptyDatabase)
{
    const EmptyServerDatabase empty("nuovo");
    createPracticeDatabase(empty.location());
    const auto connection = connectionFor(empty.location());
    EXPECT_EQ(connection->tableNames().size(), 26U);
    EXPECT_EQ(connection->singleValue("SELECT Versione FROM Versioni").asLong(), 1);
    EXPECT_EQ(connection->singleValue("SELECT Count(*) FROM ConfigGenerale").asLong(), 1);
    EXPECT_EQ(connection->singleValue("SELECT ValutaDefault FROM ConfigGenerale").asText(), "EURO");
    EXPECT_EQ(connection->singleValue("SELECT CambioLiraEuro FROM ConfigGenerale").asCurrency(),
              Currency::fromText("1936.27"));
    // Twice: refused.
    closeConnections(empty.location());
    EXPECT_THROW(createPracticeDatabase(empty.location()), DataError);
    EXPECT_EQ(connectionFor(empty.location())->singleValue("SELECT Count(*) FROM Versioni").asLong(), 1);
}

// A database that holds anything else is refused, and nothing is written.
TEST(ServerConnection, DatabaseWithOtherTablesIsLeftUntouched)
{
    const EmptyServerDatabase other("altro");
    RawSession session(other.location());
    session.exec("CREATE SCHEMA contabilita");
    session.exec("CREATE TABLE contabilita.registro (voce text)");
    try {
        createPracticeDatabase(other.location());
        FAIL();
    } catch (const DataError& error) {
        EXPECT_TRUE(contains(error.what(), "contiene già delle tabelle")) << error.what();
        EXPECT_EQ(error.statement(), other.location());
    }
    EXPECT_EQ(session.text("SELECT count(*) FROM pg_class WHERE relnamespace = 'public'::regnamespace"), "0");
    EXPECT_EQ(session.text("SELECT count(*) FROM pg_proc WHERE proname = 'avlor_segui_chiave'"), "0");
}

// The server ends the session (as when it restarts): the operation under
// way fails with the record-access error, the next one opens a new session.
TEST(ServerConnection, LostSessionIsReplacedByTheNextOperation)
{
    TestDatabase db;
    db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Descr", Value("prima")}});
    const auto connection = db.connection();
    const Value pid = connection->singleValue("SELECT pg_backend_pid()");
    RawSession other(db.location());
    EXPECT_EQ(other.text("SELECT pg_terminate_backend(" + std::to_string(pid.asLong()) + ", 5000)"), "t");

    try {
        clsAccessoDati().Apri("SELECT * FROM Azioni", 0, 1, -1);
        FAIL() << "the lost session went unnoticed";
    } catch (const DataError& error) {
        EXPECT_TRUE(contains(error.what(), "connessione al server PostgreSQL si è interrotta")) << error.what();
        EXPECT_EQ(error.statement(), "SELECT * FROM Azioni");
    }
    clsAccessoDati data;
    data.Apri("SELECT * FROM Azioni", 0, 1, -1);
    EXPECT_EQ(data.Campo("Descr", TipoTesto).asText(), "prima");
    EXPECT_NE(connection->singleValue("SELECT pg_backend_pid()").asLong(), pid.asLong());
    EXPECT_EQ(connectionFor(db.location()), connection); // the same pooled connection
}

// Lost between reading a row and writing it back: that Update fails, the
// next Update writes the row once.
TEST(ServerConnection, WriteAfterALostSession)
{
    TestDatabase db;
    const Value id = db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Descr", Value("prima")}});
    clsAccessoDati data;
    data.Apri("SELECT * FROM Azioni WHERE IdAzione = " + std::to_string(id.asLong()), 1, 3, -1);
    const Value pid = db.connection()->singleValue("SELECT pg_backend_pid()");
    RawSession other(db.location());
    other.exec("SELECT pg_terminate_backend(" + std::to_string(pid.asLong()) + ", 5000)");
    data.ImpostaCampo("Descr", Value("dopo"));
    EXPECT_THROW(data.Recordset().Update(), DataError);
    data.Recordset().Update();
    data.Recordset().AddNew();
    data.ImpostaCampo("IdPra", Value(5));
    data.ImpostaCampo("Descr", Value("nuova"));
    data.Recordset().Update();
    EXPECT_EQ(other.text("SELECT string_agg(Descr, ',' ORDER BY IdAzione) FROM Azioni"), "dopo,nuova");
}

// Lost inside a transaction: nothing of it stays, every operation until the
// rollback fails, and the connection works again afterwards.
TEST(ServerConnection, LostSessionLosesTheTransaction)
{
    TestDatabase db;
    const auto connection = db.connection();
    {
        TransactionScope transaction(connection);
        db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Descr", Value("nella transazione")}});
        const Value pid = connection->singleValue("SELECT pg_backend_pid()");
        RawSession other(db.location());
        other.exec("SELECT pg_terminate_backend(" + std::to_string(pid.asLong()) + ", 5000)");
        EXPECT_THROW(db.insertRow("Azioni", {{"IdPra", Value(5)}}), DataError);
        EXPECT_THROW((void)connection->singleValue("SELECT 1"), DataError);
        EXPECT_THROW(transaction.commit(), DataError);
    }
    EXPECT_FALSE(connection->inTransaction());
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni").asLong(), 0);
    db.insertRow("Azioni", {{"IdPra", Value(5)}});
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni").asLong(), 1);
}

// A statement that is no query never reaches the session as a command.
// (A lone word, "BEGIN", is a table name: it opens that table, if any.)
TEST(ServerConnection, SessionCommandsAreNotQueries)
{
    TestDatabase db;
    for (const char* statement :
         {"SET DateStyle = 'MDY'", "BEGIN TRANSACTION", "COMMIT TRANSACTION", "ROLLBACK TRANSACTION",
          "DELETE FROM Azioni", "WITH d AS (DELETE FROM Azioni RETURNING *) SELECT * FROM d",
          "SELECT * INTO Copia FROM Azioni", "DROP TABLE Azioni", "SHOW DateStyle"}) {
        try {
            clsAccessoDati().Apri(statement, 0, 1, -1);
            ADD_FAILURE() << statement;
        } catch (const DataError& error) {
            EXPECT_TRUE(contains(error.what(), "Non è un'interrogazione")) << error.what();
        }
        EXPECT_THROW((void)clsValoreSql::instance().ValoreSql(statement), DataError) << statement;
    }
    // And a query that would write is stopped by the read-only session.
    try {
        (void)clsValoreSql::instance().ValoreSql("SELECT setval('azioni_idazione_seq', 1000)");
        FAIL();
    } catch (const DataError& error) {
        EXPECT_EQ(error.driverCode(), "25006");
    }
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni").asLong(), 0);
    EXPECT_EQ(db.insertRow("Azioni", {{"IdPra", Value(5)}, {"Data", Value("02/06/2004")}}).asLong(), 1);
    EXPECT_EQ(db.value("SELECT Data FROM Azioni").asDate(), Date::fromYmd(2004, 6, 2));
}

// A script is one unit of its own: a transaction command inside it is
// refused before any of it runs.
TEST(ServerConnection, ScriptsCannotBeginOrEndTransactions)
{
    TestDatabase db;
    for (const char* script :
         {"INSERT INTO Azioni (IdPra) VALUES (5); COMMIT", "BEGIN; DELETE FROM Azioni", "START TRANSACTION",
          "INSERT INTO Azioni (IdPra) VALUES (5); ROLLBACK; SELECT 1", "SAVEPOINT x", "PREPARE TRANSACTION 'x'"}) {
        EXPECT_THROW(db.exec(script), DataError) << script;
    }
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni").asLong(), 0);
    EXPECT_FALSE(db.connection()->inTransaction());
    db.exec("INSERT INTO Azioni (IdPra, Descr) VALUES (5, 'Commit della pratica')");
    EXPECT_EQ(db.value("SELECT Count(*) FROM Azioni").asLong(), 1);
}

} // namespace
} // namespace avlor::test
