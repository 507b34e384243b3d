// The rights family (Diritti94, Diritti94Euro, Diritti2004Euro): one amount
// per value bracket, or a band for an indeterminate value.
#include "Amounts.h"
#include "ByEdition.h"
#include "FeeRow.h"
#include "FixedItem.h"
#include "Sections.h"
#include "avlor/engine/ArrotondaLire.h"
#include "avlor/engine/Brackets.h"
#include "avlor/engine/Relevance.h"
#include "avlor/engine/ValoreScaglionePiuVicino.h"

namespace avlor {

namespace {

using amounts::euro;
using amounts::euroCents;
using amounts::lire;

struct RightsRules {
    FixedItem fixed;
    bool lire; // the fixed item's proposal is rounded as lire
    bool nearestBracketWhenIndeterminate;
};

const RightsRules& rulesOf(Edition edition)
{
    static const RightsRules Lire94{{132, lire(15'000), lire(50'000), lire(15'000), lire(50'000)}, true, false};
    static const RightsRules Euro94{
        {132, euroCents(775), euroCents(2'582), euroCents(775), euroCents(2'582)}, false, false};
    // The 2004 fixed item keeps its band stored the wrong way round (30 to
    // 10) while its end points give 10 and 30: between them the proposal
    // falls from 29.80 to 10.20. Proposals already issued were made so, and
    // the item is kept as it stands.
    static const RightsRules Euro2004{{391, euro(30), euro(10), euro(10), euro(30)}, false, true};
    return byEdition(edition, Lire94, Euro94, Euro2004);
}

} // namespace

std::int32_t rightsFixedItem(Edition edition) { return rulesOf(edition).fixed.id; }

SectionOutcome rightsSection(const FeeTable& table, const TariffRequest& request, TariffOutputs& out)
{
    const RightsRules& rules = rulesOf(table.edition);
    // The column is chosen before anything else, even for the fixed item and
    // for an indeterminate value, which do not use it.
    const std::string column = rightsColumn(table.edition, request.cValore);
    SectionOutcome outcome;

    if (request.idTariffa == rules.fixed.id) {
        out.MinTar = rules.fixed.MinTar;
        out.MaxTar = rules.fixed.MaxTar;
        outcome.result = rules.fixed.proposal(request.vRil);
        if (rules.lire)
            outcome.result = ArrotondaLire(outcome.result);
        return outcome;
    }

    FeeRow row(table.name, request.idTariffa);
    outcome.itemCode = row.text("CodiceTariffa");
    outcome.kindWord = "Diritto";

    if (request.bInd == StoredFalse) {
        // Rights are a single amount per bracket: the band collapses onto it.
        // Amounts read from a lire row are proposed as stored.
        const Value amount = row.amount(column);
        if (isPositive(amount)) {
            outcome.result = amount.toCurrency();
            out.MinTar = outcome.result;
            out.MaxTar = outcome.result;
            out.MinS = Currency{};
            out.MaxS = Currency{};
        }
    } else if (request.bInd == StoredTrue) {
        if (readPositiveBand(row, "VALOREINDETMIN", "VALOREINDETMAX", out.MinTar, out.MaxTar)) {
            if (request.vRil == 0) {
                outcome.result = out.MinTar;
            } else if (request.vRil == 100) {
                outcome.result = out.MaxTar;
            } else {
                outcome.result = interpolateByRelevance(out.MinTar, out.MaxTar, request.vRil);
                // The 2004 rights are due in the amounts the table prints,
                // so an interpolated proposal moves to the nearest of them.
                if (rules.nearestBracketWhenIndeterminate)
                    outcome.result =
                        ValoreScaglionePiuVicino(outcome.result, request.idTariffa, std::string(table.name))
                            .toCurrency();
            }
        }
    }
    // Any other stored flag runs neither branch: nothing is proposed.
    return outcome;
}

} // namespace avlor
