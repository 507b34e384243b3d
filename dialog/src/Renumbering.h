#pragma once
// How the order numbers of a case file's actions move when actions are
// added, changed, expanded from a template or deleted. Tariff and hourly
// actions are two sequences, each starting at 1, that never touch each
// other. Each step reads and writes through record sets of its own, inside
// the press's unit of work (UnitOfWork.h).
//
// Order numbers are 16-bit: a number past 32767 raises ValueError
// (Overflow), which fails the whole press.
#include <cstdint>
#include <string>

#include "avlor/core/Error.h"

namespace avlor::dialog {

// An order number past what 16 bits hold, typed or reached by moving the
// others: the one overflow a press reports as "Il Numero d'Ordine supera
// 32767.".
class OrderNumberPastLimit : public ValueError {
public:
    explicit OrderNumberPastLimit(const std::string& message) : ValueError(Kind::Overflow, message) { }
};

// `n` as an order number; OrderNumberPastLimit outside -32768..32767.
[[nodiscard]] std::int16_t numeroOrdine(std::int64_t n);

// Before an action is added at `n`: the unbroken run n, n+1, n+2, ... of
// the sequence moves up by one; the first gap absorbs the shift and the rows
// beyond it keep their numbers.
void faiPostoPerInserimento(std::int32_t idPratica, std::int16_t n, bool bTariffa);

// After an action was changed to `n`: the same run-shift among the others
// of its sequence. A change never closes gaps it leaves behind, except at
// the start of the tariff sequence (see chiudiTestaTariffa).
void spostaDopoModifica(std::int32_t idPratica, std::int16_t n, bool bTariffa, std::int32_t idAzione);

// Closes the gap at the start of the tariff sequence only (2, 3, 4 become
// 1, 2, 3), stopping at the first row already at or below its place: a gap
// in the middle (1, 2, 4, 5) stays.
void chiudiTestaTariffa(std::int32_t idPratica);

// After a delete: the whole sequence (the hourly one when `bOraria`)
// numbered 1, 2, 3, ... in its order, every gap closed.
void rinumeraSequenza(std::int32_t idPratica, bool bOraria);

// Before a template of `m` items is added at `n`: the tariff rows at n and
// above get n + m, n + m + 1, ... in their order, which also closes every
// gap above n.
void faiPostoPerParcellaBase(std::int32_t idPratica, std::int16_t n, std::int32_t m);

} // namespace avlor::dialog
