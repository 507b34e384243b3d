#pragma once
// The one choice among the three editions, so that every table and every set
// of rules kept per edition is picked the same way.
#include "avlor/core/FeeTables.h"

namespace avlor {

// The entry of the edition. An edition outside the three known ones (only a
// corrupted value could be one) takes the 2004 entry.
template <class T>
[[nodiscard]] const T& byEdition(Edition edition, const T& lire94, const T& euro94, const T& euro2004)
{
    switch (edition) {
    case Edition::Lire94:
        return lire94;
    case Edition::Euro94:
        return euro94;
    case Edition::Euro2004:
        break;
    }
    return euro2004;
}

} // namespace avlor
