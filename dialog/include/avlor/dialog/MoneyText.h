#pragma once
// How the dialog reads an amount back from the text of a money field.
#include <string_view>

#include "avlor/core/Currency.h"
#include "avlor/core/Locale.h"

namespace avlor::dialog {

// The one lenient reading of a money field's text, in the dialog's locale:
// blanks and the locale's group separators are dropped, the locale's decimal
// separator stands for the decimal point, and then the longest leading
// number is taken (an optional sign, digits, a decimal part); anything after
// it is ignored and text with no leading number reads as 0. Digits beyond the
// fourth decimal are rounded halves to even. So, in an Italian locale,
// "1.234,50" reads 1234.5 and "12abc" 12; in a neutral one "1,234.50" reads
// 1234.5; "", "abc" and ".00" read 0.
[[nodiscard]] Currency readAmount(std::string_view text, const Locale& locale);

} // namespace avlor::dialog
