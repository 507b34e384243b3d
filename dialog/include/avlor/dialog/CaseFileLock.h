#pragma once
// The lock a press holds on a case file's actions while it writes them
// (Connection::lockForTransaction with this space and the case id), until
// its transaction ends. A host that writes a case file's actions of its own
// takes the same lock, so that it and the dialog take turns.
#include <cstdint>

namespace avlor::dialog {

inline constexpr std::int32_t SpazioLockAzioniPratica = 0x41564c41;

} // namespace avlor::dialog
