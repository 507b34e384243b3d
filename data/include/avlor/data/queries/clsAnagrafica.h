#pragma once
// clsAnagrafica: whether a person is a legal entity.
#include "avlor/core/Value.h"

namespace avlor {

class clsAnagrafica {
public:
    // The logical negation of the stored flag IsFisicaGiuridica, which is set
    // for a natural person. The negation works on the value as it comes back:
    // a boolean is negated, a stored number is complemented bit by bit
    // (0 -> -1, -1 -> 0), a null stays null, an unknown person (no row, an
    // empty value) gives -1. Any failure answers false.
    [[nodiscard]] Value IsSoggettoGiuridico(const Value& avIdAna) const;
};

} // namespace avlor
