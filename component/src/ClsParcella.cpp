#include "avlor/component/ClsParcella.h"

#include "avlor/core/Error.h"
#include "avlor/core/ErrorTrap.h"
#include "avlor/engine/CalcolaTariffaModulo.h"

namespace avlor {

void ClsParcella::ShowDialogParcellazione(std::int32_t IdPratica, const std::string& aszParti,
                                          const std::string& aszAdempimento, Date aData)
{
    static_cast<void>(aszParti);
    static_cast<void>(aszAdempimento);
    static_cast<void>(aData);
    throw Error("The fee-entry dialog \"Parcellazione Adempimento\" is not available in this build of AvlorLogic "
                "(case file " +
                std::to_string(IdPratica) + "); it will be completed in a later version.");
}

Currency ClsParcella::CalcolaTariffa(Currency& cValore, std::int16_t& vRil, std::string& sTabella, std::int16_t& bInd,
                                     std::int32_t& idTariffa, Currency& MinTar, Currency& MaxTar, Currency& MinS,
                                     Currency& MaxS, std::string& Autorita)
{
    // The host is never handed an error by the pricing: whatever fails inside,
    // the operation answers 0.
    return withFallback(Currency{}, [&] {
        return CalcolaTariffaModulo(cValore, vRil, sTabella, bInd, idTariffa, MinTar, MaxTar, MinS, MaxS, Autorita);
    });
}

} // namespace avlor
