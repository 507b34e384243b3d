// The criminal-fee family (OnorariPenali94, OnorariPenali94Euro,
// OnorariPenali2004Euro): one band per authority, whatever the value.
#include "FeeRow.h"
#include "Sections.h"
#include "avlor/engine/ArrotondaLire.h"
#include "avlor/engine/CriminalAuthority.h"
#include "avlor/engine/Relevance.h"

namespace avlor {

SectionOutcome criminalSection(const FeeTable& table, const TariffRequest& request, TariffOutputs& out)
{
    SectionOutcome outcome;
    const std::optional<std::string> prefix = criminalColumnPrefix(request.Autorita, request.sTabella, table.edition);
    if (!prefix) {
        // An authority the tables do not know clears the whole band.
        out.MinTar = Currency{};
        out.MaxTar = Currency{};
        out.MinS = Currency{};
        out.MaxS = Currency{};
        return outcome;
    }

    FeeRow row(table.name, request.idTariffa);
    outcome.itemCode = row.text("CodiceTariffa");
    outcome.kindWord = "Onorario Penale";
    // Criminal bands are taken as stored, without any test of their sign.
    out.MinTar = row.amount(*prefix + "MIN").toCurrency();
    out.MaxTar = row.amount(*prefix + "MAX").toCurrency();
    out.MinS = Currency{};
    out.MaxS = Currency{};
    outcome.result = proposalByRelevance(out.MinTar, out.MaxTar, request.vRil);
    if (table.edition == Edition::Lire94)
        outcome.result = ArrotondaLire(outcome.result);
    return outcome;
}

} // namespace avlor
