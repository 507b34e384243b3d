#include "avlor/dialog/MoneyText.h"

#include <cctype>
#include <string>

namespace avlor::dialog {

namespace {

std::size_t digitsAt(std::string_view text, std::size_t from)
{
    std::size_t count = 0;
    while (from + count < text.size() && std::isdigit(static_cast<unsigned char>(text[from + count])) != 0)
        ++count;
    return count;
}

// The separator that stands for the decimals in this text. A text without the
// locale's decimal separator whose one group separator is not followed by
// exactly three digits cannot be grouping thousands: it was typed the other
// way round ("10.00" in Italian, "120,00" in English) and the separator marks
// the decimals, so that the amount is never read a hundred times too large.
std::string_view decimalsMarkOf(std::string_view text, const Locale& locale)
{
    const std::string_view group = locale.groupSeparator;
    if (group.empty() || group == " " || text.find(locale.decimalSeparator) != std::string_view::npos)
        return locale.decimalSeparator;
    const std::size_t first = text.find(group);
    if (first == std::string_view::npos || text.find(group, first + group.size()) != std::string_view::npos)
        return locale.decimalSeparator;
    return digitsAt(text, first + group.size()) == 3 ? std::string_view(locale.decimalSeparator) : group;
}

} // namespace

Currency readAmount(std::string_view text, const Locale& locale)
{
    // First the text as the locale writes it is brought to the plain form
    // "-1234.5": blanks and group separators out, the decimal separator in
    // as a point.
    const std::string_view decimalMark = decimalsMarkOf(text, locale);
    std::string plain;
    for (std::size_t i = 0; i < text.size();) {
        const std::string_view rest = text.substr(i);
        if (!decimalMark.empty() && rest.starts_with(decimalMark)) {
            plain += '.';
            i += decimalMark.size();
        } else if (!locale.groupSeparator.empty() && rest.starts_with(locale.groupSeparator)) {
            i += locale.groupSeparator.size();
        } else if (std::isspace(static_cast<unsigned char>(text[i])) != 0) {
            ++i;
        } else {
            plain += text[i];
            ++i;
        }
    }
    // Then the longest leading number: sign, digits, one point, digits.
    std::size_t end = 0;
    if (end < plain.size() && (plain[end] == '-' || plain[end] == '+')) {
        ++end;
    }
    bool digits = false;
    while (end < plain.size() && std::isdigit(static_cast<unsigned char>(plain[end])) != 0) {
        ++end;
        digits = true;
    }
    if (end < plain.size() && plain[end] == '.') {
        std::size_t after = end + 1;
        bool decimals = false;
        while (after < plain.size() && std::isdigit(static_cast<unsigned char>(plain[after])) != 0) {
            ++after;
            decimals = true;
        }
        if (decimals) {
            end = after;
            digits = true;
        }
    }
    if (!digits) {
        return Currency{};
    }
    std::string number = plain.substr(0, end);
    if (number.front() == '+') {
        number.erase(0, 1);
    }
    if (number.front() == '.' || (number.front() == '-' && number.size() > 1 && number[1] == '.')) {
        number.insert(number.front() == '-' ? 1 : 0, "0");
    }
    return Currency::fromText(number);
}

} // namespace avlor::dialog
