#pragma once
// How the avlor command prints the component's values as JSON: amounts as
// exact text with four decimals, whole numbers as numbers, booleans as
// true/false, texts as strings, dates as day-first text, collections as
// arrays, null (and empty) as null.
#include <nlohmann/json.hpp>

#include "avlor/component/LateBound.h"
#include "avlor/core/Collection.h"
#include "avlor/core/Value.h"

namespace avlor::cli {

[[nodiscard]] nlohmann::ordered_json toJson(const Value& value);
[[nodiscard]] nlohmann::ordered_json toJson(const Collection& collection);
[[nodiscard]] nlohmann::ordered_json toJson(const DispatchResult& result);

// The same values as plain text for a person reading the terminal.
[[nodiscard]] std::string toPlainText(const Value& value);
[[nodiscard]] std::string toPlainText(const DispatchResult& result);

} // namespace avlor::cli
