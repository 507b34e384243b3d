#pragma once
// clsFatture: what is left to pay on an invoice.
#include "avlor/core/Value.h"

namespace avlor {

class clsFatture {
public:
    // Fatture.ResiduoASaldo of the invoice exactly as stored (an amount, a
    // null, or empty for an unknown invoice). Database failures are not
    // trapped and reach the caller.
    [[nodiscard]] Value GetResiduoFattura(const Value& avIdFattura) const;
};

} // namespace avlor
