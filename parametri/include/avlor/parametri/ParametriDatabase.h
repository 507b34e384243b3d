#pragma once
// The parameters' figures in the practice database (ParametriTabelle,
// ParametriCifre): loaded with the shipped figures when the database is
// made, read back to price, exported, and imported in the way the fee
// tables are: the file is checked whole first, then written in one
// transaction, so a file with one bad cell changes nothing.
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "avlor/parametri/Parametri.h"

namespace avlor::parametri {

struct Caricamento {
    std::size_t tabelle = 0; // tables written
    std::size_t cifre = 0; // figures written
    std::size_t sostituite = 0; // of which replaced a figure with the same key
};

// Loads `catalogo` (by default the shipped figures) into the current
// practice database, in one transaction. Raises DataError on a failure of
// the database.
Caricamento caricaParametri(const Catalogo& catalogo);
Caricamento caricaParametriSpediti();

// Every table and figure of the current practice database. A database made
// before the parameters were added has no such tables: ParametriError says
// so and how to get them.
[[nodiscard]] Catalogo leggiParametri();

// Imports `testo` (ParametriFile.h): each figure replaces the one with the
// same version, table, bracket and phase, or is added; a table the database
// does not have yet gets its row, its title taken from the same table of
// another version. Figures not in the file stay. `origine` names the file
// in the recorded source of figures that give none and in messages.
Caricamento importaParametri(std::string_view testo, const std::string& origine);
Caricamento importaFileParametri(const std::filesystem::path& file);

// The export file of every figure of the current practice database.
[[nodiscard]] std::string esportaParametri();

} // namespace avlor::parametri
