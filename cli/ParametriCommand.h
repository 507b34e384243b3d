#pragma once
// avlor parametri: the lawyers' fee parameters of D.M. 55/2014 held in the
// practice database: their versions and tables, one table shown whole, the
// price of a piece of work, and the import and export of the figures.
#include <CLI/CLI.hpp>

#include "Context.h"

namespace avlor::cli {

void addParametriCommand(CLI::App& app, Context& context);

} // namespace avlor::cli
