#pragma once
// The kind of ValueError an operation raises, for the tests of the core
// value types.
#include <gtest/gtest.h>

#include <optional>

#include "avlor/core/Error.h"

namespace avlor::test {

// None, with a test failure, when the operation raises no ValueError.
[[nodiscard]] std::optional<ValueError::Kind> kindOf(auto&& operation)
{
    try {
        operation();
    } catch (const ValueError& e) {
        return e.kind();
    }
    ADD_FAILURE() << "no ValueError raised";
    return std::nullopt;
}

} // namespace avlor::test
