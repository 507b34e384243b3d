#pragma once
// The one way text is trimmed of blanks in the component. Each caller names
// the blanks its input may carry when they differ from the usual ones: a fee
// table's name loses only spaces, a cell of a fee-table file spaces and tabs.
#include <cstddef>
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

// True when the bytes are well-formed UTF-8 (no overlong forms, no
// surrogates, nothing above U+10FFFF).
[[nodiscard]] inline bool isValidUtf8(std::string_view text) noexcept
{
    std::size_t i = 0;
    while (i < text.size()) {
        const auto lead = static_cast<unsigned char>(text[i]);
        std::size_t length = 0;
        unsigned min = 0;
        unsigned code = 0;
        if (lead < 0x80) {
            ++i;
            continue;
        }
        if (lead >= 0xC2 && lead <= 0xDF) {
            length = 2;
            min = 0x80;
            code = lead & 0x1Fu;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            length = 3;
            min = 0x800;
            code = lead & 0x0Fu;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            length = 4;
            min = 0x10000;
            code = lead & 0x07u;
        } else {
            return false;
        }
        if (i + length > text.size())
            return false;
        for (std::size_t k = 1; k < length; ++k) {
            const auto next = static_cast<unsigned char>(text[i + k]);
            if ((next & 0xC0u) != 0x80u)
                return false;
            code = (code << 6) | (next & 0x3Fu);
        }
        if (code < min || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
            return false;
        i += length;
    }
    return true;
}

} // namespace avlor
