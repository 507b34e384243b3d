#pragma once
// The items the engine prices by its own rules, reading no amount from the
// table's rows: the fixed items of the rights and civil families and every
// out-of-court item whose official figures the engine holds. A listing of a
// table shows them beside the rows that carry amounts, so that a person sees
// everything the engine can price.
#include <cstdint>
#include <string>
#include <vector>

#include "avlor/core/FeeTables.h"

namespace avlor {

struct BuiltInItem {
    std::int32_t id = 0;
    std::string rule; // how the engine prices it, in Italian: "fascia fissa", ...
};

// In the order of Id; empty for the criminal tables.
[[nodiscard]] std::vector<BuiltInItem> builtInItems(const FeeTable& table);

} // namespace avlor
