#pragma once
// withFallback: the error trap of the public operations that never raise to
// the host. A host calls these operations from its own user-interface code
// with no error handling of its own, so a database that is down, a statement
// the database rejects, a missing row or field, or a value that cannot be
// converted all end the operation quietly with the fallback answer that the
// operation promises (level 1, version -1, false, an empty list...).
//
// Each public operation writes its own logic as `work` and names its fallback
// in the call, so the one place where errors are swallowed is visible.
#include <utility>

namespace avlor {

template <typename Result, typename Work>
[[nodiscard]] Result withFallback(Result fallback, Work&& work)
{
    try {
        return std::forward<Work>(work)();
    } catch (...) {
        return fallback;
    }
}

} // namespace avlor
