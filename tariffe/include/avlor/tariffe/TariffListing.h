#pragma once
// What a fee table of the current practice database offers: its items, as
// a person picks one (Id, printed code, description), and how many of them
// carry an amount.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace avlor {

struct TariffItem {
    std::int32_t id = 0;
    std::string code; // CodiceTariffa
    std::string description; // Azione ("" when null)
    bool priced = false; // some amount column of the row is above 0
};

// The items in the order of Id. Raises Error for a name that is no fee
// table, DataError for a failure of the database.
[[nodiscard]] std::vector<TariffItem> listTariffItems(std::string_view table);

struct TariffCount {
    std::size_t items = 0;
    std::size_t priced = 0; // items with some amount above 0
};

[[nodiscard]] TariffCount countTariffItems(std::string_view table);

} // namespace avlor
