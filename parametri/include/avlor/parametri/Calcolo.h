#pragma once
// Pricing a piece of work with the parameters: the version in force on the
// day of the work, one table, the value of the case, the phases done, a
// percentage per phase within the version's limits and the number of
// clients. Every amount comes with the rule and the figure it comes from.
//
// Amounts are kept exact to the ten-thousandth of a euro; percentages are
// applied in whole arithmetic (hundredths of a percent), so no amount ever
// passes through a binary fraction. Rounding to the cent, halves away from
// zero, is left to whoever shows them (testoImporto).
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "avlor/core/Currency.h"
#include "avlor/core/Date.h"
#include "avlor/parametri/Parametri.h"

namespace avlor::parametri {

// A case whose value cannot be determined (art. 5 c.6): as a rule from
// 26.000 to 260.000 euro by subject and complexity, up to the bracket of
// 520.000 euro when the case is of particular importance. The firm says
// which bracket it takes.
enum class Indeterminabile {
    Bassa, // 26.000,01 - 52.000
    Alta, // 52.000,01 - 260.000
    ParticolareImportanza, // 260.000,01 - 520.000
};

// "bassa", "alta", "particolare" (ParametriError for anything else).
[[nodiscard]] Indeterminabile indeterminabile(std::string_view testo);

struct Richiesta {
    Date data; // the day the work was completed
    std::string tabella; // "2", "25-bis"
    std::optional<Currency> valore; // the value of the case
    std::optional<Indeterminabile> indeterminabile;
    // The phases done, each by its name in the table or by words of it
    // ("studio", "introduttiva", "Corte di assise studio"). Words that more
    // than one name holds pick the name the others only add words to
    // ("cautelare": "Fase cautelare", not "Fase cautelare monocratica"), or
    // the phase of the authority they name in full ("corte di assise
    // studio": the Corte di assise, not the Corte di assise d'appello);
    // anything else they fit more than once is refused as ambiguous.
    std::vector<std::string> fasi;
    // Raise (+) or lower (-) of a phase over its average, in hundredths of a
    // percent (+20 % = 2000), keyed like `fasi`.
    std::map<std::string, int> percentuali;
    int clienti = 1;
};

struct FaseCalcolata {
    std::string fase; // as the table names it
    Currency cifra; // the table's figure
    Currency medio; // the figure, raised for a value above 520.000 euro
    Currency minimo;
    Currency massimo;
    int percentuale = 0; // hundredths of a percent
    Currency scelto;
    std::string fonteCifra; // table, version, bracket, phase, figure and confidence
    std::string provenienza; // the figure's full source, as its file gives it
    std::string regolaMedio;
    std::string regolaLimiti;
    std::string regolaScelto;
};

struct Risultato {
    std::string versione;
    std::string decreto;
    std::string tabella;
    std::string titolo;
    std::string affidabilita;
    bool verificata = true;
    std::vector<std::string> fonti; // one short line per source of the figures used (fontiBrevi)
    std::string provenienza; // the table's full source, as its file gives it
    std::string valore; // as priced: the amount, or the indeterminate range taken
    std::string scaglione; // the bracket whose figures were used
    std::string regolaScaglione;
    int raddoppi = 0; // steps of +30 % for a value above 520.000 euro
    std::vector<FaseCalcolata> fasi;
    Currency sommaMinimi; // the phases at their minimum, at their average, at their maximum
    Currency sommaMedi;
    Currency sommaMassimi;
    Currency sommaFasi; // the phases as chosen
    int clienti = 1;
    int percentualeClienti = 0; // hundredths of a percent
    Currency aumentoClienti;
    std::string regolaClienti;
    Currency compenso; // the fee: phases plus the clients' increase
    Currency speseGenerali;
    std::string regolaSpeseGenerali;
    Currency totale;
    std::vector<std::string> avvertenze; // what a person must know before using the numbers
};

// Prices `richiesta` with the figures of `catalogo`. Raises ParametriError,
// with the exact reason, for anything the rules or the figures cannot serve.
[[nodiscard]] Risultato calcola(const Catalogo& catalogo, const Richiesta& richiesta);

// "+20", "-12,5", "20%" -> hundredths of a percent; ParametriError otherwise.
[[nodiscard]] int percentuale(std::string_view testo);
// 2000 -> "+20%", -1250 -> "-12,5%", 0 -> "0%".
[[nodiscard]] std::string testoPercentuale(int centesimi);

} // namespace avlor::parametri
