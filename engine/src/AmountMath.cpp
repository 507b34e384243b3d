#include "avlor/engine/AmountMath.h"

namespace avlor {

Currency scaledProduct(Currency amount, std::int64_t numerator, std::int64_t denominator)
{
    return amount.scaled(numerator, denominator, Rounding::HalfEven);
}

Currency currencyProduct(Currency a, Currency b) { return scaledProduct(a, b.raw(), Currency::Scale); }

Currency hundredthOf(Currency amount) { return amount.dividedBy(100.0); }

} // namespace avlor
