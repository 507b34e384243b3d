#pragma once
// The twelve fee tables: their editions and families, how a table name given
// by a caller is recognised, and the statement that reads one item's row.
// This is the one list of the tables; the tariff engine, the fee-table files
// and the command line all take their names from here.
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace avlor {

// The three editions of the official tables: 1994 in lire, the same 1994
// tables converted to euro, and the 2004 tables in euro.
enum class Edition { Lire94, Euro94, Euro2004 };

enum class Family { Rights, Civil, Criminal, OutOfCourt };

struct FeeTable {
    std::string_view name; // as stored, for example "Diritti94Euro"
    Family family;
    Edition edition;
};

// The twelve tables in the order in which a name is matched: rights, civil,
// criminal, out-of-court, each family in the order 1994 lire, 1994 euro,
// 2004 euro.
[[nodiscard]] std::span<const FeeTable> feeTables() noexcept;

// A caller's table name trimmed of leading and trailing blanks and upper-cased
// ("  diritti94euro " -> "DIRITTI94EURO"), the form in which names are matched.
[[nodiscard]] std::string normalizedTableName(std::string_view sTabella);

// The table a caller's name selects, matched on the normalized name; none for
// any other name.
[[nodiscard]] std::optional<FeeTable> feeTableNamed(std::string_view sTabella);

// The same, raising Error (naming the twelve tables) for any other name.
[[nodiscard]] FeeTable requireFeeTable(std::string_view sTabella);

// "SELECT * FROM " + table + " WHERE Id = " + the decimal text of the id.
[[nodiscard]] std::string sqlFeeRow(std::string_view table, std::int32_t id);

} // namespace avlor
