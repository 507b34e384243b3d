#pragma once
#include <CLI/CLI.hpp>

#include "Context.h"

namespace avlor::cli {

// avlor db init [LOCATION] [--demo]: a new practice database with the schema
// and the official fee tables that ship with the component (and, with --demo,
// a small sample firm). It never overwrites an existing database.
void addDbCommands(CLI::App& app, Context& context);

} // namespace avlor::cli
