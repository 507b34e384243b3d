#include "avlor/component/ClsParcella.h"

#include "avlor/core/ErrorTrap.h"
#include "avlor/core/Format.h"
#include "avlor/core/Locale.h"
#include "avlor/engine/CalcolaTariffaModulo.h"
#include "avlor/ui/OpenWindow.h"

namespace avlor {

void ClsParcella::ShowDialogParcellazione(std::int32_t IdPratica, const std::string& aszParti,
                                          const std::string& aszAdempimento, Date aData)
{
    // A fresh dialog for each call, given the date as the user's locale
    // writes it short, shown modally with no owner; everything is released
    // when it has closed.
    ui::FeeEntryRequest request;
    request.idPratica = IdPratica;
    request.parti = aszParti;
    request.adempimento = aszAdempimento;
    request.data = formatShortDate(aData, Locale::user());
    ui::showFeeEntryWindow(request);
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
