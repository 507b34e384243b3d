// The value brackets of the three civil-fee tables (Onorari): a pair of
// columns per bracket, word + "MIN" and word + "MAX".
#include <array>
#include <span>
#include <string_view>

#include "Amounts.h"
#include "BracketTest.h"
#include "ByEdition.h"
#include "avlor/engine/Brackets.h"

namespace avlor {

namespace {

using amounts::anyValue;
using amounts::euro;
using amounts::euroCents;
using amounts::lire;
using amounts::noLimit;

struct CivilBracketRow {
    Currency from;
    Currency to;
    std::string_view word;
    bool aboveLast;
};

// Onorari94, in lire. Above 5,000,000,000 lire the table has no column of
// its own: the last closed bracket's SCA11 is read and the band is scaled to
// the value.
constexpr std::array<CivilBracketRow, 12> Lire94{{
    {anyValue, lire(3'000'000), "SCA1", false},
    {lire(3'000'001), lire(5'000'000), "SCA2", false},
    {lire(5'000'001), lire(10'000'000), "SCA3", false},
    {lire(10'000'001), lire(50'000'000), "SCA4", false},
    {lire(50'000'001), lire(100'000'000), "SCA5", false},
    {lire(100'000'001), lire(200'000'000), "SCA6", false},
    {lire(200'000'001), lire(500'000'000), "SCA7", false},
    {lire(500'000'001), lire(750'000'000), "SCA8", false},
    {lire(750'000'001), lire(1'000'000'000), "SCA9", false},
    {lire(1'000'000'001), lire(3'000'000'000), "SCA10", false},
    {lire(3'000'000'001), lire(5'000'000'000), "SCA11", false},
    {lire(5'000'000'001), noLimit, "SCA11", true},
}};

// The sub-brackets of the first lire bracket. In the lire table only item 13
// is priced by them; every other item keeps SCA1 for small values.
constexpr std::array<CivilBracketRow, 3> Lire94SubBrackets{{
    {anyValue, lire(250'000), "SCA01", false},
    {lire(250'001), lire(500'000), "SCA02", false},
    {lire(500'001), lire(1'000'000), "SCA03", false},
}};
constexpr Currency Lire94SubBracketsTop = lire(1'000'000);
constexpr std::int32_t Lire94SubBracketItem = 13;

// Onorari94Euro: the lire bounds converted to euro. Here the sub-brackets
// are part of the main sequence and apply to every item.
constexpr std::array<CivilBracketRow, 15> Euro94{{
    {anyValue, euroCents(12'911), "SCA01", false},
    {euroCents(12'912), euroCents(25'823), "SCA02", false},
    {euroCents(25'824), euroCents(51'646), "SCA03", false},
    {euroCents(51'647), euroCents(154'937), "SCA1", false},
    {euroCents(154'938), euroCents(258'228), "SCA2", false},
    {euroCents(258'229), euroCents(516'457), "SCA3", false},
    {euroCents(516'458), euroCents(2'582'284), "SCA4", false},
    {euroCents(2'582'285), euroCents(5'164'569), "SCA5", false},
    {euroCents(5'164'570), euroCents(10'329'138), "SCA6", false},
    {euroCents(10'329'139), euroCents(25'822'845), "SCA7", false},
    {euroCents(25'822'846), euroCents(38'734'267), "SCA8", false},
    {euroCents(38'734'268), euroCents(51'645'690), "SCA9", false},
    {euroCents(51'645'691), euroCents(154'937'070), "SCA10", false},
    {euroCents(154'937'071), euroCents(258'228'450), "SCA11", false},
    {euroCents(258'228'451), noLimit, "SCA11", true},
}};

// Onorari2004Euro: the open top bracket has a column of its own, SCA10.
constexpr std::array<CivilBracketRow, 13> Euro2004{{
    {anyValue, euro(600), "SCA01", false},
    {euroCents(60'001), euro(1'600), "SCA02", false},
    {euroCents(160'001), euro(2'600), "SCA03", false},
    {euroCents(260'001), euro(5'200), "SCA1", false},
    {euroCents(520'001), euro(25'900), "SCA2", false},
    {euroCents(2'590'001), euro(51'700), "SCA3", false},
    {euroCents(5'170'001), euro(103'300), "SCA4", false},
    {euroCents(10'330'001), euro(258'300), "SCA5", false},
    {euroCents(25'830'001), euro(516'500), "SCA6", false},
    {euroCents(51'650'001), euro(1'549'400), "SCA7", false},
    {euroCents(154'940'001), euro(2'582'300), "SCA8", false},
    {euroCents(258'230'001), euro(5'164'600), "SCA9", false},
    {euroCents(516'460'001), noLimit, "SCA10", true},
}};

std::span<const CivilBracketRow> bracketsOf(Edition edition)
{
    return byEdition<std::span<const CivilBracketRow>>(edition, Lire94, Euro94, Euro2004);
}

// A bracket that holds overwrites the word; the flag, once set, stays set.
void apply(const CivilBracketRow* row, CivilBracket& bracket)
{
    if (!row)
        return;
    bracket.word = row->word;
    if (row->aboveLast)
        bracket.aboveLast = true;
}

} // namespace

CivilBracket civilBracket(Edition edition, Currency cValore, std::int32_t idTariffa)
{
    CivilBracket bracket;
    apply(lastBracketHolding(bracketsOf(edition), cValore), bracket);
    if (edition == Edition::Lire94 && cValore <= Lire94SubBracketsTop && idTariffa == Lire94SubBracketItem)
        apply(lastBracketHolding(std::span<const CivilBracketRow>(Lire94SubBrackets), cValore), bracket);
    return bracket;
}

} // namespace avlor
