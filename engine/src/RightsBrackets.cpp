// The value brackets of the three rights tables (Diritti): one amount column
// per bracket, VALORESCA1 ... VALORESCA13.
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

struct RightsBracket {
    Currency from;
    Currency to;
    std::string_view column;
};

// Diritti94, in lire.
constexpr std::array<RightsBracket, 13> Lire94{{
    {anyValue, lire(250'000), "VALORESCA1"},
    {lire(250'001), lire(500'000), "VALORESCA2"},
    {lire(500'001), lire(1'000'000), "VALORESCA3"},
    {lire(1'000'001), lire(3'000'000), "VALORESCA4"},
    {lire(3'000'001), lire(5'000'000), "VALORESCA5"},
    {lire(5'000'001), lire(10'000'000), "VALORESCA6"},
    {lire(10'000'001), lire(50'000'000), "VALORESCA7"},
    {lire(50'000'001), lire(100'000'000), "VALORESCA8"},
    {lire(100'000'001), lire(200'000'000), "VALORESCA9"},
    {lire(200'000'001), lire(500'000'000), "VALORESCA10"},
    {lire(500'000'001), lire(1'000'000'000), "VALORESCA11"},
    {lire(1'000'000'001), lire(3'000'000'000), "VALORESCA12"},
    {lire(3'000'000'001), noLimit, "VALORESCA13"},
}};

// Diritti94Euro: the lire bounds converted to euro.
constexpr std::array<RightsBracket, 13> Euro94{{
    {anyValue, euroCents(12'911), "VALORESCA1"},
    {euroCents(12'912), euroCents(25'823), "VALORESCA2"},
    {euroCents(25'824), euroCents(51'646), "VALORESCA3"},
    {euroCents(51'647), euroCents(154'937), "VALORESCA4"},
    {euroCents(154'938), euroCents(258'228), "VALORESCA5"},
    {euroCents(258'229), euroCents(516'457), "VALORESCA6"},
    {euroCents(516'458), euroCents(2'582'284), "VALORESCA7"},
    {euroCents(2'582'285), euroCents(5'164'569), "VALORESCA8"},
    {euroCents(5'164'570), euroCents(10'329'138), "VALORESCA9"},
    {euroCents(10'329'139), euroCents(25'822'845), "VALORESCA10"},
    {euroCents(25'822'846), euroCents(51'645'690), "VALORESCA11"},
    {euroCents(51'645'691), euroCents(154'937'070), "VALORESCA12"},
    {euroCents(154'937'071), noLimit, "VALORESCA13"},
}};

// Diritti2004Euro.
constexpr std::array<RightsBracket, 13> Euro2004{{
    {anyValue, euro(600), "VALORESCA1"},
    {euroCents(60'001), euro(1'600), "VALORESCA2"},
    {euroCents(160'001), euro(2'600), "VALORESCA3"},
    {euroCents(260'001), euro(5'200), "VALORESCA4"},
    {euroCents(520'001), euro(25'900), "VALORESCA5"},
    {euroCents(2'590'001), euro(51'700), "VALORESCA6"},
    {euroCents(5'170'001), euro(103'300), "VALORESCA7"},
    {euroCents(10'330'001), euro(258'300), "VALORESCA8"},
    {euroCents(25'830'001), euro(516'500), "VALORESCA9"},
    {euroCents(51'650'001), euro(1'549'400), "VALORESCA10"},
    {euroCents(154'940'001), euro(2'582'300), "VALORESCA11"},
    {euroCents(258'230'001), euro(5'164'600), "VALORESCA12"},
    {euroCents(516'460'001), noLimit, "VALORESCA13"},
}};

std::span<const RightsBracket> bracketsOf(Edition edition)
{
    return byEdition<std::span<const RightsBracket>>(edition, Lire94, Euro94, Euro2004);
}

} // namespace

std::string rightsColumn(Edition edition, Currency cValore)
{
    const RightsBracket* bracket = lastBracketHolding(bracketsOf(edition), cValore);
    return bracket ? std::string(bracket->column) : std::string();
}

} // namespace avlor
