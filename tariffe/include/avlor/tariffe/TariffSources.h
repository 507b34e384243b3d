#pragma once
// The sources file that goes with the shipped fee tables (FonteTariffe.csv):
// one row per loaded item, and one per table (Id empty) with the table's
// note: where its figures come from, which are missing and why. It is read
// and checked like a table file (Csv.h, TariffFileError.h) and its rows go
// into the FonteTariffe table beside the figures they describe.
//
// Header: Tabella, Id, Fonte, Note (letter case ignored, all four present).
// Tabella names a fee table; Id is empty or a whole number from 1 to
// 2147483647; Fonte is not blank; Note may be empty. A (Tabella, Id) pair
// appears once.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace avlor {

struct TariffSource {
    std::size_t line = 0;
    std::string table; // as the schema spells it
    std::optional<std::int32_t> id; // nothing for the table's own note
    std::string fonte;
    std::optional<std::string> note;
};

// Raises TariffFileError naming the line and column of a fault.
[[nodiscard]] std::vector<TariffSource> readTariffSources(std::string_view text);

} // namespace avlor
