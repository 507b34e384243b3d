#pragma once
// The one way text is trimmed of blanks in the component. Each caller names
// the blanks its input may carry when they differ from the usual ones: a fee
// table's name loses only spaces, a cell of a fee-table file spaces and tabs.
#include <string>
#include <string_view>

namespace avlor {

// Spaces, tabs, line ends, vertical tabs and form feeds.
inline constexpr std::string_view Blanks = " \t\r\n\v\f";

// `text` without the leading and trailing characters of `blanks`.
[[nodiscard]] constexpr std::string_view trimBlanks(std::string_view text, std::string_view blanks = Blanks) noexcept
{
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// `text` with every well-formed "%XX" escape of a URI turned into its byte;
// an escape that is not two hexadecimal digits is kept as written.
[[nodiscard]] inline std::string percentDecoded(std::string_view text)
{
    const auto hexValue = [](char c) {
        if (c >= '0' && c <= '9')
            return c - '0';
        if (c >= 'a' && c <= 'f')
            return c - 'a' + 10;
        if (c >= 'A' && c <= 'F')
            return c - 'A' + 10;
        return -1;
    };
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size() && hexValue(text[i + 1]) >= 0 && hexValue(text[i + 2]) >= 0) {
            out += static_cast<char>(hexValue(text[i + 1]) * 16 + hexValue(text[i + 2]));
            i += 2;
        } else {
            out += text[i];
        }
    }
    return out;
}

} // namespace avlor
