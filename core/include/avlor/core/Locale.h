#pragma once
// Locale: the separators and the short date form with which numbers and
// dates are shown to a user. Taken from the user's environment by default;
// tests and hosts pass one explicitly.
#include <string>

namespace avlor {

struct Locale {
    std::string groupSeparator = ",";
    std::string decimalSeparator = ".";
    // Short date pattern with d, dd, m, mm, yyyy fields, for example
    // "dd/mm/yyyy" (Italian) or "m/d/yyyy" (United States).
    std::string shortDatePattern = "dd/mm/yyyy";

    // "1.234,50" and "02/06/2004".
    [[nodiscard]] static Locale italian();
    // "1,234.50" and "6/2/2004".
    [[nodiscard]] static Locale unitedStates();
    // Neutral: "," and "." with day-first dates.
    [[nodiscard]] static Locale neutral();
    // From LC_ALL, then LC_NUMERIC, then LANG: an "it" language gives the
    // Italian conventions, "en_US" the United States ones, any other the
    // neutral form.
    [[nodiscard]] static Locale fromEnvironment();
    // The conventions with which amounts are shown to the user and read back
    // from what the user types, read from the environment at each call. The
    // firms that use the product are Italian: where the environment names no
    // real conventions (nothing set, C, POSIX, C.UTF-8) the Italian ones
    // apply, so that "120,00" typed into a money field is 120 and not 12,000.
    // An "it" language is Italian and "en_US" the United States form; any
    // other locale keeps the separators the system gives it, with day-first
    // dates, and is Italian when the system does not know it.
    [[nodiscard]] static Locale user();
};

} // namespace avlor
