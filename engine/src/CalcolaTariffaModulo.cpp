#include "avlor/engine/CalcolaTariffaModulo.h"

#include "Sections.h"
#include "avlor/core/FeeTables.h"
#include "avlor/engine/FinalMessage.h"

namespace avlor {

namespace {

SectionOutcome runSection(const FeeTable& table, const TariffRequest& request, TariffOutputs& out)
{
    switch (table.family) {
    case Family::Rights:
        return rightsSection(table, request, out);
    case Family::Civil:
        return civilSection(table, request, out);
    case Family::Criminal:
        return criminalSection(table, request, out);
    case Family::OutOfCourt:
        break;
    }
    return outOfCourtSection(table, request, out);
}

} // namespace

Currency CalcolaTariffaModulo(Currency& cValore, std::int16_t& vRil, std::string& sTabella, std::int16_t& bInd,
                              std::int32_t& idTariffa, Currency& MinTar, Currency& MaxTar, Currency& MinS,
                              Currency& MaxS, std::string& Autorita)
{
    const TariffRequest request{cValore, vRil, sTabella, bInd, idTariffa, Autorita};
    TariffOutputs outputs{MinTar, MaxTar, MinS, MaxS};

    // An unknown table name prices nothing and goes straight to the message.
    SectionOutcome outcome;
    if (const std::optional<FeeTable> table = feeTableNamed(sTabella))
        outcome = runSection(*table, request, outputs);

    if (outcome.result == Currency{})
        showNoProposal(outcome.kindWord, outcome.itemCode);
    return outcome.result;
}

} // namespace avlor
