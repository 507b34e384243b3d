// Late-bound face of clsParametri: pricing with the lawyers' fee parameters
// of D.M. 55/2014 from the figures of the current practice database.
//
// Calcola prices and returns the grand total; the other operations read the
// last result, phases numbered from 1 as hosts count them. Amounts come back
// exact; the texts round them to the cent as a person reads them. FonteFase
// names the figure and the rules in a few words; ProvenienzaFase gives the
// figure's full source, for a host that asks for it. A refusal (a day
// before the decree, a figure that is missing, a percentage past its limit)
// raises ParametriError with the reason in Italian.
#include <memory>
#include <optional>

#include "avlor/core/Error.h"
#include "avlor/parametri/Calcolo.h"
#include "avlor/parametri/ParametriDatabase.h"
#include "avlor/parametri/ParametriFile.h"
#include "binding/MethodTable.h"

namespace avlor::binding {

namespace {

struct ParametriState {
    std::optional<parametri::Risultato> last;

    const parametri::Risultato& result() const
    {
        if (!last)
            throw UsageError("clsParametri: non c'è ancora un calcolo; chiamare prima Calcola");
        return *last;
    }

    const parametri::FaseCalcolata& phase(const Value& index) const
    {
        const parametri::Risultato& r = result();
        const std::int32_t i = index.toLong();
        if (i < 1 || static_cast<std::size_t>(i) > r.fasi.size())
            throw UsageError("clsParametri: la fase " + std::to_string(i) + " non è tra 1 e " +
                             std::to_string(r.fasi.size()));
        return r.fasi[static_cast<std::size_t>(i - 1)];
    }
};

std::vector<std::string> splitOn(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::string part;
    for (const char c : text + separator) {
        if (c != separator) {
            part += c;
            continue;
        }
        const auto first = part.find_first_not_of(' ');
        if (first != std::string::npos)
            parts.push_back(part.substr(first, part.find_last_not_of(' ') - first + 1));
        part.clear();
    }
    return parts;
}

// Calcola(Data, Tabella, Valore, Fasi, Percentuali, Clienti): Valore is an
// amount, or the text bassa / alta / particolare for a value that cannot be
// determined; Fasi "studio,introduttiva"; Percentuali "istruttoria=+20;
// studio=-10" or empty.
parametri::Richiesta request(std::vector<Value>& a)
{
    parametri::Richiesta r;
    r.data = a[0].toDate();
    r.tabella = argumentText(a[1]);
    if (a[2].kind() == ValueKind::Text) {
        if (const auto amount = parametri::leggiImporto(a[2].asText()))
            r.valore = amount;
        else
            r.indeterminabile = parametri::indeterminabile(a[2].asText());
    } else if (!a[2].isNull() && !a[2].isEmpty()) {
        r.valore = a[2].toCurrency();
    }
    r.fasi = splitOn(argumentText(a[3]), ',');
    for (const std::string& item : splitOn(argumentText(a[4]), ';')) {
        const auto equals = item.find('=');
        if (equals == std::string::npos)
            throw parametri::ParametriError("«" + item + "» non è una percentuale di fase: indicarla come fase=+20");
        r.percentuali[item.substr(0, equals)] = parametri::percentuale(item.substr(equals + 1));
    }
    r.clienti = a[5].isNull() || a[5].isEmpty() ? 1 : a[5].toLong();
    return r;
}

} // namespace

std::unique_ptr<AutomationObject> makeClsParametri()
{
    auto s = std::make_shared<ParametriState>();
    return std::make_unique<TableObject>(
        "AvlorLogic.clsParametri",
        std::vector<Method>{
            {"Calcola",
             {"Data", "Tabella", "Valore", "Fasi", "Percentuali", "Clienti"},
             [s](std::vector<Value>& a) -> DispatchResult {
                 s->last.reset();
                 s->last = parametri::calcola(parametri::leggiParametri(), request(a));
                 return Value::currency(s->last->totale);
             }},
            {"VersioneInVigore",
             {"Data"},
             [](std::vector<Value>& a) -> DispatchResult {
                 return Value::text(std::string(parametri::versioneInVigore(a[0].toDate()).nome));
             }},
            {"Versione", {}, [s](std::vector<Value>&) -> DispatchResult { return Value::text(s->result().versione); }},
            {"Scaglione",
             {},
             [s](std::vector<Value>&) -> DispatchResult { return Value::text(s->result().scaglione); }},
            {"NumeroFasi",
             {},
             [s](std::vector<Value>&) -> DispatchResult {
                 return Value::longValue(static_cast<std::int32_t>(s->result().fasi.size()));
             }},
            {"NomeFase",
             {"Fase"},
             [s](std::vector<Value>& a) -> DispatchResult { return Value::text(s->phase(a[0]).fase); }},
            {"MedioFase",
             {"Fase"},
             [s](std::vector<Value>& a) -> DispatchResult { return Value::currency(s->phase(a[0]).medio); }},
            {"MinimoFase",
             {"Fase"},
             [s](std::vector<Value>& a) -> DispatchResult { return Value::currency(s->phase(a[0]).minimo); }},
            {"MassimoFase",
             {"Fase"},
             [s](std::vector<Value>& a) -> DispatchResult { return Value::currency(s->phase(a[0]).massimo); }},
            {"ImportoFase",
             {"Fase"},
             [s](std::vector<Value>& a) -> DispatchResult { return Value::currency(s->phase(a[0]).scelto); }},
            {"FonteFase",
             {"Fase"},
             [s](std::vector<Value>& a) -> DispatchResult {
                 const parametri::FaseCalcolata& f = s->phase(a[0]);
                 return Value::text(f.fonteCifra + "; " + f.regolaMedio + "; limiti: " + f.regolaLimiti +
                                    "; importo: " + f.regolaScelto);
             }},
            {"ProvenienzaFase",
             {"Fase"},
             [s](std::vector<Value>& a) -> DispatchResult { return Value::text(s->phase(a[0]).provenienza); }},
            {"Compenso",
             {},
             [s](std::vector<Value>&) -> DispatchResult { return Value::currency(s->result().compenso); }},
            {"SpeseGenerali",
             {},
             [s](std::vector<Value>&) -> DispatchResult { return Value::currency(s->result().speseGenerali); }},
            {"Totale", {}, [s](std::vector<Value>&) -> DispatchResult { return Value::currency(s->result().totale); }},
            {"Avvertenze",
             {},
             [s](std::vector<Value>&) -> DispatchResult {
                 std::string text;
                 for (const std::string& warning : s->result().avvertenze)
                     text += (text.empty() ? "" : "\n") + warning;
                 return Value::text(text);
             }},
        });
}

} // namespace avlor::binding
