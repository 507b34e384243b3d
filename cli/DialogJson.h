#pragma once
// The answer line of a scripted dialog session: the messages the step showed,
// the focus, whether the dialog is closed, every field of the dialog's own
// state and every control.
//
//   {"messaggi": [{"testo", "titolo", "icona", "pulsanti", "risposta"}...],
//    "focus": NAME or null, "chiuso": BOOL,
//    "form": {FIELD: value...},
//    "controlli": {NAME: {"testo", "caption", "abilitato", "visibile",
//                         "valore" (options and check boxes),
//                         "colonne", "righe", "chiavi", "corrente" (lists),
//                         "colonne", "righe", "corrente" (the grid)}...}}
//
// Amounts of the state are exact text with four decimals ("1234.5000");
// message texts keep their carriage returns.
#include <vector>

#include <nlohmann/json.hpp>

#include "ScriptAnswers.h"
#include "avlor/dialog/frmOKParcella.h"

namespace avlor::cli {

[[nodiscard]] nlohmann::ordered_json formJson(const dialog::FormState& form);
[[nodiscard]] nlohmann::ordered_json controlJson(const dialog::Control& control);
[[nodiscard]] nlohmann::ordered_json dialogAnswer(const dialog::frmOKParcella& dialog,
                                                  const std::vector<ScriptAnswers::Shown>& shown);

} // namespace avlor::cli
