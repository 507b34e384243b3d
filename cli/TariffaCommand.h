#pragma once
#include <CLI/CLI.hpp>

#include "Context.h"

namespace avlor::cli {

// avlor tariffa: prices one item exactly as ClsParcella.CalcolaTariffa does.
void addTariffaCommand(CLI::App& app, Context& context);

} // namespace avlor::cli
