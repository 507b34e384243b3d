#pragma once
// ArrotondaLire: the rounding of 1994 lire amounts up to the next multiple of
// 5,000 lire.
#include "avlor/core/Currency.h"

namespace avlor {

// 0 for 0 or a negative amount. Otherwise the whole number of 5,000-lira
// steps in the amount, plus one step when the amount rounded to whole lire
// (halves to even) leaves a remainder: 1 -> 5,000, 5,001 -> 10,000, and
// 5,000.4 -> 5,000 because the remainder test sees 5,000. An amount that
// does not fit a 32-bit whole number raises ValueError(Overflow).
[[nodiscard]] Currency ArrotondaLire(Currency importo);

} // namespace avlor
