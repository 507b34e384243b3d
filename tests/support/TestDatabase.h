#pragma once
// TestDatabase: a practice database for one test. It makes a new SQLite
// database with the whole schema (createPracticeDatabase) in a fresh
// temporary folder, makes it the current database of the process for its
// lifetime, and on destruction closes its pooled connection, puts back the
// database that was current before and removes the folder.
//
// Fixtures:
//   - insertRow("Azioni", {{"IdPra", Value(5)}, {"Onorari", Value(Currency::fromText("12.5"))}})
//     writes one row through the record-access layer, so amounts, dates and
//     yes/no values are converted exactly as the application's own writes
//     are (preferred). It returns the new row's first field, which is the
//     generated key of every table that has one (IdAzione, ID_Utente...).
//   - exec("INSERT ...; UPDATE ...") runs SQL text, several statements
//     allowed, all or none (so no BEGIN/COMMIT of its own), each through the
//     SQLite dialect (so CONVERT (SMALLDATETIME,'02/06/2004', 105) and bare
//     true/false work).
//     In raw SQL an amount (CURRENCY column) is written in ten-thousandths:
//     12.5 euro is 125000 (amount("12.5") gives that text); a date is
//     'YYYY-MM-DD'; yes/no is 'True' or 'False' (any case).
//   - The new database already holds ConfigGenerale (one row: ValutaDefault
//     'EURO', CambioLiraEuro 1936.27; change it with UPDATE, a second row is
//     refused) and Versioni (Versione 1).
//   - dropTable("Utenti") makes the statements on a table fail, to test the
//     error paths.
//   - rows(sql) and value(sql) read back what is stored, as the record sets
//     give it (Currency for amounts, Date for dates, boolean for yes/no).
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

namespace avlor::test {

class TestDatabase {
public:
    TestDatabase() : previous_(databaseSetByHost()) {
        folder_ = makeTemporaryFolder();
        location_ = (folder_ / "practice.db").string();
        createPracticeDatabase(location_);
        setCurrentDatabase(location_);
    }

    ~TestDatabase() {
        closeConnections(location_);
        setCurrentDatabase(previous_);
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    [[nodiscard]] const std::string& location() const noexcept { return location_; }
    [[nodiscard]] const std::filesystem::path& folder() const noexcept { return folder_; }
    [[nodiscard]] std::shared_ptr<Connection> connection() const { return connectionFor(location_); }

    // Runs fixture SQL: one or more statements separated by ';'.
    void exec(const std::string& sql) const { connection()->executeScript(sql); }

    // Adds one row through the record-access layer; returns its first field.
    Value insertRow(const std::string& table,
                    std::initializer_list<std::pair<std::string, Value>> fields) const {
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
    [[nodiscard]] std::vector<std::vector<Value>> rows(const std::string& sql) const {
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

    // An amount as raw SQL stores it: amount("12.5") == "125000".
    [[nodiscard]] static std::string amount(std::string_view decimal) {
        return std::to_string(Currency::fromText(decimal).raw());
    }

private:
    static std::filesystem::path makeTemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "avlor-test-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("Cannot make a temporary folder for the test database");
        }
        return pattern;
    }

    std::string previous_;
    std::filesystem::path folder_;
    std::string location_;
};

} // namespace avlor::test
