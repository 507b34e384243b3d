#pragma once
// EngineError: the tariff engine's own layer of the component's error
// hierarchy, so that a host can tell a pricing failure from a database one.
// The engine lets the errors of the layers below (DataError for a missing row
// or column, ValueError for an arithmetic overflow or a null amount) pass
// through unchanged: the public CalcolaTariffa traps them all.
#include "avlor/core/Error.h"

namespace avlor {

class EngineError : public Error {
public:
    using Error::Error;
};

} // namespace avlor
