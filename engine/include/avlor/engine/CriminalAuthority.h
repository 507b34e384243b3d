#pragma once
// Criminal fees are not chosen by value but by the authority before which the
// case is held: the authority names the pair of columns (prefix + "MIN",
// prefix + "MAX") of the criminal-fee row.
#include <optional>
#include <string>
#include <string_view>

#include "avlor/core/FeeTables.h"

namespace avlor {

// The column prefix for `Autorita`, compared exactly (letter case and blanks
// count), or none for a text the tables do not know. `sTabella` is the table
// name as the caller passed it: the justice of the peace has columns of its
// own only in the 2004 table, recognised by "2004Euro" in the name whatever
// its case; the preliminary-hearing judge has its own only in the 2004
// edition. Elsewhere both fall back to the Tribunale columns.
[[nodiscard]] std::optional<std::string> criminalColumnPrefix(std::string_view Autorita, std::string_view sTabella,
                                                              Edition edition);

} // namespace avlor
