#pragma once
// The tariff engine's entry: proposes the amount of one fee item of a case
// file, with its band, from the official fee tables.
#include <cstdint>
#include <string>

#include "avlor/core/Currency.h"
#include "avlor/engine/ArrotondaLire.h"
#include "avlor/engine/ValoreScaglionePiuVicino.h"

namespace avlor {

// Prices item idTariffa of table sTabella (matched trimmed and upper-cased)
// for a case of value cValore (in the table's unit), relevance vRil (0 = the
// minimum, 100 = the maximum), indeterminate-value flag bInd (the stored
// boolean: 0 false, -1 true; any other value runs neither branch) and, for
// criminal fees, the authority Autorita.
//
// Returns the proposed amount, 0 when nothing can be proposed; then the
// message "Attenzione" is shown through messageBoxes(). MinTar and MaxTar
// receive the band, MinS and MaxS the extraordinary band of civil fees; each
// output is written only on the paths that set it and otherwise keeps what
// the caller passed in. A missing row or column (DataError) or an arithmetic
// failure (ValueError) is raised to the caller without any message, and the
// outputs keep what had been written before it.
Currency CalcolaTariffaModulo(Currency& cValore, std::int16_t& vRil, std::string& sTabella, std::int16_t& bInd,
                              std::int32_t& idTariffa, Currency& MinTar, Currency& MaxTar, Currency& MinS,
                              Currency& MaxS, std::string& Autorita);

} // namespace avlor
