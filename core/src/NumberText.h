#pragma once
// Private helpers shared by the value types: the one scanner of numeric text
// (used by the strict conversions, the lenient reading and the exact reading
// of money amounts), the trimming of blanks, and exact integer rounding.
// Header-only so that the module's list of sources stays as it is.
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <system_error>

#include "avlor/core/Text.h"

namespace avlor::detail {

// The parts of a number written as text: [sign] digits [. digits] [e [sign] digits].
struct ScannedNumber {
    bool negative = false;
    std::string_view integerDigits;
    std::string_view fractionDigits;
    // Power of ten written after the mantissa; saturated far beyond any
    // meaningful magnitude so that arithmetic on it cannot overflow.
    int exponent = 0;
    // Characters of the text taken by the number, sign included.
    std::size_t length = 0;
};

inline constexpr int ExponentLimit = 100000;

inline bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

inline bool isBlank(char c) noexcept { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

inline std::size_t countDigits(std::string_view text, std::size_t from) noexcept
{
    std::size_t i = from;
    while (i < text.size() && isDigit(text[i]))
        ++i;
    return i - from;
}

// The longest number at the very start of `text` (no blanks skipped); no
// value when the text does not begin with one (at least one digit is needed,
// before or after the point). An exponent is taken only when digits follow it.
inline std::optional<ScannedNumber> scanNumber(std::string_view text) noexcept
{
    ScannedNumber n;
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        n.negative = text[i] == '-';
        ++i;
    }
    const std::size_t intCount = countDigits(text, i);
    n.integerDigits = text.substr(i, intCount);
    i += intCount;
    if (i < text.size() && text[i] == '.') {
        const std::size_t fracCount = countDigits(text, i + 1);
        if (intCount > 0 || fracCount > 0) {
            n.fractionDigits = text.substr(i + 1, fracCount);
            i += 1 + fracCount;
        }
    }
    if (n.integerDigits.empty() && n.fractionDigits.empty())
        return std::nullopt;

    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        std::size_t j = i + 1;
        bool negativeExponent = false;
        if (j < text.size() && (text[j] == '+' || text[j] == '-')) {
            negativeExponent = text[j] == '-';
            ++j;
        }
        const std::size_t expCount = countDigits(text, j);
        if (expCount > 0) {
            int exponent = 0;
            for (std::size_t k = j; k < j + expCount; ++k) {
                if (exponent < ExponentLimit)
                    exponent = exponent * 10 + (text[k] - '0');
            }
            n.exponent = negativeExponent ? -exponent : exponent;
            i = j + expCount;
        }
    }
    n.length = i;
    return n;
}

// The double nearest to a scanned number (the first `number.length`
// characters of `text`); out-of-range magnitudes give an infinity (too large)
// or zero (too small), with the number's sign.
inline double toDouble(std::string_view text, const ScannedNumber& number) noexcept
{
    std::string_view digits = text.substr(0, number.length);
    if (!digits.empty() && digits.front() == '+')
        digits.remove_prefix(1);
    double value = 0.0;
    const auto [ptr, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    (void)ptr;
    if (ec == std::errc::result_out_of_range) {
        // The magnitude is beyond what a double holds: decide by the side of
        // the range the written number lies on.
        const bool tooLarge = number.exponent > 0 || number.integerDigits.size() > 300;
        value = tooLarge ? HUGE_VAL : 0.0;
        return number.negative ? -value : value;
    }
    return value;
}

// Text that is wholly a number once trimmed; no value otherwise (including
// empty text).
inline std::optional<double> parseStrictDouble(std::string_view text) noexcept
{
    text = trimBlanks(text);
    const auto number = scanNumber(text);
    if (!number || number->length != text.size())
        return std::nullopt;
    return toDouble(text, *number);
}

// ASCII case-insensitive equality, for keys and the words "True"/"False".
inline bool equalsIgnoreCase(std::string_view a, std::string_view b) noexcept
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        auto lower = [](char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; };
        if (lower(a[i]) != lower(b[i]))
            return false;
    }
    return true;
}

} // namespace avlor::detail
