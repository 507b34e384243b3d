#pragma once
// The files of the parameters' figures.
//
// Shipped: one file per table and version (sql/parametri/<version>/tabNN_*.csv),
// "#" lines first (the first "# Tabella N - TITLE", the others the source of
// every figure of the file), then "scaglione_da;scaglione_a;fase;valore_medio"
// with Italian decimal commas; and sql/parametri/Affidabilita.csv, which says
// per table how far its figures can be trusted. They are built into the
// library.
//
// Exported and imported: one file for any number of tables and versions,
// "versione,tabella,scaglione_da,scaglione_a,fase,valore_medio,affidabilita,fonte"
// (commas or semicolons; point or comma decimals), so that a firm can hand
// corrected or missing figures to the program with their source.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "avlor/parametri/Parametri.h"

namespace avlor::parametri {

// A fault of a figures file: the line, the column and what is wrong, in
// Italian, in what().
class ParametriFileError : public ParametriError {
public:
    ParametriFileError(std::size_t riga, const std::string& colonna, const std::string& motivo,
                       const std::string& file = {});
    [[nodiscard]] std::size_t riga() const noexcept { return riga_; }
    // The same fault, named in the file `file`.
    [[nodiscard]] ParametriFileError inFile(const std::string& file) const;

private:
    std::size_t riga_;
    std::string colonna_;
    std::string motivo_;
};

// The figures built into the program, every table of every version with its
// provenance. Raises ParametriFileError for a fault of the shipped files
// (a build that lets one through is a broken build).
[[nodiscard]] const Catalogo& catalogoSpedito();

// Reads one shipped table file.
[[nodiscard]] Tabella leggiTabellaSpedita(const std::string& versione, const std::string& numero,
                                          std::string_view testo);

// One figure of an imported file, with the line it was read from.
struct RigaImportata {
    std::size_t riga = 0;
    std::string versione;
    std::string tabella;
    Cifra cifra;
};

// Reads and checks a whole import file: the header, every cell, no figure
// twice. A missing fonte becomes `fonteMancante`. Raises ParametriFileError.
[[nodiscard]] std::vector<RigaImportata> leggiFileParametri(std::string_view testo, const std::string& fonteMancante);

// The file of every figure of `catalogo`, read back unchanged by
// leggiFileParametri.
[[nodiscard]] std::string scriviFileParametri(const Catalogo& catalogo);

// An amount of a figures file: digits, an optional comma or point and up to
// two decimals ("1100,00", "3544", "0.01"); nothing otherwise.
[[nodiscard]] std::optional<Currency> leggiImporto(std::string_view testo);

} // namespace avlor::parametri
