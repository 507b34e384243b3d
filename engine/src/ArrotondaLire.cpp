#include "avlor/engine/ArrotondaLire.h"

#include <cmath>
#include <cstdint>

#include "avlor/core/Value.h"

namespace avlor {

namespace {
constexpr std::int64_t LireStep = 5000;
}

Currency ArrotondaLire(Currency importo)
{
    if (importo <= Currency{})
        return Currency{};
    // The number of whole steps comes from the exact amount, but the test for
    // a remainder is made on the amount rounded to whole lire: an amount a
    // fraction of a lira above a step (5,000.4) stays on that step. The 1994
    // tables priced in whole lire, and the rule is kept as the firms' past
    // proposals were made with it.
    auto steps = static_cast<std::int64_t>(std::trunc(importo.toDouble() / static_cast<double>(LireStep)));
    const std::int32_t wholeLire = Value::currency(importo).toLong();
    if (wholeLire % LireStep > 0)
        ++steps;
    return Currency::fromWhole(steps * LireStep);
}

} // namespace avlor
