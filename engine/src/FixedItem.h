#pragma once
// The one item of each rights and civil table whose band is constant: no row
// is read for it.
#include <cstdint>

#include "avlor/core/Currency.h"
#include "avlor/engine/Relevance.h"

namespace avlor {

struct FixedItem {
    std::int32_t id = 0;
    Currency MinTar;
    Currency MaxTar;
    Currency atRelevance0; // the proposal when vRil is 0
    Currency atRelevance100; // the proposal when vRil is 100

    // Between the end points the proposal is interpolated over the band as
    // stored, which is not always the band of the end points.
    [[nodiscard]] Currency proposal(std::int16_t vRil) const
    {
        if (vRil == 0)
            return atRelevance0;
        if (vRil == 100)
            return atRelevance100;
        return interpolateByRelevance(MinTar, MaxTar, vRil);
    }
};

} // namespace avlor
