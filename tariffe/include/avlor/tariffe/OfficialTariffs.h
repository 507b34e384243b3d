#pragma once
// The official fee-table figures shipped with the program (sql/tariffe/ in
// the source tree, share/avlor/tariffe/ once installed), loaded into a new
// practice database by "avlor db init".
//
// The folder holds one table file per fee table that has shipped figures,
// named after the table (Onorari2004Euro.csv), and FonteTariffe.csv with the
// source of every shipped item and a note per table. They go through the
// same checks as an import; every shipped item must have its source and
// every source must name a shipped item. All of it is written in one
// transaction: either every shipped table is loaded or nothing is.
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "avlor/tariffe/TariffImport.h"

namespace avlor {

struct OfficialTariffsResult {
    std::vector<TariffImportResult> tables; // the tables with shipped figures, in feeTables() order
    std::size_t sources = 0;               // rows written to FonteTariffe
};

// Loads the folder into the current practice database. Raises Error when
// the folder or its FonteTariffe.csv is missing, TariffFileError for a fault
// of a file, DataError for a failure of the database.
OfficialTariffsResult loadOfficialTariffs(const std::filesystem::path& folder);

// The shipped folder: the environment variable AVLOR_TARIFFE_DIR when set;
// otherwise the first of share/avlor/tariffe and sql/tariffe found beside
// the running program or in a folder above it; otherwise sql/tariffe under
// the environment variable AVLOR_SOURCE_DIR. Raises Error when none holds
// FonteTariffe.csv.
[[nodiscard]] std::filesystem::path officialTariffsFolder();

} // namespace avlor
