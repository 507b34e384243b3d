#include "avlor/core/Currency.h"

#include <cmath>
#include <limits>
#include <string>

#include "NumberText.h"
#include "avlor/core/Error.h"

namespace avlor {

namespace {

[[noreturn]] void overflow(const std::string& what)
{
    throw ValueError(ValueError::Kind::Overflow, "Overflow: " + what);
}

// 2^63 as a double: the first value past the top of the 64-bit range, and
// exactly the magnitude of its bottom.
constexpr double TwoPow63 = 9223372036854775808.0;

// A double already rounded to a whole number, as a count of ten-thousandths;
// the bounds are checked before converting so that nothing wraps.
Currency fromRoundedScaled(double scaled, const char* what)
{
    if (std::isnan(scaled) || scaled < -TwoPow63 || scaled >= TwoPow63)
        overflow(what);
    return Currency::fromRaw(static_cast<std::int64_t>(scaled));
}

// Magnitude of a count, valid for INT64_MIN too.
std::uint64_t magnitude(std::int64_t raw) noexcept
{
    return raw < 0 ? 0 - static_cast<std::uint64_t>(raw) : static_cast<std::uint64_t>(raw);
}

// Whether the digits dropped by a rounding push the kept part away from zero,
// halves to even: above half always, exactly half only when the kept part is odd.
bool roundsAway(std::string_view dropped, bool keptIsOdd) noexcept
{
    if (dropped.empty() || dropped.front() < '5')
        return false;
    if (dropped.front() > '5')
        return true;
    for (char c : dropped.substr(1)) {
        if (c != '0')
            return true;
    }
    return keptIsOdd;
}

__extension__ using Wide = __int128;

// n / d rounded to a whole number by `mode`, exactly; d is not 0.
Wide divideRounded(Wide n, Wide d, Rounding mode)
{
    Wide quotient = n / d; // toward zero
    const Wide remainder = n % d;
    if (remainder == 0)
        return quotient;
    const Wide twiceRemainder = remainder < 0 ? -2 * remainder : 2 * remainder;
    const Wide absDivisor = d < 0 ? -d : d;
    const bool half = twiceRemainder == absDivisor;
    const bool away = twiceRemainder > absDivisor || (half && (mode == Rounding::HalfUp || quotient % 2 != 0));
    if (away)
        quotient += ((n < 0) != (d < 0)) ? -1 : 1;
    return quotient;
}

Currency fromWide(Wide raw)
{
    if (raw > std::numeric_limits<std::int64_t>::max() || raw < std::numeric_limits<std::int64_t>::min())
        overflow("importo fuori dall'intervallo");
    return Currency::fromRaw(static_cast<std::int64_t>(raw));
}

} // namespace

Currency Currency::scaled(std::int64_t numerator, std::int64_t denominator, Rounding mode) const
{
    if (denominator == 0)
        throw ValueError(ValueError::Kind::DivisionByZero, "Division by zero: un importo diviso per zero");
    return fromWide(divideRounded(Wide{raw_} * numerator, denominator, mode));
}

std::int64_t Currency::multiplesOf(Currency step, Rounding mode) const
{
    // |raw| / step rounds to at most 2^63 only for step 1 and raw at the
    // bottom of the range, where it is exact.
    return static_cast<std::int64_t>(divideRounded(Wide{raw_}, Wide{step.raw_}, mode));
}

Currency Currency::roundedTo(Currency step, Rounding mode) const
{
    return fromWide(divideRounded(Wide{raw_}, Wide{step.raw_}, mode) * step.raw_);
}

double roundHalfEven(double value) noexcept
{
    // Done by hand rather than with the floating-point environment, so that a
    // host that changes the rounding mode cannot change amounts. value - floor
    // is exact for every double, so the comparison with one half is too.
    if (!std::isfinite(value))
        return value;
    const double below = std::floor(value);
    const double fraction = value - below;
    if (fraction > 0.5)
        return below + 1.0;
    if (fraction < 0.5)
        return below;
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

Currency Currency::fromWhole(std::int64_t units)
{
    std::int64_t raw = 0;
    if (__builtin_mul_overflow(units, Scale, &raw))
        overflow("importo intero " + std::to_string(units));
    return Currency(raw);
}

Currency Currency::fromDouble(double value)
{
    // The value is scaled to ten-thousandths as a double and that double is
    // rounded to the nearest whole number, halves to even. The double nearest
    // to a decimal such as 0.00005 lies a little above or below it, so such a
    // tie is decided by the binary value actually held, as it always was.
    if (!std::isfinite(value))
        overflow("l'importo non è un numero finito");
    return fromRoundedScaled(roundHalfEven(value * static_cast<double>(Scale)), "importo fuori dall'intervallo");
}

Currency Currency::fromText(std::string_view text)
{
    // Read exactly on the decimal digits, not through a double, so that
    // "0.00005" is a true half and rounds to even.
    const std::string_view trimmed = trimBlanks(text);
    const auto number = detail::scanNumber(trimmed);
    if (!number || number->length != trimmed.size())
        throw ValueError(ValueError::Kind::TypeMismatch,
                         "Type mismatch: \"" + std::string(text) + "\" non è un importo");

    std::string digits(number->integerDigits);
    digits += number->fractionDigits;
    const std::size_t firstSignificant = digits.find_first_not_of('0');
    if (firstSignificant == std::string::npos)
        return Currency();
    // Power of ten by which the digit string must be multiplied to count ten-thousandths.
    long long shift =
        static_cast<long long>(number->exponent) + 4 - static_cast<long long>(number->fractionDigits.size());
    digits.erase(0, firstSignificant);

    std::string_view kept = digits;
    std::string_view dropped;
    if (shift < 0) {
        const long long keptCount = static_cast<long long>(digits.size()) + shift;
        const std::size_t cut = keptCount > 0 ? static_cast<std::size_t>(keptCount) : 0;
        kept = std::string_view(digits).substr(0, cut);
        // With fewer digits than the shift, the dropped part starts with
        // implied zeros and is below one half.
        dropped = keptCount >= 0 ? std::string_view(digits).substr(cut) : std::string_view("0");
        shift = 0;
    }

    const std::uint64_t limit = number->negative ? magnitude(INT64_MIN) : static_cast<std::uint64_t>(INT64_MAX);
    const std::string what = "importo \"" + std::string(text) + "\"";
    std::uint64_t count = 0;
    for (char c : kept) {
        if (__builtin_mul_overflow(count, 10U, &count) ||
            __builtin_add_overflow(count, static_cast<unsigned>(c - '0'), &count))
            overflow(what);
    }
    for (long long i = 0; i < shift && count != 0; ++i) {
        if (__builtin_mul_overflow(count, 10U, &count))
            overflow(what);
    }
    if (roundsAway(dropped, count % 2 != 0))
        ++count;
    if (count > limit)
        overflow(what);
    const std::int64_t raw = number->negative ? static_cast<std::int64_t>(0 - count) : static_cast<std::int64_t>(count);
    return Currency(raw);
}

double Currency::toDouble() const noexcept { return static_cast<double>(raw_) / static_cast<double>(Scale); }

std::string Currency::toText() const
{
    std::string text = toFixed4();
    const std::size_t point = text.find('.');
    std::size_t end = text.find_last_not_of('0');
    if (end == point)
        --end;
    text.erase(end + 1);
    return text == "-0" ? "0" : text;
}

std::string Currency::toFixed4() const
{
    const std::uint64_t units = magnitude(raw_) / static_cast<std::uint64_t>(Scale);
    const std::uint64_t fraction = magnitude(raw_) % static_cast<std::uint64_t>(Scale);
    const std::string decimals = std::to_string(fraction);
    std::string text = raw_ < 0 ? "-" : "";
    text += std::to_string(units);
    text += '.';
    text.append(4 - decimals.size(), '0');
    text += decimals;
    return text;
}

Currency Currency::operator+(Currency other) const
{
    std::int64_t raw = 0;
    if (__builtin_add_overflow(raw_, other.raw_, &raw))
        overflow(toText() + " + " + other.toText());
    return Currency(raw);
}

Currency Currency::operator-(Currency other) const
{
    std::int64_t raw = 0;
    if (__builtin_sub_overflow(raw_, other.raw_, &raw))
        overflow(toText() + " - " + other.toText());
    return Currency(raw);
}

Currency Currency::operator-() const
{
    if (raw_ == INT64_MIN)
        overflow("-(" + toText() + ")");
    return Currency(-raw_);
}

Currency Currency::times(std::int64_t factor) const
{
    std::int64_t raw = 0;
    if (__builtin_mul_overflow(raw_, factor, &raw))
        overflow(toText() + " * " + std::to_string(factor));
    return Currency(raw);
}

// Products and quotients are taken on the count of ten-thousandths itself, so
// that the only roundings are the double arithmetic and the final return to a
// whole count (halves to even).
// Products by non-whole numbers and quotients take one route: the amount as
// a double, the operation on the double, and back to ten-thousandths with
// halves to even (fromDouble). The engine's percentages and the dialog's
// hourly rates go the same way, so the same amount never comes out two ways.
Currency Currency::timesDouble(double factor) const { return fromDouble(toDouble() * factor); }

Currency Currency::dividedBy(double divisor) const
{
    if (divisor == 0.0)
        throw ValueError(ValueError::Kind::DivisionByZero, "Division by zero: " + toText() + " / 0");
    return fromDouble(toDouble() / divisor);
}

} // namespace avlor
