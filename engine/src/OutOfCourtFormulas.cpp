// How an out-of-court item is priced from its edition's table.
#include <algorithm>

#include "BracketTest.h"
#include "ByEdition.h"
#include "OutOfCourtEditions.h"
#include "avlor/engine/AmountMath.h"
#include "avlor/engine/ArrotondaLire.h"
#include "avlor/engine/Relevance.h"

namespace avlor {

namespace {

constexpr std::int16_t StoredFalse = 0;
constexpr std::int16_t StoredTrue = -1;
constexpr std::int64_t Millionths = 1'000'000;

// base + rate of excess. A whole percentage multiplies the excess exactly
// before the division by 100; a fractional one goes through a double.
Currency basePlusRate(Currency base, Percent rate, Currency excess)
{
    const double part = rate.whole() ? excess.times(rate.hundredths / 100).toDouble() / 100.0
                                     : excess.toDouble() * (static_cast<double>(rate.hundredths) / 100.0) / 100.0;
    return Currency::fromDouble(part + base.toDouble());
}

// Item 11 is charged at half the band; a band that is not positive is left
// as it is.
Currency halved(Currency amount) { return amount > Currency{} ? hundredthOf(amount.times(50)) : amount; }

// The band of a value-bracket item, `current` where no bracket applies, or
// none where the applicable figure is not printed.
std::optional<FeeBand> valueBracketBand(const ValueBracketItem& item, Currency v, std::int16_t bInd, FeeBand current)
{
    if (bInd == StoredTrue)
        return item.indeterminate;
    if (bInd != StoredFalse)
        return current;
    const auto bounds = valueBracketBounds();
    const ValueBracketBounds* holding = lastBracketHolding(std::span<const ValueBracketBounds>(bounds), v);
    if (!holding)
        return current;
    const auto index = static_cast<std::size_t>(holding - bounds.data());
    if (index < ValueBracketCount)
        return item.brackets[index];
    if (!item.above)
        return std::nullopt;
    return FeeBand{scaledProduct(v, item.above->minMillionths, Millionths),
                   scaledProduct(v, item.above->maxMillionths, Millionths)};
}

// The band an item proposes from, or none when the table gives no figure.
std::optional<FeeBand> bandOf(Edition edition, const OutOfCourtEditionTable& table, std::int32_t idTariffa,
                              Currency cValore, std::int16_t bInd, FeeBand current)
{
    for (const FixedBandItem& item : table.fixedBands) {
        if (item.id == idTariffa)
            return item.band;
    }
    if (idTariffa >= PercentageItemFirst && idTariffa <= PercentageItemLast) {
        FeeBand band = percentageBand(edition, cValore).value_or(current);
        if (idTariffa == PercentageItemHalved)
            band = FeeBand{halved(band.min), halved(band.max)};
        return band;
    }
    for (const ValueBracketItem& item : table.valueBracketItems) {
        if (item.id == idTariffa)
            return valueBracketBand(item, cValore, bInd, current);
    }
    return std::nullopt;
}

} // namespace

const OutOfCourtEditionTable& outOfCourtTable(Edition edition)
{
    // Only the chosen edition's table is built.
    using TableOfEdition = const OutOfCourtEditionTable& (*)();
    return byEdition<TableOfEdition>(edition, outOfCourtLire94, outOfCourtEuro94, outOfCourtEuro2004)();
}

std::optional<FeeBand> percentageBand(Edition edition, Currency v)
{
    for (const PercentageBracket& bracket : outOfCourtTable(edition).percentageBrackets) {
        if (v > bracket.lower && v <= bracket.upper) {
            const Currency excess = v - bracket.lower;
            return FeeBand{basePlusRate(bracket.minBase, bracket.minRate, excess),
                           basePlusRate(bracket.maxBase, bracket.maxRate, excess)};
        }
    }
    return std::nullopt;
}

std::optional<OutOfCourtProposal> priceOutOfCourt(Edition edition, std::int32_t idTariffa, Currency cValore,
                                                  std::int16_t bInd, std::int16_t vRil, FeeBand current)
{
    const OutOfCourtEditionTable& table = outOfCourtTable(edition);
    const auto asProposed = [&table](Currency amount) { return table.lire ? ArrotondaLire(amount) : amount; };

    // The filing fee is a fixed amount, whatever the relevance: no band.
    if (idTariffa == table.fixedAmountItem)
        return OutOfCourtProposal{Currency{}, Currency{}, Currency{}, Currency{}, asProposed(table.fixedAmount)};

    const std::optional<FeeBand> band = bandOf(edition, table, idTariffa, cValore, bInd, current);
    if (!band)
        return std::nullopt;
    return OutOfCourtProposal{band->min, band->max, Currency{}, Currency{},
                              asProposed(proposalByRelevance(band->min, band->max, vRil))};
}

} // namespace avlor
