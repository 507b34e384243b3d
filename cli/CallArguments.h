#pragma once
// The words of `avlor call PROGID METHOD [ARG...]` turned into loosely typed
// arguments: a whole number becomes a 32-bit number (a double when it does
// not fit), a decimal number with a point a double, the word null a null,
// any other word a text; `--text WORD` keeps WORD as text whatever it looks
// like.
#include <cstdint>
#include <string>
#include <vector>

#include "avlor/core/Value.h"

namespace avlor::cli {

// Raises std::invalid_argument for a number no double can hold (1.0e999).
[[nodiscard]] Value argumentFromWord(const std::string& word);
// An id of the command's own question verbs: a whole number of 32 bits, or
// std::invalid_argument naming `name` (e.g. "ID").
[[nodiscard]] std::int32_t idFromWord(const std::string& name, const std::string& word);
// A word as messages quote it: long words cut short, with their length.
[[nodiscard]] std::string shortened(const std::string& word);
// Reads the argument words (with their --text markers); raises
// std::invalid_argument when --text has no word after it.
[[nodiscard]] std::vector<Value> argumentsFromWords(const std::vector<std::string>& words);

} // namespace avlor::cli
