#pragma once
// A practice database shared by the tests of one suite, with a helper that
// writes a row of a fee table.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "TestDatabase.h"

namespace avlor::test {

// Column name and amount as decimal text ("129.11"), or "NULL".
using FeeColumns = std::vector<std::pair<std::string, std::string>>;

class FeeRowFixture {
public:
    static void open() { database() = std::make_unique<TestDatabase>(); }
    static void close() { database().reset(); }
    static TestDatabase& db() { return *database(); }

    // Writes row `id` of `table` with its code and the given amounts (the
    // schema's default 0 for every other amount column).
    static void insertRow(const std::string& table, int id, const std::string& code, const FeeColumns& columns)
    {
        std::string names = "Id, CodiceTariffa";
        std::string values = std::to_string(id) + ", '" + code + "'";
        for (const auto& [name, amount] : columns) {
            names += ", " + name;
            values += ", " + (amount == "NULL" ? amount : TestDatabase::amount(amount));
        }
        db().exec("INSERT INTO " + table + " (" + names + ") VALUES (" + values + ")");
    }

    static void deleteRows(const std::string& table) { db().exec("DELETE FROM " + table); }

private:
    static std::unique_ptr<TestDatabase>& database()
    {
        static std::unique_ptr<TestDatabase> instance;
        return instance;
    }
};

// Base of the suites that read fee rows: one database for the suite.
class FeeDatabaseTest : public testing::Test {
protected:
    static void SetUpTestSuite() { FeeRowFixture::open(); }
    static void TearDownTestSuite() { FeeRowFixture::close(); }
};

template <class Param>
class FeeDatabaseTestWithParam : public testing::TestWithParam<Param> {
protected:
    static void SetUpTestSuite() { FeeRowFixture::open(); }
    static void TearDownTestSuite() { FeeRowFixture::close(); }
};

} // namespace avlor::test
