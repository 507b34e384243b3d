#pragma once
// clsPratica: how many clients and how many counter-parties a case file has.
//
// Both counts answer one more than the rows found (a case file with two
// client rows answers 3). The extra 1 is part of the answer that callers
// have always been given and depend on, so it is kept on purpose.
// Database failures are not trapped and reach the caller.
#include <cstdint>

#include "avlor/core/Value.h"

namespace avlor {

class clsPratica {
public:
    // Client rows (MultiIntesta.IsCliente true) of the case file, plus 1.
    // A null count cannot be made a whole number and raises ValueError.
    [[nodiscard]] std::int32_t QuantiClientiPerPratica(const Value& avCodicePratica) const;
    // Counter-party rows (MultiIntesta.IsCliente false) of the case file, plus 1.
    [[nodiscard]] std::int32_t QuanteControPartiPerPratica(const Value& avCodicePratica) const;
};

} // namespace avlor
