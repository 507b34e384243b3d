#pragma once
// Owning handles of libpq's session and result objects.
#include <memory>

#include <libpq-fe.h>

namespace avlor {

struct PgResultClear {
    void operator()(PGresult* result) const noexcept { PQclear(result); }
};
using PgResult = std::unique_ptr<PGresult, PgResultClear>;

} // namespace avlor
