#pragma once
// ClsParcella: the public class through which a host prices fee items and
// opens the fee-entry dialog of a case file.
#include <cstdint>
#include <string>

#include "avlor/core/Currency.h"
#include "avlor/core/Date.h"

namespace avlor {

class ClsParcella {
public:
    // Opens the fee-entry dialog "Parcellazione Adempimento" for case file
    // IdPratica, with the parties line, the work done and the date of the
    // work, and returns once the user has closed it. Works whether or not the
    // host runs a Qt application (see avlor/ui/OpenWindow.h); raises
    // avlor::Error, saying why, when there is no display to show it on.
    void ShowDialogParcellazione(std::int32_t IdPratica, const std::string& aszParti, const std::string& aszAdempimento,
                                 Date aData);

    // The tariff engine's proposal (CalcolaTariffaModulo) for the same ten
    // arguments, by reference in the same order. Any error of the engine or
    // of the database is trapped: the result is then 0, no message is shown,
    // and the outputs keep whatever the engine had written before the error.
    Currency CalcolaTariffa(Currency& cValore, std::int16_t& vRil, std::string& sTabella, std::int16_t& bInd,
                            std::int32_t& idTariffa, Currency& MinTar, Currency& MaxTar, Currency& MinS, Currency& MaxS,
                            std::string& Autorita);
};

} // namespace avlor
