#pragma once
#include <CLI/CLI.hpp>

#include "Context.h"

namespace avlor::cli {

// avlor tariffe elenca | importa | esporta: the fee tables of the practice
// database: the items a user picks from, loading a complete official table a
// firm holds, and writing a table in the same form.
void addTariffeCommands(CLI::App& app, Context& context);

} // namespace avlor::cli
