// The civil-fee family (Onorari94, Onorari94Euro, Onorari2004Euro): a band
// per value bracket with its extraordinary band, or a band for an
// indeterminate value.
#include "Amounts.h"
#include "ByEdition.h"
#include "FeeRow.h"
#include "FixedItem.h"
#include "Sections.h"
#include "avlor/engine/AmountMath.h"
#include "avlor/engine/ArrotondaLire.h"
#include "avlor/engine/Brackets.h"
#include "avlor/engine/Relevance.h"

namespace avlor {

namespace {

using amounts::euro;
using amounts::euroCents;
using amounts::lire;

// What each edition does with a value above its last closed bracket.
enum class AboveLastBracket {
    // 1994 lire: the band of the last bracket grows in proportion to the
    // value, rounded up as lire.
    ScaleBand,
    // 1994 euro: the same ratio is worked out, but the band stays that of
    // the last bracket. The converted table was issued so and proposals
    // made with it are kept comparable; the lire table is not changed to
    // match it either.
    ComputeRatioOnly,
    // 2004: the open bracket has columns of its own, used as they are.
    UseOwnColumns,
};

struct CivilRules {
    FixedItem fixed;
    bool lire; // every proposal is rounded as lire
    AboveLastBracket aboveLast;
    double topBound; // upper bound of the last closed bracket, for the ratio
};

constexpr std::int32_t FixedCivilItem = 62;

const CivilRules& rulesOf(Edition edition)
{
    static const CivilRules Lire94{{FixedCivilItem, lire(15'000), lire(50'000), lire(15'000), lire(50'000)},
                                   true,
                                   AboveLastBracket::ScaleBand,
                                   5'000'000'000.0};
    static const CivilRules Euro94{{FixedCivilItem, euroCents(775), euroCents(2'582), euroCents(775), euroCents(2'582)},
                                   false,
                                   AboveLastBracket::ComputeRatioOnly,
                                   2'582'284.5};
    static const CivilRules Euro2004{
        {FixedCivilItem, euro(10), euro(30), euro(10), euro(30)}, false, AboveLastBracket::UseOwnColumns, 0.0};
    return byEdition(edition, Lire94, Euro94, Euro2004);
}

// The extraordinary band, taken as stored: an empty column fails.
void readExtraordinaryBand(FeeRow& row, TariffOutputs& out)
{
    out.MinS = row.amount("MINSTRAORDIMP").toCurrency();
    out.MaxS = row.amount("MAXSTRAORDIMP").toCurrency();
}

// Reads a band pair; when both are positive sets the band and the
// extraordinary band and proposes by relevance.
void priceFromPair(FeeRow& row, const std::string& minColumn, const std::string& maxColumn,
                   const TariffRequest& request, TariffOutputs& out, SectionOutcome& outcome)
{
    if (!readPositiveBand(row, minColumn, maxColumn, out.MinTar, out.MaxTar))
        return;
    readExtraordinaryBand(row, out);
    outcome.result = proposalByRelevance(out.MinTar, out.MaxTar, request.vRil);
}

void priceAboveLastBracket(FeeRow& row, const std::string& word, const CivilRules& rules, const TariffRequest& request,
                           TariffOutputs& out, SectionOutcome& outcome)
{
    if (!readPositiveBand(row, word + "MIN", word + "MAX", out.MinTar, out.MaxTar))
        return;
    if (rules.aboveLast != AboveLastBracket::UseOwnColumns) {
        readExtraordinaryBand(row, out);
        const Currency ratio = Currency::fromDouble(request.cValore.toDouble() / rules.topBound);
        if (rules.aboveLast == AboveLastBracket::ScaleBand) {
            out.MinTar = ArrotondaLire(currencyProduct(ratio, out.MinTar));
            out.MaxTar = ArrotondaLire(currencyProduct(ratio, out.MaxTar));
        } else {
            // Worked out and left unused; an amount out of range still fails
            // here as it does in the lire table.
            static_cast<void>(currencyProduct(ratio, out.MinTar));
            static_cast<void>(currencyProduct(ratio, out.MaxTar));
        }
    }
    outcome.result = proposalByRelevance(out.MinTar, out.MaxTar, request.vRil);
}

} // namespace

std::int32_t civilFixedItem(Edition edition) { return rulesOf(edition).fixed.id; }

SectionOutcome civilSection(const FeeTable& table, const TariffRequest& request, TariffOutputs& out)
{
    const CivilRules& rules = rulesOf(table.edition);
    const CivilBracket bracket = civilBracket(table.edition, request.cValore, request.idTariffa);
    SectionOutcome outcome;

    if (request.idTariffa == rules.fixed.id) {
        out.MinTar = rules.fixed.MinTar;
        out.MaxTar = rules.fixed.MaxTar;
        outcome.result = rules.fixed.proposal(request.vRil);
    } else {
        FeeRow row(table.name, request.idTariffa);
        outcome.itemCode = row.text("CodiceTariffa");
        outcome.kindWord = "Onorario";
        // Above the last bracket the value is known to be huge, so the
        // indeterminate flag is not looked at.
        if (bracket.aboveLast)
            priceAboveLastBracket(row, bracket.word, rules, request, out, outcome);
        else if (request.bInd == StoredFalse)
            priceFromPair(row, bracket.word + "MIN", bracket.word + "MAX", request, out, outcome);
        else if (request.bInd == StoredTrue)
            priceFromPair(row, "MININDET", "MAXINDET", request, out, outcome);
        // Any other stored flag runs neither branch: nothing is proposed.
    }
    if (rules.lire)
        outcome.result = ArrotondaLire(outcome.result);
    return outcome;
}

} // namespace avlor
