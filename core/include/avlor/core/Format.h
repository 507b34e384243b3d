#pragma once
// Formatting of amounts with the patterns that the application shows:
// "###,###,###,###.00", "###,###,###,###", "###,###,###.00", "###,###,###".
// '#' suppresses leading zeros, so 0.5 shows ".50" and 0 shows ".00" with a
// two-decimal pattern and "" with a whole-number one. The last decimal is
// rounded halves to even. Separators come from the locale given.
#include <string>
#include <string_view>

#include "avlor/core/Currency.h"
#include "avlor/core/Date.h"
#include "avlor/core/Locale.h"

namespace avlor {

inline constexpr std::string_view FormatoEuro = "###,###,###,###.00";
inline constexpr std::string_view FormatoLire = "###,###,###,###";
inline constexpr std::string_view FormatoGrigliaEuro = "###,###,###.00";
inline constexpr std::string_view FormatoGrigliaLire = "###,###,###";

// Raises UsageError for a pattern outside the family above.
[[nodiscard]] std::string formatAmount(Currency amount, std::string_view pattern, const Locale& locale);

// A date in the locale's short date form.
[[nodiscard]] std::string formatShortDate(Date date, const Locale& locale);

} // namespace avlor
