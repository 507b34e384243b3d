#include "avlor/engine/AmountMath.h"

#include <limits>

#include "avlor/core/Error.h"

namespace avlor {

namespace {

__extension__ using Wide = __int128;

// n / d rounded to the nearest whole number, halves to the even neighbour.
Wide divideHalfEven(Wide n, Wide d)
{
    Wide quotient = n / d;
    const Wide remainder = n % d;
    if (remainder == 0)
        return quotient;
    const Wide twiceRemainder = remainder < 0 ? -2 * remainder : 2 * remainder;
    const Wide absDivisor = d < 0 ? -d : d;
    const Wide away = ((n < 0) != (d < 0)) ? -1 : 1;
    if (twiceRemainder > absDivisor || (twiceRemainder == absDivisor && quotient % 2 != 0))
        quotient += away;
    return quotient;
}

} // namespace

Currency scaledProduct(Currency amount, std::int64_t numerator, std::int64_t denominator)
{
    if (denominator == 0)
        throw ValueError(ValueError::Kind::DivisionByZero, "Division by zero: un importo diviso per zero");
    const Wide raw = divideHalfEven(Wide{amount.raw()} * numerator, denominator);
    if (raw > std::numeric_limits<std::int64_t>::max() || raw < std::numeric_limits<std::int64_t>::min())
        throw ValueError(ValueError::Kind::Overflow, "Overflow: importo fuori dall'intervallo");
    return Currency::fromRaw(static_cast<std::int64_t>(raw));
}

Currency currencyProduct(Currency a, Currency b) { return scaledProduct(a, b.raw(), Currency::Scale); }

Currency hundredthOf(Currency amount) { return amount.dividedBy(100.0); }

} // namespace avlor
