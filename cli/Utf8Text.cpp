#include "Utf8Text.h"

namespace avlor::cli {

namespace {

bool continuation(unsigned char c) { return (c & 0xC0U) == 0x80U; }

// The length of the valid UTF-8 sequence at `at`, or 0 when there is none
// (overlong forms, surrogates and code points past U+10FFFF are invalid).
std::size_t sequenceAt(std::string_view text, std::size_t at)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
    const std::size_t left = text.size() - at;
    const unsigned char lead = byte(0);
    if (lead < 0x80U)
        return 1;
    if (lead >= 0xC2U && lead <= 0xDFU)
        return left >= 2 && continuation(byte(1)) ? 2 : 0;
    if (lead >= 0xE0U && lead <= 0xEFU) {
        if (left < 3 || !continuation(byte(1)) || !continuation(byte(2)))
            return 0;
        if ((lead == 0xE0U && byte(1) < 0xA0U) || (lead == 0xEDU && byte(1) >= 0xA0U))
            return 0;
        return 3;
    }
    if (lead >= 0xF0U && lead <= 0xF4U) {
        if (left < 4 || !continuation(byte(1)) || !continuation(byte(2)) || !continuation(byte(3)))
            return 0;
        if ((lead == 0xF0U && byte(1) < 0x90U) || (lead == 0xF4U && byte(1) >= 0x90U))
            return 0;
        return 4;
    }
    return 0;
}

} // namespace

std::string utf8Text(std::string_view bytes)
{
    std::string out;
    out.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        if (const std::size_t n = sequenceAt(bytes, at); n > 0) {
            out.append(bytes.substr(at, n));
            at += n;
            continue;
        }
        const auto latin1 = static_cast<unsigned char>(bytes[at++]);
        out += static_cast<char>(0xC0U | (latin1 >> 6U));
        out += static_cast<char>(0x80U | (latin1 & 0x3FU));
    }
    return out;
}

} // namespace avlor::cli
