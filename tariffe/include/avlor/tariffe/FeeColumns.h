#pragma once
// The roles of the columns of a fee table. Every fee table has the item key
// `Id`, the printed item number `CodiceTariffa`, the description `Azione` and
// the authority text `Autorita`; every other column holds an amount in the
// table's unit (lire for the 1994 lire edition, euro for the others). The
// amount columns themselves are taken from the database, so a table gains a
// column without a change here. The tables themselves are listed in
// avlor/core/FeeTables.h.
#include <string_view>

namespace avlor {

enum class FeeColumnRole {
    Key, // Id: the official item id, a whole number
    Code, // CodiceTariffa: required text
    Text, // Azione, Autorita: optional text
    Amount, // every other column
};

// The role of a column of a fee table, by its name (letter case ignored).
[[nodiscard]] FeeColumnRole feeColumnRole(std::string_view column);

inline constexpr std::string_view FeeKeyColumn = "Id";
inline constexpr std::string_view FeeCodeColumn = "CodiceTariffa";

// Where the source of each loaded figure is recorded.
inline constexpr std::string_view SourcesTable = "FonteTariffe";

} // namespace avlor
