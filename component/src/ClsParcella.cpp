#include "avlor/component/ClsParcella.h"

#include "avlor/core/Error.h"
#include "avlor/engine/CalcolaTariffaModulo.h"

namespace avlor {

namespace {

// The host is never handed an error by this class's pricing: whatever fails
// inside, the operation answers with its fallback.
template <class Result, class Operation>
Result trappingEveryError(Result fallback, Operation operation) noexcept
{
    try {
        return operation();
    } catch (...) {
        return fallback;
    }
}

} // namespace

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

Currency ClsParcella::CalcolaTariffa(Currency& cValore, std::int16_t& vRil, std::string& sTabella,
                                     std::int16_t& bInd, std::int32_t& idTariffa, Currency& MinTar, Currency& MaxTar,
                                     Currency& MinS, Currency& MaxS, std::string& Autorita)
{
    return trappingEveryError(Currency{}, [&] {
        return CalcolaTariffaModulo(cValore, vRil, sTabella, bInd, idTariffa, MinTar, MaxTar, MinS, MaxS, Autorita);
    });
}

} // namespace avlor
