// The out-of-court table of D.M. 5 ottobre 1994 n. 585, in lire.
//
// The printed lire table is not held; its figures are recovered from the
// euro edition, which is this table converted at 1,936.27 lire per euro: each
// figure below is the round lire amount whose conversion gives, to the cent,
// the euro figure of the same item (the tests check every one; two euro bases
// were printed a cent below the rounded conversion). Items 2, 3, 6 and 9 and
// the items from 14 on are not recoverable so and propose nothing.
#include <array>

#include "Amounts.h"
#include "OutOfCourtEditions.h"

namespace avlor {

namespace {

using amounts::lire;
using amounts::noLimit;

// Items 10, 11 and 12: base plus a percentage of the value above the lower
// bound of the bracket.
constexpr std::array<PercentageBracket, 8> PercentageBrackets{{
    // 1994 table, items 10-12: up to 10 million lire: 3 % - 6 %
    {lire(0), lire(10'000'000), lire(0), {300}, lire(0), {600}},
    // 1994 table, items 10-12: 10 to 50 million lire: 300,000 + 1.75 % - 600,000 + 5.25 %
    {lire(10'000'000), lire(50'000'000), lire(300'000), {175}, lire(600'000), {525}},
    // 1994 table, items 10-12: 50 to 100 million lire: 1,000,000 + 1.5 % - 2,700,000 + 4.5 %
    {lire(50'000'000), lire(100'000'000), lire(1'000'000), {150}, lire(2'700'000), {450}},
    // 1994 table, items 10-12: 100 to 500 million lire: 1,750,000 + 1.25 % - 4,950,000 + 3.75 %
    {lire(100'000'000), lire(500'000'000), lire(1'750'000), {125}, lire(4'950'000), {375}},
    // 1994 table, items 10-12: 500 million to 1,000 million lire: 6,750,000 + 1 % - 19,950,000 + 3 %
    {lire(500'000'000), lire(1'000'000'000), lire(6'750'000), {100}, lire(19'950'000), {300}},
    // 1994 table, items 10-12: 1,000 to 2,000 million lire: 11,750,000 + 0.75 % - 34,950,000 + 3 %
    {lire(1'000'000'000), lire(2'000'000'000), lire(11'750'000), {75}, lire(34'950'000), {300}},
    // 1994 table, items 10-12: 2,000 to 5,000 million lire: 19,250,000 + 0.5 % - 64,950,000 + 2 %
    {lire(2'000'000'000), lire(5'000'000'000), lire(19'250'000), {50}, lire(64'950'000), {200}},
    // 1994 table, items 10-12: above 5,000 million lire: 34,250,000 + 0.25 % - 124,950,000 + 1 %
    {lire(5'000'000'000), noLimit, lire(34'250'000), {25}, lire(124'950'000), {100}},
}};

constexpr std::array<FixedBandItem, 5> FixedBands{{
    {1, {lire(20'000), lire(145'000)}}, // 1994 table, item 1: 20,000-145,000 lire
    {5, {lire(10'000), lire(25'000)}}, // 1994 table, item 5: 10,000-25,000 lire
    {7, {lire(50'000), lire(100'000)}}, // 1994 table, item 7: 50,000-100,000 lire
    {8, {lire(100'000), lire(200'000)}}, // 1994 table, item 8: 100,000-200,000 lire
    {13, {lire(55'000), lire(1'000'000)}}, // 1994 table, item 13: 55,000-1,000,000 lire
}};

constexpr OutOfCourtEditionTable Table{
    true,         PercentageBrackets, FixedBands, 4,
    lire(20'000), // 1994 table, item 4: fixed 20,000 lire
    {},
};

} // namespace

const OutOfCourtEditionTable& outOfCourtLire94() { return Table; }

} // namespace avlor
