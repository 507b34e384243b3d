#pragma once
// Where a proposal lies in a band: the relevance of the case (vRil, 0 to 100)
// places the amount between the minimum (0) and the maximum (100).
#include <cstdint>

#include "avlor/core/Currency.h"

namespace avlor {

// MinTar + (MaxTar - MinTar) x vRil / 100: the difference is an exact
// Currency, its product by vRil exact, the division by 100.0 goes through a
// double and back (halves to even). Values of vRil outside 0..100 are not
// refused: they extrapolate.
[[nodiscard]] Currency interpolateByRelevance(Currency MinTar, Currency MaxTar, std::int16_t vRil);

// The proposal of a band: 0 gives MinTar, 100 gives MaxTar, any other value
// the interpolation.
[[nodiscard]] Currency proposalByRelevance(Currency MinTar, Currency MaxTar, std::int16_t vRil);

} // namespace avlor
