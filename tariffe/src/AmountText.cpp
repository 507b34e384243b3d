#include "avlor/tariffe/AmountText.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "TariffText.h"
#include "avlor/core/Error.h"
#include "avlor/core/Text.h"

namespace avlor {

namespace {

using tariffe_detail::allDigits;

[[noreturn]] void refuse(std::string_view text, const std::string& why)
{
    throw ValueError(ValueError::Kind::TypeMismatch, "\"" + std::string(text) + "\" " + why);
}

// "1.234.567" -> "1234567"; nothing when the points do not group thousands
// (a first group of one to three digits not starting with 0 unless alone,
// then groups of exactly three).
std::optional<std::string> ungroupThousands(std::string_view integerPart)
{
    std::string digits;
    std::size_t start = 0;
    bool first = true;
    while (true) {
        const std::size_t point = integerPart.find('.', start);
        const std::string_view group =
            integerPart.substr(start, point == std::string_view::npos ? std::string_view::npos : point - start);
        if (!allDigits(group))
            return std::nullopt;
        if (first ? (group.size() > 3 || (group.size() > 1 && group.front() == '0')) : group.size() != 3)
            return std::nullopt;
        if (first && group == "0" && point != std::string_view::npos)
            return std::nullopt;
        digits += group;
        first = false;
        if (point == std::string_view::npos)
            return digits;
        start = point + 1;
    }
}

Currency exactAmount(std::string_view original, const std::string& integerDigits, std::string_view decimals)
{
    if (decimals.size() > 4)
        refuse(original, "ha più di quattro decimali e non si può tenere esatto");
    try {
        return Currency::fromText(decimals.empty() ? integerDigits : integerDigits + "." + std::string(decimals));
    } catch (const ValueError&) {
        refuse(original, "è troppo grande per un importo");
    }
}

} // namespace

AmountText readAmountText(std::string_view cell)
{
    const std::string_view text = trimBlanks(cell, tariffe_detail::CellBlanks);
    if (text.empty())
        refuse(cell, "non è un importo");
    if (text.front() == '-')
        refuse(text, "è negativo: gli importi delle tariffe non sono mai sotto lo 0");
    if (!std::all_of(text.begin(), text.end(), [](char c) { return (c >= '0' && c <= '9') || c == '.' || c == ','; }))
        refuse(text, "non è un importo");

    const std::size_t comma = text.find(',');
    const auto points = static_cast<std::size_t>(std::count(text.begin(), text.end(), '.'));
    AmountText out;

    if (comma != std::string_view::npos) {
        const std::string_view integerPart = text.substr(0, comma);
        const std::string_view decimals = text.substr(comma + 1);
        if (!allDigits(decimals))
            refuse(text, "non è un importo");
        const auto digits = integerPart.find('.') == std::string_view::npos
            ? (allDigits(integerPart) ? std::optional<std::string>(integerPart) : std::nullopt)
            : ungroupThousands(integerPart);
        if (!digits)
            refuse(
                text,
                "non è un importo: nella scrittura italiana i punti separano le migliaia a gruppi di tre (1.234,56)");
        out.form = AmountText::Form::Italian;
        out.amount = exactAmount(text, *digits, decimals);
        return out;
    }

    if (points == 0) {
        out.amount = exactAmount(text, std::string(text), {});
        return out;
    }

    if (points > 1) {
        const auto digits = ungroupThousands(text);
        if (!digits)
            refuse(text, "non è un importo");
        out.form = AmountText::Form::Italian;
        out.amount = exactAmount(text, *digits, {});
        return out;
    }

    const std::size_t point = text.find('.');
    const std::string_view integerPart = text.substr(0, point);
    const std::string_view decimals = text.substr(point + 1);
    if (!allDigits(integerPart) || !allDigits(decimals))
        refuse(text, "non è un importo");
    const auto grouped = ungroupThousands(text);
    if (grouped && decimals.size() == 3) {
        out.form = AmountText::Form::Ambiguous;
        out.amount = exactAmount(text, *grouped, {});
        out.pointReading = exactAmount(text, std::string(integerPart), decimals);
        return out;
    }
    out.form = AmountText::Form::Point;
    out.amount = exactAmount(text, std::string(integerPart), decimals);
    return out;
}

DecimalStyle styleShownBy(const AmountText& cell) noexcept
{
    switch (cell.form) {
    case AmountText::Form::Italian:
        return DecimalStyle::Italian;
    case AmountText::Form::Point:
        return DecimalStyle::Point;
    case AmountText::Form::Whole:
    case AmountText::Form::Ambiguous:
        break;
    }
    return DecimalStyle::Unknown;
}

Currency amountInStyle(const AmountText& cell, std::string_view text, DecimalStyle style)
{
    if (cell.form != AmountText::Form::Ambiguous)
        return cell.amount;
    if (style == DecimalStyle::Italian)
        return cell.amount;
    if (style == DecimalStyle::Point)
        return cell.pointReading;
    const std::string trimmed(trimBlanks(text, tariffe_detail::CellBlanks));
    refuse(trimmed,
           "si può leggere in due modi: nient'altro nel file dice se il punto separa le migliaia (" +
               cell.amount.toText() + ") o i decimali (" + cell.pointReading.toText() + "); scrivere " +
               cell.amount.toText() + " o " + trimmed + ",00 per il primo, " + trimmed + "0 per il secondo");
}

} // namespace avlor
