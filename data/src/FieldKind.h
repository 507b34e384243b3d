#pragma once
// The conversion that clsAccessoDati::Campo applies for each field kind to a
// value as the database gave it.
//   TipoTesto (1)  text: numbers as plain text ("12", "0.5"), amounts
//                  likewise ("27950"), yes/no as "True"/"False", dates day
//                  first ("02/06/2004"); text as it is.
//   TipoNumero (2) numbers as they are (whole numbers, Double, Currency);
//                  yes/no as the 16-bit -1 / 0; a date as its day count; text
//                  strictly as a number (Long when whole and within 32 bits,
//                  else Double), ValueError(TypeMismatch) when it is not one,
//                  empty text included.
//   TipoData (3)   dates as they are; text day first ("DD/MM/YYYY") or ISO,
//                  ValueError(InvalidDate) otherwise; numbers as day counts.
// Null stays null for every kind. Any other kind raises DataError.
#include <cstdint>

#include "avlor/core/Value.h"

namespace avlor {

[[nodiscard]] Value valueOfKind(const Value& stored, std::int32_t tipoCampo);

} // namespace avlor
