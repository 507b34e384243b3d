#include "avlor/core/FeeTables.h"

#include <array>

#include "avlor/core/Error.h"
#include "avlor/core/Text.h"

namespace avlor {

namespace {

// In the order in which a name is matched: rights, civil, criminal,
// out-of-court, each family in its editions' order.
constexpr std::array<FeeTable, 12> Tables{{
    {"Diritti94", Family::Rights, Edition::Lire94},
    {"Diritti94Euro", Family::Rights, Edition::Euro94},
    {"Diritti2004Euro", Family::Rights, Edition::Euro2004},
    {"Onorari94", Family::Civil, Edition::Lire94},
    {"Onorari94Euro", Family::Civil, Edition::Euro94},
    {"Onorari2004Euro", Family::Civil, Edition::Euro2004},
    {"OnorariPenali94", Family::Criminal, Edition::Lire94},
    {"OnorariPenali94Euro", Family::Criminal, Edition::Euro94},
    {"OnorariPenali2004Euro", Family::Criminal, Edition::Euro2004},
    {"OnorariStrag94", Family::OutOfCourt, Edition::Lire94},
    {"OnorariStrag94Euro", Family::OutOfCourt, Edition::Euro94},
    {"OnorariStrag2004Euro", Family::OutOfCourt, Edition::Euro2004},
}};

char upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }

} // namespace

std::span<const FeeTable> feeTables() noexcept { return Tables; }

std::string normalizedTableName(std::string_view sTabella)
{
    // Only spaces are trimmed: a tab or a line feed is part of the name.
    std::string name(trimBlanks(sTabella, " "));
    for (char& c : name)
        c = upper(c);
    return name;
}

std::optional<FeeTable> feeTableNamed(std::string_view sTabella)
{
    const std::string wanted = normalizedTableName(sTabella);
    for (const FeeTable& table : Tables) {
        if (normalizedTableName(table.name) == wanted)
            return table;
    }
    return std::nullopt;
}

FeeTable requireFeeTable(std::string_view sTabella)
{
    if (const auto table = feeTableNamed(sTabella))
        return *table;
    std::string names;
    for (const FeeTable& table : Tables)
        names += (names.empty() ? "" : ", ") + std::string(table.name);
    throw Error("\"" + std::string(sTabella) + "\" non è una tabella delle tariffe (le tabelle sono " + names + ")");
}

std::string sqlFeeRow(std::string_view table, std::int32_t id)
{
    std::string sql = "SELECT * FROM ";
    sql += table;
    sql += " WHERE Id = ";
    sql += std::to_string(id);
    return sql;
}

} // namespace avlor
