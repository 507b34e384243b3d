#pragma once
// Exact money constants for the fee tables, so that every bound and figure
// reads as the official table prints it.
#include <cstdint>

#include "avlor/core/Currency.h"

namespace avlor::amounts {

// A whole number of lire.
[[nodiscard]] constexpr Currency lire(std::int64_t whole) { return Currency::fromRaw(whole * Currency::Scale); }
// A whole number of euro.
[[nodiscard]] constexpr Currency euro(std::int64_t whole) { return Currency::fromRaw(whole * Currency::Scale); }
// An amount of euro given in cents: euroCents(12911) is 129.11.
[[nodiscard]] constexpr Currency euroCents(std::int64_t cents) { return Currency::fromRaw(cents * 100); }

// The bracket bounds "(any)" and "(no limit)".
inline constexpr Currency anyValue = Currency::min();
inline constexpr Currency noLimit = Currency::max();

} // namespace avlor::amounts
