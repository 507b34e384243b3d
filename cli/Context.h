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

// A script given to the command (avlor parcella --script) cannot go on: a
// malformed line, an unknown control or event, an unanswered question. It is
// reported on one line and the command exits with status 2.
class ScriptError : public CommandError {
public:
    using CommandError::CommandError;
};

// The help of --db, with the default location as it is for this user now.
[[nodiscard]] std::string databaseOptionHelp();

struct Context {
    std::string database; // as given with --db; empty for the default
    bool json = false;
    std::ostream* out = nullptr;

    // The database location in force for this run.
    [[nodiscard]] std::string location() const;
    // Makes the chosen database current after checking, without changing
    // anything there, that it holds a complete practice database; raises
    // CommandError otherwise.
    void openPracticeDatabase() const;
    // Makes the chosen database current without checks (for questions that
    // need no database, such as the current user).
    void selectDatabase() const;

    // Prints {"risultato": ...} with --json, the plain value otherwise.
    void printResult(const DispatchResult& result) const;
};

} // namespace avlor::cli
