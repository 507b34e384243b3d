#pragma once
// TestDatabase: a practice database for one test. It makes a new database
// with the whole schema (createPracticeDatabase), makes it the current
// database of the process for its lifetime, and on destruction closes its
// pooled connection, puts back the database that was current before and
// removes what it made.
//
// Backends. The environment variable AVLOR_TEST_BACKEND chooses where the
// database lives, so that the same suites run on both backends:
//   - "sqlite" or unset: a SQLite file in a fresh temporary folder;
//   - "postgresql": a new database on the PostgreSQL server named by
//     AVLOR_TEST_PG_URI (a URI whose user may create databases, such as
//     postgresql://avlor_test@127.0.0.1:5433/postgres; the password from
//     the URI, PGPASSWORD or PGPASSFILE). The database is called
//     avlor_test_<pid>_<n>, made from template0 with the C collation (so
//     that text orders as in SQLite) and dropped by the destructor. Without
//     the URI the constructor throws: a run meant for the server never
//     passes unnoticed on nothing.
// The temporary folder is made on both, for the tests that need files.
// Tests of one backend's own workings skip on the other with
// AVLOR_SQLITE_ONLY("reason") (a GoogleTest skip, so the reason is shown).
//
// Fixtures:
//   - insertRow("Azioni", {{"IdPra", Value(5)}, {"Onorari", Value(Currency::fromText("12.5"))}})
//     writes one row through the record-access layer, so amounts, dates and
//     yes/no values are converted exactly as the application's own writes
//     are (preferred). It returns the new row's first field, which is the
//     generated key of every table that has one (IdAzione, ID_Utente...).
//   - exec("INSERT ...; UPDATE ...") runs SQL text, several statements
//     allowed, all or none (so no BEGIN/COMMIT of its own), each through the
//     backend's dialect (so CONVERT (SMALLDATETIME,'02/06/2004', 105) and
//     bare true/false work).
//     In raw SQL an amount is written with amount("12.5"), which gives the
//     text the backend stores (125000 ten-thousandths on SQLite, 12.5000 on
//     PostgreSQL); a date is 'YYYY-MM-DD'; yes/no is 'True' or 'False' (any
//     case) on both.
//   - The new database already holds ConfigGenerale (one row: ValutaDefault
//     'EURO', CambioLiraEuro 1936.27; change it with UPDATE, a second row is
//     refused) and Versioni (Versione 1).
//   - dropTable("Utenti") makes the statements on a table fail, to test the
//     error paths.
//   - rows(sql) and value(sql) read back what is stored, as the record sets
//     give it (Currency for amounts, Date for dates, boolean for yes/no).
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "avlor/core/Currency.h"
#include "avlor/core/Value.h"
#include "avlor/data/Connection.h"
#include "avlor/data/Database.h"
#include "avlor/data/clsAccessoDati.h"

// Skips a test that checks the workings of SQLite itself when the suite runs
// on PostgreSQL.
#define AVLOR_SQLITE_ONLY(reason)                                                                                      \
    if (!::avlor::test::TestDatabase::onPostgresql()) {                                                                \
    } else                                                                                                             \
        GTEST_SKIP() << "SQLite only: " << (reason)

namespace avlor::test {

class TestDatabase {
public:
    TestDatabase() : previous_(databaseSetByHost())
    {
        folder_ = makeTemporaryFolder();
        if (onPostgresql()) {
            const std::string server = serverUri();
            serverDatabase_ = "avlor_test_" + std::to_string(getpid()) + "_" + std::to_string(++databasesMade());
            const std::shared_ptr<Connection> admin = connectionFor(server);
            // A database left by a crashed run of a process with the same id.
            admin->executeScript("DROP DATABASE IF EXISTS " + serverDatabase_ + " WITH (FORCE)");
            admin->executeScript("CREATE DATABASE " + serverDatabase_ +
                                 " TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C'");
            location_ = withDatabase(server, serverDatabase_);
        } else {
            location_ = (folder_ / "practice.db").string();
        }
        createPracticeDatabase(location_);
        setCurrentDatabase(location_);
    }

    ~TestDatabase()
    {
        closeConnections(location_);
        setCurrentDatabase(previous_);
        if (!serverDatabase_.empty()) {
            try {
                connectionFor(serverUri())
                    ->executeScript("DROP DATABASE IF EXISTS " + serverDatabase_ + " WITH (FORCE)");
            } catch (...) {
                // The server went away: its databases go with it.
            }
        }
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    // True when the suites run on PostgreSQL (AVLOR_TEST_BACKEND).
    [[nodiscard]] static bool onPostgresql()
    {
        const char* backend = std::getenv("AVLOR_TEST_BACKEND");
        return backend != nullptr && std::string_view(backend) == "postgresql";
    }

    // The server of the PostgreSQL runs (AVLOR_TEST_PG_URI).
    [[nodiscard]] static std::string serverUri()
    {
        const char* uri = std::getenv("AVLOR_TEST_PG_URI");
        if (uri == nullptr || *uri == '\0') {
            throw std::runtime_error("AVLOR_TEST_BACKEND=postgresql needs AVLOR_TEST_PG_URI: the URI of a PostgreSQL "
                                     "server where the tests may create databases");
        }
        return uri;
    }

    // What the backend in use gives where the two differ by nature (the
    // database's own messages, storage classes).
    [[nodiscard]] static std::string byBackend(std::string sqlite, std::string postgresql)
    {
        return onPostgresql() ? std::move(postgresql) : std::move(sqlite);
    }

    // `uri` with its database replaced by `database`.
    [[nodiscard]] static std::string withDatabase(const std::string& uri, const std::string& database)
    {
        const std::size_t scheme = uri.find("://");
        const std::size_t start = scheme == std::string::npos ? 0 : scheme + 3;
        const std::size_t path = uri.find_first_of("/?", start);
        if (path == std::string::npos) {
            return uri + "/" + database;
        }
        if (uri[path] == '?') {
            return uri.substr(0, path) + "/" + database + uri.substr(path);
        }
        const std::size_t query = uri.find('?', path);
        return uri.substr(0, path + 1) + database + (query == std::string::npos ? "" : uri.substr(query));
    }

    [[nodiscard]] const std::string& location() const noexcept { return location_; }
    [[nodiscard]] const std::filesystem::path& folder() const noexcept { return folder_; }
    [[nodiscard]] std::shared_ptr<Connection> connection() const { return connectionFor(location_); }

    // Runs fixture SQL: one or more statements separated by ';'.
    void exec(const std::string& sql) const { connection()->executeScript(sql); }

    // Adds one row through the record-access layer; returns its first field.
    Value insertRow(const std::string& table, std::initializer_list<std::pair<std::string, Value>> fields) const
    {
        clsAccessoDati data(connection());
        const std::shared_ptr<RecordSet> rows = data.Apri(table, 1, 3, -1);
        rows->AddNew();
        for (const auto& [name, value] : fields) {
            rows->SetField(name, value);
        }
        rows->Update();
        return rows->Field(rows->FieldNames().front());
    }

    // Every row of a query, field by field, as stored.
    [[nodiscard]] std::vector<std::vector<Value>> rows(const std::string& sql) const
    {
        clsAccessoDati data(connection());
        const std::shared_ptr<RecordSet> set = data.Apri(sql, 0, 1, -1);
        const std::vector<std::string> names = set->FieldNames();
        std::vector<std::vector<Value>> result;
        for (; !set->Eof(); set->MoveNext()) {
            std::vector<Value> row;
            for (const std::string& name : names) {
                row.push_back(set->Field(name));
            }
            result.push_back(std::move(row));
        }
        return result;
    }

    // The first field of the first row (empty when no row).
    [[nodiscard]] Value value(const std::string& sql) const { return connection()->singleValue(sql); }

    void dropTable(const std::string& table) const { exec("DROP TABLE " + table); }

    // An amount as raw SQL writes it on the backend in use: amount("12.5") is
    // "125000" on SQLite (ten-thousandths), "12.5000" on PostgreSQL.
    [[nodiscard]] static std::string amount(std::string_view decimal)
    {
        const Currency value = Currency::fromText(decimal);
        return onPostgresql() ? value.toFixed4() : std::to_string(value.raw());
    }

private:
    static std::filesystem::path makeTemporaryFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "avlor-test-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("Cannot make a temporary folder for the test database");
        }
        return pattern;
    }

    static int& databasesMade()
    {
        static int count = 0;
        return count;
    }

    std::string previous_;
    std::filesystem::path folder_;
    std::string location_;
    std::string serverDatabase_; // the PostgreSQL database, when on the server
};

} // namespace avlor::test
