#pragma once
// Field kinds given with every field read, and the two opening modes of a
// record set (cursor type, lock type, options).
#include <cstdint>

namespace avlor {

// TipoCampo: the kind in which a field is read.
inline constexpr std::int32_t TipoTesto = 1; // text
inline constexpr std::int32_t TipoNumero = 2; // whole numbers, amounts, flags
inline constexpr std::int32_t TipoData = 3; // dates

// Cursor types, lock types and options of the two opening modes.
inline constexpr std::int32_t adOpenForwardOnly = 0;
inline constexpr std::int32_t adOpenKeyset = 1;
inline constexpr std::int32_t adLockReadOnly = 1;
inline constexpr std::int32_t adLockOptimistic = 3;
inline constexpr std::int32_t adCmdUnspecified = -1;

} // namespace avlor
