#pragma once
// The out-of-court tables of the three editions, one source file each.
#include "avlor/engine/OutOfCourt.h"

namespace avlor {

[[nodiscard]] const OutOfCourtEditionTable& outOfCourtLire94();
[[nodiscard]] const OutOfCourtEditionTable& outOfCourtEuro94();
[[nodiscard]] const OutOfCourtEditionTable& outOfCourtEuro2004();

} // namespace avlor
