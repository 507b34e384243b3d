#pragma once
// How an amount typed by a person on the command line is read. People write
// amounts the Italian way ("30.000,50"), with a decimal point ("30000.50")
// or with no separator at all; each is read as it is meant. A text that could
// be meant two ways ("25.900": twenty-five thousand nine hundred, or 25.9
// with a decimal point) is refused with both readings and how to write the
// one meant, rather than priced a thousand times too large or too small.
#include <string_view>

#include "avlor/core/Currency.h"

namespace avlor {

// Surrounding blanks are ignored; a leading sign is allowed. Accepted:
// digits with at most one decimal mark (a comma or a point) and, before it,
// the other mark grouping the thousands in threes: "30000", "30000,50",
// "30.000,50", "30000.50", "30,000.50", "1.234.567". A single mark followed
// by exactly three digits after one to three digits ("25.900", "1,234") is
// ambiguous. Raises ValueError (TypeMismatch, or Overflow past the range of
// amounts) with an Italian message that quotes the text.
[[nodiscard]] Currency readTypedAmount(std::string_view text);

} // namespace avlor
