#pragma once
// The one way text is trimmed of blanks in the component. Each caller names
// the blanks its input may carry when they differ from the usual ones: a fee
// table's name loses only spaces, a cell of a fee-table file spaces and tabs.
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

} // namespace avlor
