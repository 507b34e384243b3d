#pragma once
#include <CLI/CLI.hpp>

#include "Context.h"

namespace avlor::cli {

// avlor parcella --pratica ID [--parti TEXT] [--adempimento TEXT]
//                [--data DD/MM/YYYY] [--oggi DD/MM/YYYY] [--script FILE|-]
//
// Opens the fee-entry dialog "Parcellazione Adempimento" on a case file.
// Without --script it opens its window on the desktop and returns once the
// user has closed it (an error, status 1, when there is no display).
// With --script it runs without a screen and is driven from a script: one JSON object per line,
// each answered with one JSON line holding the state after it (see
// DialogJson.h). The steps:
//   {"click": NAME}                          a button, an option, a check box (toggles)
//   {"imposta": NAME, "valore": TEXT}        types TEXT into a field or a list's text
//   {"apri": NAME}                           opens a list (its refill)
//   {"scegli": NAME, "chiave": K}            chooses a list row by its hidden key
//   {"scegli": NAME, "riga": R}              chooses a list or grid row by position
//   {"stato": true}                          answers only
// Any step may carry "risposte": ["Annulla", "Si"...], the answers to the
// questions it raises, in order. An unknown control or event, a malformed
// line or a question without an answer stops the session: one line on
// standard error and exit status 2. Blank lines are skipped. Once the dialog
// has closed, later steps run nothing and answer with the closed state.
void addParcellaCommand(CLI::App& app, Context& context);

} // namespace avlor::cli
