#pragma once
// The bracket test shared by every value-bracket table: both bounds
// inclusive, tested in the table's order, the last bracket that holds wins.
#include <span>

#include "avlor/core/Currency.h"

namespace avlor {

// `Row` has the members `from` and `to`. Returns the last row with
// from <= v <= to, or nullptr when v lies in a gap between two rows.
template <class Row>
[[nodiscard]] const Row* lastBracketHolding(std::span<const Row> rows, Currency v)
{
    const Row* holding = nullptr;
    for (const Row& row : rows) {
        if (v >= row.from && v <= row.to)
            holding = &row;
    }
    return holding;
}

} // namespace avlor
