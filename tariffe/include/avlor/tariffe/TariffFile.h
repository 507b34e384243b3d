#pragma once
// The checked content of a fee-table file, ready to be written: the whole
// file is read and checked before anything touches the database, so that a
// file with one bad cell changes nothing.
//
// The file's first line names the columns it gives (any of the table's
// columns, in any order, letter case ignored; Id and CodiceTariffa are
// required). Each further line is one item: Id a whole number from 1 to
// 2147483647, unique in the file; CodiceTariffa not blank; Azione and
// Autorita any text (an unquoted empty cell is no text, NULL); every other
// column an amount in the table's unit (see AmountText.h), an empty cell
// being 0. Blank lines are ignored; text must be UTF-8.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "avlor/core/Value.h"

namespace avlor {

struct TariffFileRow {
    std::size_t line = 0;
    std::int32_t id = 0;
    // One value per column of the file, in the file's order: the Id as a
    // 32-bit number, texts (or null), amounts as Currency.
    std::vector<Value> values;
};

struct TariffFile {
    std::string table; // as the schema spells it
    std::vector<std::string> columns; // the file's columns, spelled as the table's
    std::vector<TariffFileRow> rows; // in the order of the file
};

// Checks `text` against `tableColumns` (the columns of `table` as the
// database reports them) and returns its content. Raises TariffFileError
// naming the line and the column of a fault (the first one met, except that
// an ambiguous amount is judged once the whole file has shown its notation).
[[nodiscard]] TariffFile readTariffFile(std::string_view table, std::string_view text,
                                        const std::vector<std::string>& tableColumns);

} // namespace avlor
