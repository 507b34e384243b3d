#pragma once
// Loading a fee table that a firm holds into the current practice database
// (the command "avlor tariffe importa --tabella NAME FILE.csv").
//
// The file is read and checked whole first (TariffFile.h): its columns
// against the table's columns as the database reports them, every cell,
// unique ids. Only then are its items written, all in one transaction: an
// item whose Id is already in the table is replaced whole (the columns the
// file does not give take the table's defaults, 0 for amounts), any other
// item is added, items not in the file stay as they are. Each written item
// gets its source in FonteTariffe. A file with one bad cell, or a failure of
// the database half-way, leaves the database as it was.
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace avlor {

struct TariffImportResult {
    std::string table; // as the schema spells it
    std::size_t added = 0;
    std::size_t replaced = 0;
};

// Imports `text` into `table` (any letter case; see FeeTables.h), recording
// `source` as the Fonte of each item. Raises Error for a name that is no fee
// table, TariffFileError for a fault of the file, DataError for a failure of
// the database.
TariffImportResult importTariffText(std::string_view table, std::string_view text, const std::string& source);

// Imports the file at `path`; the source recorded is "File importato: "
// followed by the file's name. A file that cannot be read raises Error.
TariffImportResult importTariffFile(std::string_view table, const std::filesystem::path& path);

} // namespace avlor
