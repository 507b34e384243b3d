#pragma once
// The twelve official fee tables of the practice database and the roles of
// their columns. Every fee table has the item key `Id`, the printed item
// number `CodiceTariffa`, the description `Azione` and the authority text
// `Autorita`; every other column holds an amount in the table's unit (lire
// for the 1994 lire edition, euro for the others). The amount columns
// themselves are taken from the database, so a table gains a column without
// a change here.
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace avlor {

enum class FeeFamily { Diritti, Onorari, OnorariPenali, OnorariStrag };
enum class FeeUnit { Lira, Euro };

struct FeeTable {
    std::string_view name; // as the schema spells it, e.g. "Onorari2004Euro"
    FeeFamily family;
    FeeUnit unit;
};

// The twelve tables, family by family, each family in the order 1994 lire,
// 1994 euro, 2004 euro.
[[nodiscard]] std::span<const FeeTable> feeTables() noexcept;

// The table named `name`, compared without regard to letter case and
// surrounding blanks ("onorari2004euro" finds Onorari2004Euro); nothing for
// any other name.
[[nodiscard]] std::optional<FeeTable> findFeeTable(std::string_view name);
// The same, raising Error (naming the twelve tables) for any other name.
[[nodiscard]] FeeTable requireFeeTable(std::string_view name);

enum class FeeColumnRole {
    Key,         // Id: the official item id, a whole number
    Code,        // CodiceTariffa: required text
    Text,        // Azione, Autorita: optional text
    Amount,      // every other column
};

// The role of a column of a fee table, by its name (letter case ignored).
[[nodiscard]] FeeColumnRole feeColumnRole(std::string_view column);

inline constexpr std::string_view FeeKeyColumn = "Id";
inline constexpr std::string_view FeeCodeColumn = "CodiceTariffa";

// Where the source of each loaded figure is recorded.
inline constexpr std::string_view SourcesTable = "FonteTariffe";

} // namespace avlor
