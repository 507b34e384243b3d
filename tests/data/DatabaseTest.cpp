// Which database the component works on, the pool of connections, and the
// making of new practice databases.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include <gtest/gtest.h>

#include "TestDatabase.h"
#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"
#include "avlor/data/clsAccessoDati.h"

namespace avlor {
namespace {

// Sets an environment variable for one test and puts the old value back.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const char* value) : name_(name)
    {
        if (const char* old = std::getenv(name)) {
            old_ = old;
        }
        if (value != nullptr) {
            setenv(name, value, 1);
        } else {
            unsetenv(name);
        }
    }
    ~ScopedEnv()
    {
        if (old_) {
            setenv(name_, old_->c_str(), 1);
        } else {
            unsetenv(name_);
        }
    }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    const char* name_;
    std::optional<std::string> old_;
};

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

TEST(Location, DefaultFollowsXdgDataHome)
{
    const ScopedEnv home("HOME", "/home/avvocato");
    {
        const ScopedEnv xdg("XDG_DATA_HOME", "/srv/dati");
        EXPECT_EQ(defaultDatabaseLocation(), "/srv/dati/avlor/avlor.db");
    }
    {
        const ScopedEnv xdg("XDG_DATA_HOME", nullptr);
        EXPECT_EQ(defaultDatabaseLocation(), "/home/avvocato/.local/share/avlor/avlor.db");
    }
    {
        const ScopedEnv xdg("XDG_DATA_HOME", "relative/dir");
        EXPECT_EQ(defaultDatabaseLocation(), "/home/avvocato/.local/share/avlor/avlor.db");
    }
}

TEST(Location, HostThenEnvironmentThenDefault)
{
    const ScopedHostDatabase restore;
    const ScopedEnv xdg("XDG_DATA_HOME", "/srv/dati");
    setCurrentDatabase("");
    {
        const ScopedEnv env("AVLOR_DB", nullptr);
        EXPECT_EQ(currentDatabase(), "/srv/dati/avlor/avlor.db");
        EXPECT_EQ(databaseSetByHost(), "");
    }
    const ScopedEnv env("AVLOR_DB", "/tmp/studio.db");
    EXPECT_EQ(currentDatabase(), "/tmp/studio.db");
    setCurrentDatabase("file:/tmp/host.db?mode=rw");
    EXPECT_EQ(currentDatabase(), "file:/tmp/host.db?mode=rw");
    EXPECT_EQ(databaseSetByHost(), "file:/tmp/host.db?mode=rw");
    setCurrentDatabase("");
    EXPECT_EQ(currentDatabase(), "/tmp/studio.db");
}

TEST(Pool, OneConnectionPerLocation)
{
    test::TestDatabase db;
    const auto first = connectionFor(db.location());
    EXPECT_EQ(connectionFor(db.location()), first);
    EXPECT_EQ(first->location(), db.location());
    closeConnections(db.location());
    const auto second = connectionFor(db.location());
    EXPECT_NE(second, first);
    // A connection still held keeps working after it left the pool.
    EXPECT_EQ(first->singleValue("SELECT Versione FROM Versioni").asLong(), 1);
    closeConnections();
    EXPECT_NE(connectionFor(db.location()), second);
}

TEST(Pool, RecordAccessUsesTheCurrentDatabase)
{
    test::TestDatabase one;
    one.exec("UPDATE Versioni SET Versione = 11");
    {
        test::TestDatabase two;
        clsAccessoDati data;
        data.Apri("Versioni", 0, 1, -1);
        EXPECT_EQ(data.Campo("Versione", TipoNumero).asLong(), 1);
    }
    EXPECT_EQ(currentDatabase(), one.location());
    clsAccessoDati data;
    data.Apri("Versioni", 0, 1, -1);
    EXPECT_EQ(data.Campo("Versione", TipoNumero).asLong(), 11);
}

TEST(Pool, MissingDatabaseIsAnErrorAndIsNotCreated)
{
    test::TestDatabase db;
    const auto missing = db.folder() / "missing.db";
    EXPECT_THROW((void)connectionFor(missing.string()), DataError);
    EXPECT_FALSE(std::filesystem::exists(missing));
    EXPECT_THROW((void)connectionFor(""), DataError);
    EXPECT_THROW((void)connectionFor("postgresql://avlor@127.0.0.1:1/studio"), DataError);
    const ScopedHostDatabase restore;
    setCurrentDatabase(missing.string());
    clsAccessoDati data; // making it never fails
    EXPECT_THROW(data.Apri("Versioni", 0, 1, -1), DataError);
}

TEST(Pool, FileThatIsNotADatabase)
{
    test::TestDatabase db;
    const auto file = db.folder() / "note.txt";
    std::ofstream(file) << "not a database, just some text that is long enough to be read as a header";
    EXPECT_THROW((void)connectionFor(file.string()), DataError);
}

TEST(Create, RefusesAnExistingDatabase)
{
    test::TestDatabase db;
    closeConnections();
    try {
        createPracticeDatabase(db.location());
        FAIL();
    } catch (const DataError& error) {
        EXPECT_EQ(error.statement(), db.location());
    }
    EXPECT_EQ(db.value("SELECT Versione FROM Versioni").asLong(), 1);
    // Already open in this process: refused as well.
    EXPECT_THROW(createPracticeDatabase(db.location()), DataError);
}

TEST(Create, RefusesAnExistingFileEvenEmpty)
{
    test::TestDatabase db;
    const auto file = db.folder() / "empty.db";
    std::ofstream(file).close();
    EXPECT_THROW(createPracticeDatabase(file.string()), DataError);
    EXPECT_EQ(std::filesystem::file_size(file), 0U);
    const auto text = db.folder() / "letter.txt";
    std::ofstream(text) << "Egregio avvocato";
    EXPECT_THROW(createPracticeDatabase(text.string()), DataError);
    EXPECT_EQ(std::filesystem::file_size(text), 16U);
}

TEST(Create, MakesTheFolderAndTakesUris)
{
    test::TestDatabase db;
    const auto nested = db.folder() / "a" / "b" / "studio.db";
    createPracticeDatabase(nested.string());
    EXPECT_TRUE(std::filesystem::exists(nested));
    EXPECT_EQ(connectionFor(nested.string())->singleValue("SELECT Versione FROM Versioni").asLong(), 1);

    const std::string uri = "file:" + (db.folder() / "uri%20db.sqlite").string() + "?cache=private";
    createPracticeDatabase(uri);
    EXPECT_TRUE(std::filesystem::exists(db.folder() / "uri db.sqlite"));
    EXPECT_EQ(connectionFor(uri)->singleValue("SELECT ValutaDefault FROM ConfigGenerale").asText(), "EURO");
    closeConnections(uri);
    EXPECT_THROW(createPracticeDatabase(uri), DataError);
    closeConnections(nested.string());
}

TEST(Location, TheFileOfASqliteLocation)
{
    EXPECT_EQ(databaseFile("/srv/studio/avlor.db"), std::filesystem::path("/srv/studio/avlor.db"));
    EXPECT_EQ(databaseFile("relative.db"), std::filesystem::path("relative.db"));
    EXPECT_EQ(databaseFile("file:///srv/studio/a%20b.db?mode=rw"), std::filesystem::path("/srv/studio/a b.db"));
    EXPECT_EQ(databaseFile("file://localhost/srv/x.db"), std::filesystem::path("/srv/x.db"));
    EXPECT_EQ(databaseFile("file:dati.db#parte"), std::filesystem::path("dati.db"));
    for (const char* none : {":memory:", "", "file::memory:", "file:x.db?mode=memory&cache=shared",
                             "postgresql://studio@dbserver/pratiche", "postgres://studio@dbserver/pratiche"}) {
        EXPECT_FALSE(databaseFile(none).has_value()) << none;
    }
}

TEST(Create, RemovingADatabaseDeletesItsFileAndJournals)
{
    test::TestDatabase db;
    const std::string uri = "file:" + (db.folder() / "da%20togliere.db").string();
    const std::filesystem::path file = db.folder() / "da togliere.db";
    createPracticeDatabase(uri);
    for (const char* suffix : {"-wal", "-shm", "-journal"}) {
        std::ofstream(file.string() + suffix) << "x";
    }
    std::ofstream(db.folder() / "altro.db") << "kept";
    removeDatabaseFiles(uri);
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        EXPECT_FALSE(std::filesystem::exists(file.string() + suffix)) << suffix;
    }
    EXPECT_TRUE(std::filesystem::exists(db.folder() / "altro.db"));
    // Nothing to remove for a server or an in-memory database.
    removeDatabaseFiles("postgresql://studio@127.0.0.1:1/pratiche");
    removeDatabaseFiles(":memory:");
}

TEST(Create, InMemoryDatabase)
{
    const std::string location = "file:avlor-memory-test?mode=memory&cache=shared";
    createPracticeDatabase(location);
    EXPECT_EQ(connectionFor(location)->tableNames().size(), 26U);
    EXPECT_THROW(createPracticeDatabase(location), DataError);
    closeConnections(location);
}

// Server locations go to the PostgreSQL backend, in both spellings of the
// scheme; here nothing listens on the port.
TEST(Create, ServerLocationsGoToThePostgresqlBackend)
{
    for (const char* location : {"postgresql://avlor@127.0.0.1:1/studio", "postgres://avlor@127.0.0.1:1/studio"}) {
        try {
            createPracticeDatabase(location);
            FAIL() << location;
        } catch (const DataError& error) {
            EXPECT_NE(std::string(error.what()).find("Impossibile collegarsi al server PostgreSQL"), std::string::npos)
                << error.what();
            EXPECT_EQ(error.statement(), location);
        }
        EXPECT_THROW((void)connectionFor(location), DataError);
    }
}

} // namespace
} // namespace avlor
