#pragma once
// The official fee-table figures shipped with the program, loaded into a new
// practice database by "avlor db init". They are built into the library from
// sql/tariffe/ in the source tree (and installed as share/avlor/tariffe/ for
// people to read); a folder named by the environment variable
// AVLOR_TARIFFE_DIR is loaded instead when set.
//
// The figures are one table file per fee table that has shipped figures,
// named after the table (Onorari2004Euro.csv), and FonteTariffe.csv with the
// source of every shipped item and a note per table. They go through the
// same checks as an import; every shipped item must have its source and
// every source must name a shipped item. All of it is written in one
// transaction: either every shipped table is loaded or nothing is.
#include <cstddef>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "avlor/tariffe/TariffImport.h"

namespace avlor {

// The files of the official figures: each file's text by its name.
struct OfficialTariffFiles {
    std::string origin; // where they come from, for messages
    std::map<std::string, std::string> files;
};

struct OfficialTariffsResult {
    std::vector<TariffImportResult> tables; // the tables with shipped figures, in feeTables() order
    std::size_t sources = 0; // rows written to FonteTariffe
};

// The files of `folder`. Raises Error when it holds no FonteTariffe.csv or a
// file cannot be read.
[[nodiscard]] OfficialTariffFiles readOfficialTariffFiles(const std::filesystem::path& folder);

// The figures to load: the folder of AVLOR_TARIFFE_DIR when set (Error when
// it holds no FonteTariffe.csv), otherwise those built into the library.
[[nodiscard]] OfficialTariffFiles officialTariffFiles();

// Loads the figures into the current practice database. Raises Error when
// FonteTariffe.csv is missing, TariffFileError for a fault of a file,
// DataError for a failure of the database.
OfficialTariffsResult loadOfficialTariffs(const OfficialTariffFiles& figures);
// The same for the files of `folder`.
OfficialTariffsResult loadOfficialTariffs(const std::filesystem::path& folder);

} // namespace avlor
