// The out-of-court family (OnorariStrag94, OnorariStrag94Euro,
// OnorariStrag2004Euro): no row is read, so the final message, if any, has
// neither a kind word nor a code.
#include "Sections.h"
#include "avlor/engine/OutOfCourt.h"

namespace avlor {

SectionOutcome outOfCourtSection(const FeeTable& table, const TariffRequest& request, TariffOutputs& out)
{
    SectionOutcome outcome;
    const std::optional<OutOfCourtProposal> proposal = priceOutOfCourt(
        table.edition, request.idTariffa, request.cValore, request.bInd, request.vRil, FeeBand{out.MinTar, out.MaxTar});
    if (!proposal)
        return outcome;
    out.MinTar = proposal->MinTar;
    out.MaxTar = proposal->MaxTar;
    out.MinS = proposal->MinS;
    out.MaxS = proposal->MaxS;
    outcome.result = proposal->result;
    return outcome;
}

} // namespace avlor
