#pragma once
#include <CLI/CLI.hpp>

#include "Context.h"

namespace avlor::cli {

// avlor call PROGID METHOD [ARG...]: a late-bound call from the shell. Prints
// {"risultato": ..., "argomenti": [...], "messaggi": [...]}: the result, the
// arguments as the call left them (by-reference outputs included) and the
// text of every message the call showed.
void addCallCommand(CLI::App& app, Context& context);

} // namespace avlor::cli
