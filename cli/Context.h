#pragma once
// What every subcommand of the avlor command shares: the database chosen
// with --db (or AVLOR_DB, or the per-user default), the --json switch, and
// the way results are printed.
#include <iosfwd>
#include <string>

#include <nlohmann/json.hpp>

#include "avlor/component/LateBound.h"

namespace avlor::cli {

// An error the command reports on one line before it exits with status 1.
class CommandError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct Context {
    std::string database; // as given with --db; empty for the default
    bool json = false;
    std::ostream* out = nullptr;

    // The database location in force for this run.
    [[nodiscard]] std::string location() const;
    // Makes the chosen database current after checking that it exists and
    // holds the practice schema; raises CommandError otherwise.
    void openPracticeDatabase() const;
    // Makes the chosen database current without checks (late-bound calls
    // behave as the component does on a missing database).
    void selectDatabase() const;

    // Prints {"risultato": ...} with --json, the plain value otherwise.
    void printResult(const DispatchResult& result) const;
};

} // namespace avlor::cli
