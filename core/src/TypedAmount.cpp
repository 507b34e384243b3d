#include "avlor/core/TypedAmount.h"

#include <algorithm>
#include <optional>
#include <string>

#include "avlor/core/Error.h"

namespace avlor {

namespace {

bool allDigits(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

[[noreturn]] void refuse(std::string_view text, const std::string& why,
                         ValueError::Kind kind = ValueError::Kind::TypeMismatch)
{
    throw ValueError(kind, "«" + std::string(text) + "» " + why);
}

[[noreturn]] void notAnAmount(std::string_view text)
{
    refuse(text, "non è un importo: scriverlo per esempio 30000, 30000,50 o 30.000,50");
}

// "1.234.567" with '.' -> "1234567"; nothing when the marks do not group the
// thousands (a first group of one to three digits not starting with 0, then
// groups of exactly three).
std::optional<std::string> ungrouped(std::string_view integerPart, char mark)
{
    std::string digits;
    std::size_t start = 0;
    for (bool first = true;; first = false) {
        const std::size_t next = integerPart.find(mark, start);
        const std::string_view group = integerPart.substr(start, next == std::string_view::npos ? next : next - start);
        if (!allDigits(group))
            return std::nullopt;
        if (first ? group.size() > 3 || group.front() == '0' : group.size() != 3)
            return std::nullopt;
        digits += group;
        if (next == std::string_view::npos)
            return digits;
        start = next + 1;
    }
}

// The digits as an amount with an optional sign and decimals.
Currency exact(std::string_view original, bool negative, const std::string& integerDigits, std::string_view decimals)
{
    if (decimals.size() > 4)
        refuse(original, "ha più di quattro decimali: gli importi si tengono esatti al decimillesimo");
    std::string plain = negative ? "-" : "";
    plain += integerDigits;
    if (!decimals.empty())
        plain += "." + std::string(decimals);
    try {
        return Currency::fromText(plain);
    } catch (const ValueError&) {
        refuse(original, "è un importo troppo grande", ValueError::Kind::Overflow);
    }
}

// "25.9" -> "25,9": a reading shown the Italian way.
std::string shownItalian(Currency amount)
{
    std::string text = amount.toText();
    std::replace(text.begin(), text.end(), '.', ',');
    return text;
}

} // namespace

Currency readTypedAmount(std::string_view typed)
{
    const auto first = typed.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        refuse(typed, "non è un importo: manca la cifra");
    const std::string_view text = typed.substr(first, typed.find_last_not_of(" \t") - first + 1);
    std::string_view body = text;
    const bool negative = body.front() == '-';
    if (body.front() == '-' || body.front() == '+')
        body.remove_prefix(1);
    if (body.empty() || body.front() < '0' || body.front() > '9' ||
        !std::all_of(body.begin(), body.end(), [](char c) { return (c >= '0' && c <= '9') || c == '.' || c == ','; }))
        notAnAmount(text);

    const std::size_t lastComma = body.rfind(',');
    const std::size_t lastPoint = body.rfind('.');
    const auto commas = std::count(body.begin(), body.end(), ',');
    const auto points = std::count(body.begin(), body.end(), '.');

    if (commas == 0 && points == 0)
        return exact(text, negative, std::string(body), {});

    if (commas > 0 && points > 0) {
        // Both marks: the last one takes the decimals, the other groups.
        const bool commaDecimals = lastComma > lastPoint;
        const std::size_t mark = commaDecimals ? lastComma : lastPoint;
        if ((commaDecimals ? commas : points) != 1)
            notAnAmount(text);
        const std::string_view decimals = body.substr(mark + 1);
        const auto digits = ungrouped(body.substr(0, mark), commaDecimals ? '.' : ',');
        if (!digits || !allDigits(decimals))
            notAnAmount(text);
        return exact(text, negative, *digits, decimals);
    }

    const char onlyMark = commas > 0 ? ',' : '.';
    if (commas + points > 1) {
        // One mark several times can only group the thousands.
        const auto digits = ungrouped(body, onlyMark);
        if (!digits)
            notAnAmount(text);
        return exact(text, negative, *digits, {});
    }

    const std::size_t mark = body.find(onlyMark);
    const std::string_view integerPart = body.substr(0, mark);
    const std::string_view decimals = body.substr(mark + 1);
    if (!allDigits(decimals))
        notAnAmount(text);
    if (decimals.size() == 3 && ungrouped(integerPart, onlyMark)) {
        const Currency grouped = exact(text, negative, std::string(integerPart) + std::string(decimals), {});
        const Currency decimal = exact(text, negative, std::string(integerPart), decimals);
        refuse(text,
               "si può leggere in due modi: " + grouped.toText() + " oppure " + shownItalian(decimal) + "; scrivere " +
                   grouped.toText() + " per il primo, " + shownItalian(decimal) + " per il secondo");
    }
    return exact(text, negative, std::string(integerPart), decimals);
}

} // namespace avlor
