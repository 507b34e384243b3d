#pragma once
// Out-of-court fees (OnorariStrag94, OnorariStrag94Euro, OnorariStrag2004Euro).
// No row is read: each item's band follows from the constants of the official
// out-of-court table of the edition, or from a formula over the case value,
// and the proposal is placed in the band by relevance. An item for which the
// official figures are not held proposes nothing: an amount is never made up.
//
// Items are numbered by their position in the official table, counting each
// priced line: in 2004, 1 = 1.A, 2 = 1.B a), 3 = 1.B b), 4 = 2.a), 5 = 2.b),
// 6 = 2.c), 7 and 8 = the two lines of 2.d), 9 = 2.e); 10, 11 and 12 are the
// items priced as a percentage of the value and 13 the one with the band
// 40-770 euro.
#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "avlor/core/Currency.h"
#include "avlor/core/FeeTables.h"

namespace avlor {

// A percentage held in hundredths of a percent: 1.75 % is {175}.
struct Percent {
    std::int32_t hundredths = 0;
    [[nodiscard]] constexpr bool whole() const noexcept { return hundredths % 100 == 0; }
};

// One bracket of the percentage items, for lower < v <= upper (the last
// bracket's upper bound is Currency::max()): the minimum is minBase plus
// minRate of the part of v above `lower`, the maximum likewise. Each base is
// the amount of the bracket below at its upper bound, so the band is
// continuous in v.
struct PercentageBracket {
    Currency lower;
    Currency upper;
    Currency minBase;
    Percent minRate;
    Currency maxBase;
    Percent maxRate;
};

struct FeeBand {
    Currency min;
    Currency max;
    constexpr bool operator==(const FeeBand&) const noexcept = default;
};

// An item whose band does not depend on the value.
struct FixedBandItem {
    std::int32_t id = 0;
    FeeBand band;
};

// Coefficients per euro of the whole value, in millionths (0.000103 is 103),
// used above the last closed bracket of the value-bracket items.
struct PerEuroCoefficients {
    std::int64_t minMillionths = 0;
    std::int64_t maxMillionths = 0;
};

inline constexpr std::size_t ValueBracketCount = 11;

// An item priced by value bracket (2004 items 2, 3, 6 and 9). A figure that
// the official table does not print is absent, and where it would apply the
// item proposes nothing.
struct ValueBracketItem {
    std::int32_t id = 0;
    std::array<FeeBand, ValueBracketCount> brackets;
    std::optional<PerEuroCoefficients> above;
    std::optional<FeeBand> indeterminate;
};

// Bounds of the value brackets, both inclusive, in the order tested: the
// eleven closed brackets and the open one above them (from 5,164,600.01).
struct ValueBracketBounds {
    Currency from;
    Currency to;
};

// What the official out-of-court table of one edition prices.
struct OutOfCourtEditionTable {
    bool lire = false; // proposals are rounded by ArrotondaLire
    std::span<const PercentageBracket> percentageBrackets;
    std::span<const FixedBandItem> fixedBands;
    std::int32_t fixedAmountItem = 0; // the item with a fixed amount and no band
    Currency fixedAmount;
    std::span<const ValueBracketItem> valueBracketItems;
};

[[nodiscard]] const OutOfCourtEditionTable& outOfCourtTable(Edition edition);
[[nodiscard]] std::span<const ValueBracketBounds, ValueBracketCount + 1> valueBracketBounds();

// The ids of the percentage items; item 11 is charged at half the band.
inline constexpr std::int32_t PercentageItemFirst = 10;
inline constexpr std::int32_t PercentageItemHalved = 11;
inline constexpr std::int32_t PercentageItemLast = 12;

// The band of the percentage items (before item 11's halving) for value v,
// or none when v <= 0: no bracket applies.
[[nodiscard]] std::optional<FeeBand> percentageBand(Edition edition, Currency v);

// What an out-of-court item writes.
struct OutOfCourtProposal {
    Currency MinTar;
    Currency MaxTar;
    Currency MinS;
    Currency MaxS;
    Currency result;
};

// The proposal for item idTariffa of the edition's table, or none when the
// official table gives no figure for it (the engine then proposes nothing and
// writes nothing). `current` is the band the caller passed in: items whose
// bracket does not apply (a value <= 0 for the percentage items, a value in
// the gap between two brackets, a bInd that is neither 0 nor -1) leave it as
// it was and propose from it.
[[nodiscard]] std::optional<OutOfCourtProposal> priceOutOfCourt(Edition edition, std::int32_t idTariffa,
                                                                Currency cValore, std::int16_t bInd, std::int16_t vRil,
                                                                FeeBand current);

} // namespace avlor
