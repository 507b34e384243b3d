#pragma once
// The few changes of scale of money amounts that the engine needs beyond
// Currency's own operations, each with its rounding named.
#include <cstdint>

#include "avlor/core/Currency.h"

namespace avlor {

// amount x numerator / denominator computed exactly (128-bit) and brought
// back to ten-thousandths with halves to even. Overflow of the result raises
// ValueError(Overflow); a zero denominator raises ValueError(DivisionByZero).
[[nodiscard]] Currency scaledProduct(Currency amount, std::int64_t numerator, std::int64_t denominator);

// The product of two amounts (for example a band times a ratio held as a
// Currency), exact and rounded to ten-thousandths, halves to even.
[[nodiscard]] Currency currencyProduct(Currency a, Currency b);

// The amount converted to a double, divided by 100.0 and converted back
// (nearest ten-thousandth, halves to even): the route every percentage and
// relevance step of the fee tables takes.
[[nodiscard]] Currency hundredthOf(Currency amount);

} // namespace avlor
