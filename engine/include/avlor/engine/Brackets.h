#pragma once
// Value brackets: which column of a rights or civil-fee row applies to the
// value of a case.
//
// Every bracket is tested with both bounds inclusive, in the order of the
// official table, and a later test that holds overwrites an earlier one. The
// lower bound of a bracket is the upper bound of the one before plus the
// table's smallest step (1 lira, or 0.01 euro), so a value strictly between
// two brackets (250,000.5 lire, 129.115 euro) matches none and leaves the
// column word empty: reading that column then fails, and nothing is priced
// from a value the tables do not foresee.
#include <cstdint>
#include <string>

#include "avlor/core/Currency.h"
#include "avlor/core/FeeTables.h"

namespace avlor {

// VALORESCA1 ... VALORESCA13 of the rights table of the edition, or empty.
[[nodiscard]] std::string rightsColumn(Edition edition, Currency cValore);

struct CivilBracket {
    // SCA01 ... SCA03 or SCA1 ... SCA11 (SCA10 is the open top of the 2004
    // table); the columns read are word + "MIN" and word + "MAX". Empty when
    // the value falls in a gap.
    std::string word;
    // The value lies above the last closed bracket of the table.
    bool aboveLast = false;
};

// The civil-fee bracket of the edition. idTariffa matters only in the 1994
// lire table, where item 13 alone uses the sub-brackets up to 1,000,000 lire.
[[nodiscard]] CivilBracket civilBracket(Edition edition, Currency cValore, std::int32_t idTariffa);

} // namespace avlor
