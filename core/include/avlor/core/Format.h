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

// An amount as a person reads it on the terminal or in a document: rounded to
// the cent (to the lira for lire) with halves away from zero, as invoices and
// every published fee computation round, grouped by thousands with the
// locale's separators (none when the locale's is empty), a 0 before the
// decimal mark: "958,50", "30.000", "0,00". The figure underneath stays exact.
[[nodiscard]] std::string formatMoneyAmount(Currency amount, bool lire, const Locale& locale);
// The same with its unit: "958,50 €", "30.000 lire", "0,00 €".
[[nodiscard]] std::string formatMoney(Currency amount, bool lire, const Locale& locale);

// A date in the locale's short date form.
[[nodiscard]] std::string formatShortDate(Date date, const Locale& locale);

} // namespace avlor
