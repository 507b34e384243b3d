#pragma once
// ValoreScaglionePiuVicino: the amount of a rights row's brackets that lies
// nearest to a given amount.
#include <cstdint>
#include <string>

#include "avlor/core/Currency.h"
#include "avlor/core/Value.h"

namespace avlor {

// Reads "SELECT * FROM " + tabella + " WHERE Id = " + idTariffa and returns
// the value of the VALORESCA1 ... VALORESCA13 column nearest to `importo`.
// Ties keep the lower-numbered column and a null column never wins; with no
// usable column the answer is empty (0 as a Currency). A missing row raises
// DataError.
[[nodiscard]] Value ValoreScaglionePiuVicino(Currency importo, std::int32_t idTariffa, const std::string& tabella);

} // namespace avlor
