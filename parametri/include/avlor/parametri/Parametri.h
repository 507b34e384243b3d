#pragma once
// The lawyers' fee parameters of D.M. 10 marzo 2014 n. 55 ("parametri
// forensi"), which price work done since 3 April 2014, beside the 1994 and
// 2004 fee tables that price the work of earlier years.
//
// A version of the decree (2014, 2018, 2022) is in force from a given day.
// Each of its tables is a kind of proceeding (tabella 2: tribunale); each
// figure is the average amount ("valore medio") of one phase of the work
// inside one bracket of the value of the case. Criminal proceedings (table
// 15) have no value brackets. Every table carries where its figures come
// from and how far they can be trusted: a figure the product shows is never
// one it made up, and a figure it lacks is reported by name.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "avlor/core/Currency.h"
#include "avlor/core/Date.h"
#include "avlor/core/Error.h"

namespace avlor::parametri {

// A request the parameters cannot serve: a date before the decree, a table
// or a figure that is not there, a percentage past the version's limit. The
// message, in Italian, says why and is meant for the person who asked.
class ParametriError : public Error {
public:
    using Error::Error;
};

// One version of the decree and the days it applies to.
struct Versione {
    std::string_view nome; // "2014", "2018", "2022"
    std::string_view decreto; // the text in force, for people
    std::string_view decretoBreve; // the same in a few words, for a source line
    Date dal; // first day in force
    std::optional<Date> al; // last day in force; none for the version in force today
};

// The versions, oldest first.
[[nodiscard]] const std::vector<Versione>& versioni();
// The version named `nome`; ParametriError when there is none.
[[nodiscard]] const Versione& versione(std::string_view nome);
// The version in force on `data`. A day before 3 April 2014 is refused:
// that work is priced with the historical fee tables.
[[nodiscard]] const Versione& versioneInVigore(Date data);

// One figure: the average amount of `fase` in the bracket da..a (both
// absent in a table without brackets), with its own provenance.
struct Cifra {
    std::optional<Currency> da;
    std::optional<Currency> a;
    std::string fase;
    Currency valoreMedio;
    std::string fonte;
    std::string affidabilita; // "alta", "media", "bassa"
};

struct Tabella {
    std::string versione; // "2022"
    std::string numero; // "2", "25-bis"
    std::string titolo;
    std::string fonte;
    std::string affidabilita; // "alta", "media", "bassa"
    bool verificata = true; // false: never to be presented as official
    std::string nota;
    std::vector<Cifra> cifre; // in the order of the source: bracket, then phase

    [[nodiscard]] bool haScaglioni() const;
    // The phases, in the order they first appear.
    [[nodiscard]] std::vector<std::string> fasi() const;
};

// How the source of an imported figure that names none begins, followed by
// the file's name ("File importato: correzioni.csv"); also the source of a
// table an import added.
inline constexpr std::string_view FonteImportata = "File importato: ";

// Every table of every version that a firm has figures for.
struct Catalogo {
    std::vector<Tabella> tabelle; // by version, then by table number

    // The table, or nullptr.
    [[nodiscard]] const Tabella* trova(std::string_view versione, std::string_view numero) const;
};

// Sort key of a table number: "2" < "10" < "25" < "25-bis" < "26".
[[nodiscard]] int ordineTabella(std::string_view numero);
// "2", "02", "25bis", "25-BIS" -> "2", "2", "25-bis", "25-bis"; a number
// outside 1..26 (or a -bis other than 20-bis and 25-bis) raises
// ParametriError.
[[nodiscard]] std::string numeroTabella(std::string_view testo);

// An amount as a person reads it: rounded to the cent with halves away from
// zero, as invoices and published computations round (18.976,165 ->
// "18.976,17"), Italian separators. The amount itself stays exact.
[[nodiscard]] std::string testoImporto(Currency importo);
// The same rounding with a point and no separators, "18976.17": the form of
// the machine-readable outputs.
[[nodiscard]] std::string testoImportoPunto(Currency importo);
// A bracket as a person reads it: "26.000,01 - 52.000,00 €", "senza scaglioni".
[[nodiscard]] std::string testoScaglione(const Cifra& cifra);

// Where a set of figures comes from, in one short line per source: the
// decree, the table, the version and the confidence ("D.M. 55/2014 come
// modificato dal D.M. 147/2022, tabella 2, versione 2022, affidabilità
// alta"). The table's own source comes first; figures that came from
// elsewhere (a firm's import) get a line each per source, naming it and how
// many they are. The full provenance stays in `Tabella::fonte` and
// `Cifra::fonte`.
[[nodiscard]] std::vector<std::string> fontiBrevi(const Tabella& tabella, const std::vector<Cifra>& cifre);

} // namespace avlor::parametri
