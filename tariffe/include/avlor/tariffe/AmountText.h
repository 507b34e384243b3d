#pragma once
// How an amount cell of a fee-table file is read. Firms keep their tables in
// Italian notation ("1.234,56": points group thousands, a comma before the
// decimals) or with a decimal point ("1234.56"), and a file keeps to one of
// the two. A cell such as "1.055" reads 1055 in the first and 1.055 in the
// second, so it takes the notation that the rest of its file shows; a file
// that nowhere shows its notation is refused rather than read a thousand
// times too large or too small. Amounts are read exactly (at most four
// decimals, the precision of Currency) and are never negative.
#include <string>
#include <string_view>

#include "avlor/core/Currency.h"

namespace avlor {

enum class DecimalStyle { Unknown, Italian, Point };

struct AmountText {
    enum class Form {
        Whole, // digits only: the same in both notations
        Italian, // shows the Italian notation (a comma, or several grouping points)
        Point, // shows a decimal point
        Ambiguous, // one point followed by exactly three digits
    };
    Form form = Form::Whole;
    // The amount as the form reads it; for Ambiguous the Italian reading
    // (the point groups thousands).
    Currency amount;
    // For Ambiguous only: the reading with a decimal point.
    Currency pointReading;
};

// Reads one cell (surrounding blanks ignored). Text that is not an amount in
// either notation, a negative amount, more than four decimals or an amount
// beyond the range of Currency raise ValueError with a message naming the
// text.
[[nodiscard]] AmountText readAmountText(std::string_view text);

// The notation a cell shows (Unknown for Whole and Ambiguous).
[[nodiscard]] DecimalStyle styleShownBy(const AmountText& cell) noexcept;

// The amount of a cell in a file of the given notation. An Ambiguous cell in
// a file of Unknown notation raises ValueError explaining how to write it.
[[nodiscard]] Currency amountInStyle(const AmountText& cell, std::string_view text, DecimalStyle style);

} // namespace avlor
