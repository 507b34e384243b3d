#pragma once
// Small text helpers shared by the fee-table import and export code.
#include <algorithm>
#include <cctype>
#include <cstddef>
#include <string_view>

#include "avlor/core/Text.h"

namespace avlor::tariffe_detail {

// The blanks around a cell of a fee-table file: spaces and tabs. A line end
// inside a quoted cell is part of its text.
inline constexpr std::string_view CellBlanks = " \t";

// Equal when compared letter by letter without regard to ASCII case.
[[nodiscard]] inline bool equalsIgnoringCase(std::string_view a, std::string_view b) noexcept
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
           });
}

[[nodiscard]] inline bool allDigits(std::string_view text) noexcept
{
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

using avlor::isValidUtf8;

} // namespace avlor::tariffe_detail
