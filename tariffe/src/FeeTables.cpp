#include "avlor/data/tariffe/FeeTables.h"

#include <array>
#include <string>

#include "avlor/core/Error.h"

#include "tariffe/TariffText.h"

namespace avlor {

namespace {

using tariffe_detail::equalsIgnoringCase;
using tariffe_detail::trimBlanks;

constexpr std::array<FeeTable, 12> Tables{{
    {"Diritti94", FeeFamily::Diritti, FeeUnit::Lira},
    {"Diritti94Euro", FeeFamily::Diritti, FeeUnit::Euro},
    {"Diritti2004Euro", FeeFamily::Diritti, FeeUnit::Euro},
    {"Onorari94", FeeFamily::Onorari, FeeUnit::Lira},
    {"Onorari94Euro", FeeFamily::Onorari, FeeUnit::Euro},
    {"Onorari2004Euro", FeeFamily::Onorari, FeeUnit::Euro},
    {"OnorariPenali94", FeeFamily::OnorariPenali, FeeUnit::Lira},
    {"OnorariPenali94Euro", FeeFamily::OnorariPenali, FeeUnit::Euro},
    {"OnorariPenali2004Euro", FeeFamily::OnorariPenali, FeeUnit::Euro},
    {"OnorariStrag94", FeeFamily::OnorariStrag, FeeUnit::Lira},
    {"OnorariStrag94Euro", FeeFamily::OnorariStrag, FeeUnit::Euro},
    {"OnorariStrag2004Euro", FeeFamily::OnorariStrag, FeeUnit::Euro},
}};

} // namespace

std::span<const FeeTable> feeTables() noexcept { return Tables; }

std::optional<FeeTable> findFeeTable(std::string_view name)
{
    const std::string_view wanted = trimBlanks(name);
    for (const FeeTable& table : Tables) {
        if (equalsIgnoringCase(table.name, wanted))
            return table;
    }
    return std::nullopt;
}

FeeTable requireFeeTable(std::string_view name)
{
    if (const auto table = findFeeTable(name))
        return *table;
    std::string names;
    for (const FeeTable& table : Tables)
        names += (names.empty() ? "" : ", ") + std::string(table.name);
    throw Error("\"" + std::string(name) + "\" is not a fee table (the fee tables are " + names + ")");
}

FeeColumnRole feeColumnRole(std::string_view column)
{
    if (equalsIgnoringCase(column, FeeKeyColumn))
        return FeeColumnRole::Key;
    if (equalsIgnoringCase(column, FeeCodeColumn))
        return FeeColumnRole::Code;
    if (equalsIgnoringCase(column, "Azione") || equalsIgnoringCase(column, "Autorita"))
        return FeeColumnRole::Text;
    return FeeColumnRole::Amount;
}

} // namespace avlor
