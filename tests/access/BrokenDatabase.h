#pragma once
// BrokenDatabase: makes the current database of the process a file that is
// not a database, so that every statement fails as with a damaged or
// unreachable practice database. Puts back the previous database and removes
// the file when destroyed.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "avlor/data/Database.h"

namespace avlor::test {

class BrokenDatabase {
public:
    BrokenDatabase() : previous_(databaseSetByHost())
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "avlor-broken-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("Cannot make a temporary folder for the broken database");
        }
        folder_ = pattern;
        location_ = (folder_ / "broken.db").string();
        std::ofstream(location_) << "This file is not a practice database, whatever its name says.\n";
        setCurrentDatabase(location_);
    }

    ~BrokenDatabase()
    {
        closeConnections(location_);
        setCurrentDatabase(previous_);
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    BrokenDatabase(const BrokenDatabase&) = delete;
    BrokenDatabase& operator=(const BrokenDatabase&) = delete;

private:
    std::string previous_;
    std::filesystem::path folder_;
    std::string location_;
};

} // namespace avlor::test
