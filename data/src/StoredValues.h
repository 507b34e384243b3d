#pragma once
// Values on their way into a column, the same for every backend: the date a
// value stands for, and the whole number an integer column takes.
#include <optional>
#include <string_view>

#include "avlor/core/Date.h"
#include "avlor/core/Value.h"

namespace avlor {

// "YYYY-MM-DD", possibly followed by a time ("2004-06-02 00:00:00" or
// "2004-06-02T00:00"), as databases give dates back; nothing for other text.
[[nodiscard]] std::optional<Date> isoDatePrefix(std::string_view text);

// The date a value stands for: ISO text as above, otherwise what
// Value::toDate makes of it (a date, day-first text, a day count).
[[nodiscard]] Date storedDate(const Value& value);

// A whole number for an integer column: rounded halves to even, Long when it
// fits in 32 bits, a whole Double up to the 64-bit range; ValueError
// (Overflow) beyond.
[[nodiscard]] Value storedWholeNumber(const Value& value);

} // namespace avlor
