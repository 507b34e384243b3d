#include "avlor/dialog/MoneyText.h"

#include <cctype>
#include <string>

namespace avlor::dialog {

Currency readAmount(std::string_view text, const Locale& locale)
{
    // First the text as the locale writes it is brought to the plain form
    // "-1234.5": blanks and group separators out, the decimal separator in
    // as a point.
    std::string plain;
    for (std::size_t i = 0; i < text.size();) {
        const std::string_view rest = text.substr(i);
        if (!locale.groupSeparator.empty() && rest.starts_with(locale.groupSeparator)) {
            i += locale.groupSeparator.size();
        } else if (!locale.decimalSeparator.empty() && rest.starts_with(locale.decimalSeparator)) {
            plain += '.';
            i += locale.decimalSeparator.size();
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
