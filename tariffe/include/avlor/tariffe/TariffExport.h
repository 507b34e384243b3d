#pragma once
// Writing a fee table of the current practice database as a table file (the
// command "avlor tariffe esporta --tabella NAME"), in the form the import
// reads back to the same rows: a header with every column of the table in
// the database's order, one line per item in the order of Id, texts between
// quotes (a null text as an empty cell), amounts exactly, with a decimal
// point and four decimals ("1007.0900"), lines ended by "\n".
#include <string>
#include <string_view>

namespace avlor {

// Raises Error for a name that is no fee table, DataError for a failure of
// the database.
[[nodiscard]] std::string exportTariffText(std::string_view table);

} // namespace avlor
