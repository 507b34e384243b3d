// The out-of-court table of D.M. 5 ottobre 1994 n. 585 converted to euro
// (1,936.27 lire per euro, amounts to the cent).
#include <array>

#include "Amounts.h"
#include "OutOfCourtEditions.h"

namespace avlor {

namespace {

using amounts::euro;
using amounts::euroCents;
using amounts::noLimit;

// Items 10, 11 and 12. The sixth bracket ends at 1,032,913.80 euro (2,000
// million lire), not at the 2004 edition's 1,549,400: each edition keeps its
// own bounds.
constexpr std::array<PercentageBracket, 8> PercentageBrackets{{
    // 1994 euro table, items 10-12: up to 5,164.57 euro: 3 % - 6 %
    {euro(0), euroCents(516'457), euro(0), {300}, euro(0), {600}},
    // 1994 euro table, items 10-12: 5,164.57 to 25,822.84 euro: 154.94 + 1.75 % - 309.87 + 5.25 %
    {euroCents(516'457), euroCents(2'582'284), euroCents(15'494), {175}, euroCents(30'987), {525}},
    // 1994 euro table, items 10-12: 25,822.84 to 51,645.69 euro: 516.46 + 1.5 % - 1,394.43 + 4.5 %
    {euroCents(2'582'284), euroCents(5'164'569), euroCents(51'646), {150}, euroCents(139'443), {450}},
    // 1994 euro table, items 10-12: 51,645.69 to 258,228.45 euro: 903.80 + 1.25 % - 2,556.46 + 3.75 %
    {euroCents(5'164'569), euroCents(25'822'845), euroCents(90'380), {125}, euroCents(255'646), {375}},
    // 1994 euro table, items 10-12: 258,228.45 to 516,456.90 euro: 3,486.08 + 1 % - 10,303.31 + 3 %
    {euroCents(25'822'845), euroCents(51'645'690), euroCents(348'608), {100}, euroCents(1'030'331), {300}},
    // 1994 euro table, items 10-12: 516,456.90 to 1,032,913.80 euro: 6,068.37 + 0.75 % - 18,050.17 + 3 %
    {euroCents(51'645'690), euroCents(103'291'380), euroCents(606'837), {75}, euroCents(1'805'017), {300}},
    // 1994 euro table, items 10-12: 1,032,913.80 to 2,582,284.50 euro: 9,941.79 + 0.5 % - 33,543.88 + 2 %
    {euroCents(103'291'380), euroCents(258'228'450), euroCents(994'179), {50}, euroCents(3'354'388), {200}},
    // 1994 euro table, items 10-12: above 2,582,284.50 euro: 17,688.65 + 0.25 % - 64,531.29 + 1 %
    {euroCents(258'228'450), noLimit, euroCents(1'768'865), {25}, euroCents(6'453'129), {100}},
}};

constexpr std::array<FixedBandItem, 5> FixedBands{{
    {1, {euroCents(1'033), euroCents(7'489)}}, // 1994 euro table, item 1: 10.33-74.89
    {5, {euroCents(516), euroCents(1'291)}}, // 1994 euro table, item 5: 5.16-12.91
    {7, {euroCents(2'582), euroCents(5'165)}}, // 1994 euro table, item 7: 25.82-51.65
    {8, {euroCents(5'165), euroCents(10'329)}}, // 1994 euro table, item 8: 51.65-103.29
    {13, {euroCents(2'841), euroCents(51'646)}}, // 1994 euro table, item 13: 28.41-516.46
}};

constexpr OutOfCourtEditionTable Table{
    false,
    PercentageBrackets,
    FixedBands,
    4,
    euroCents(1'033), // 1994 euro table, item 4: fixed 10.33
    {},
};

} // namespace

const OutOfCourtEditionTable& outOfCourtEuro94() { return Table; }

} // namespace avlor
