#pragma once
#include <CLI/CLI.hpp>

#include "Context.h"

namespace avlor::cli {

// avlor utenti ..., avlor pratica ..., avlor anagrafica ..., avlor fattura ...
// and avlor db versione: each asks one question of a public class.
void addQueryCommands(CLI::App& app, Context& context);

} // namespace avlor::cli
