#include "avlor/core/Format.h"

#include <cstdint>
#include <string>

#include "NumberText.h"
#include "avlor/core/Error.h"

namespace avlor {

namespace {

// Number of decimals a known pattern shows.
int decimalsOf(std::string_view pattern)
{
    if (pattern == FormatoEuro || pattern == FormatoGrigliaEuro)
        return 2;
    if (pattern == FormatoLire || pattern == FormatoGrigliaLire)
        return 0;
    throw UsageError("Formato di importo sconosciuto \"" + std::string(pattern) + "\"");
}

// Digits of `units` in groups of three from the right; no digit at all for 0,
// since every position of the patterns is a '#' that suppresses a leading zero.
std::string groupedUnits(std::uint64_t units, const std::string& separator)
{
    if (units == 0)
        return {};
    const std::string digits = std::to_string(units);
    std::string text;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0)
            text += separator;
        text += digits[i];
    }
    return text;
}

} // namespace

std::string formatAmount(Currency amount, std::string_view pattern, const Locale& locale)
{
    const int decimals = decimalsOf(pattern);
    // Rounded on the integer count itself: 0.125 shows ".12" and 0.135 ".14"
    // exactly, with no double in between.
    std::int64_t step = Currency::Scale;
    for (int i = 0; i < decimals; ++i)
        step /= 10;
    // in units of the last decimal shown
    const std::int64_t shown = amount.multiplesOf(Currency::fromRaw(step), Rounding::HalfEven);
    const std::uint64_t magnitude =
        shown < 0 ? 0 - static_cast<std::uint64_t>(shown) : static_cast<std::uint64_t>(shown);

    std::uint64_t perUnit = 1;
    for (int i = 0; i < decimals; ++i)
        perUnit *= 10;

    // An amount that rounds to zero shows no sign.
    std::string text = shown < 0 ? "-" : "";
    text += groupedUnits(magnitude / perUnit, locale.groupSeparator);
    if (decimals > 0) {
        std::string fraction = std::to_string(magnitude % perUnit);
        fraction.insert(0, static_cast<std::size_t>(decimals) - fraction.size(), '0');
        text += locale.decimalSeparator + fraction;
    }
    return text;
}

std::string formatMoneyAmount(Currency amount, bool lire, const Locale& locale)
{
    const Currency step = Currency::fromRaw(lire ? Currency::Scale : Currency::Scale / 100);
    const std::int64_t steps = amount.multiplesOf(step, Rounding::HalfUp);
    const std::uint64_t shown = steps < 0 ? 0 - static_cast<std::uint64_t>(steps) : static_cast<std::uint64_t>(steps);
    const std::uint64_t perUnit = lire ? 1 : 100;
    std::string text = steps < 0 ? "-" : "";
    const std::string units = groupedUnits(shown / perUnit, locale.groupSeparator);
    text += units.empty() ? "0" : units;
    if (!lire) {
        const std::uint64_t cents = shown % perUnit;
        text += locale.decimalSeparator + (cents < 10 ? "0" : "") + std::to_string(cents);
    }
    return text;
}

std::string formatMoney(Currency amount, bool lire, const Locale& locale)
{
    return formatMoneyAmount(amount, lire, locale) + (lire ? " lire" : " \u20AC");
}

std::string formatShortDate(Date date, const Locale& locale)
{
    const std::string& pattern = locale.shortDatePattern;
    auto runOf = [&pattern](std::size_t at, char c) {
        std::size_t n = 0;
        while (at + n < pattern.size() && pattern[at + n] == c)
            ++n;
        return n;
    };
    auto padded = [](int value, std::size_t width) {
        std::string digits = std::to_string(value);
        if (digits.size() < width)
            digits.insert(0, width - digits.size(), '0');
        return digits;
    };

    std::string text;
    for (std::size_t i = 0; i < pattern.size();) {
        const char c = pattern[i];
        const std::size_t run = (c == 'd' || c == 'm' || c == 'y') ? runOf(i, c) : 1;
        if (c == 'd')
            text += padded(date.day(), run);
        else if (c == 'm')
            text += padded(date.month(), run);
        else if (c == 'y')
            text += run == 2 ? padded(date.year() % 100, 2) : padded(date.year(), run);
        else
            text += c;
        i += run;
    }
    return text;
}

} // namespace avlor
