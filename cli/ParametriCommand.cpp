#include "ParametriCommand.h"

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <memory>
#include <ostream>

#include "OutputFile.h"
#include "avlor/core/TypedAmount.h"
#include "avlor/parametri/Calcolo.h"
#include "avlor/parametri/ParametriDatabase.h"
#include "avlor/parametri/ParametriFile.h"

namespace avlor::cli {

namespace {

using parametri::Catalogo;
using parametri::Cifra;
using parametri::Tabella;
using parametri::testoImporto;
using parametri::testoImportoPunto;

constexpr std::uintmax_t MaxImportBytes = 16U * 1024U * 1024U;

struct ParametriOptions {
    std::string data;
    std::string versione;
    std::string tabella;
    std::string valore;
    std::string indeterminabile;
    std::string fasi;
    std::vector<std::string> percentuali;
    int clienti = 1;
    std::string file;
    std::string output;
    bool provenienza = false;
};

Date readDate(const std::string& text)
{
    const auto date = Date::parseDayFirst(text);
    if (!date)
        throw CommandError("«" + text + "» non è una data: indicarla come GG/MM/AAAA");
    return *date;
}

// Characters, not bytes: the names hold accented letters and the euro sign.
std::size_t width(const std::string& text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string padRight(const std::string& text, std::size_t size)
{
    return text + std::string(size > width(text) ? size - width(text) : 0, ' ');
}

std::string padLeft(const std::string& text, std::size_t size)
{
    return std::string(size > width(text) ? size - width(text) : 0, ' ') + text;
}

std::vector<std::string> split(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::string part;
    for (const char c : text) {
        if (c == separator) {
            parts.push_back(part);
            part.clear();
        } else {
            part += c;
        }
    }
    parts.push_back(part);
    std::vector<std::string> result;
    for (std::string& p : parts) {
        const auto first = p.find_first_not_of(' ');
        const auto last = p.find_last_not_of(' ');
        if (first != std::string::npos)
            result.push_back(p.substr(first, last - first + 1));
    }
    return result;
}

std::string inVigore(const parametri::Versione& v)
{
    return "dal " + v.dal.toDayFirst() + (v.al ? " al " + v.al->toDayFirst() : std::string(", in vigore"));
}

// A table with its short source lines; with `provenance`, the full source
// of the table and of each figure as well.
nlohmann::ordered_json tableJson(const Tabella& t, bool withFigures, bool provenance = false)
{
    nlohmann::ordered_json json{{"versione", t.versione},     {"tabella", t.numero},
                                {"titolo", t.titolo},         {"affidabilita", t.affidabilita},
                                {"verificata", t.verificata}, {"nota", t.nota},
                                {"cifre", t.cifre.size()},    {"fonti", parametri::fontiBrevi(t, t.cifre)}};
    if (provenance)
        json["provenienza"] = t.fonte;
    if (withFigures) {
        auto figures = nlohmann::ordered_json::array();
        for (const Cifra& c : t.cifre) {
            nlohmann::ordered_json figure{
                {"scaglioneDa", c.da ? nlohmann::ordered_json(testoImportoPunto(*c.da)) : nullptr},
                {"scaglioneA", c.a ? nlohmann::ordered_json(testoImportoPunto(*c.a)) : nullptr},
                {"fase", c.fase},
                {"valoreMedio", testoImportoPunto(c.valoreMedio)},
                {"affidabilita", c.affidabilita}};
            if (provenance)
                figure["provenienza"] = c.fonte;
            figures.push_back(figure);
        }
        json["cifre"] = figures;
    }
    return json;
}

// The full sources of `t`'s figures `cifre`, each once, the table's own first.
std::vector<std::string> fullSources(const Tabella& t, const std::vector<Cifra>& cifre)
{
    std::vector<std::string> sources;
    for (const Cifra& c : cifre) {
        if (c.fonte == t.fonte && std::find(sources.begin(), sources.end(), c.fonte) == sources.end())
            sources.insert(sources.begin(), c.fonte);
    }
    for (const Cifra& c : cifre) {
        if (std::find(sources.begin(), sources.end(), c.fonte) == sources.end())
            sources.push_back(c.fonte);
    }
    return sources;
}

void printTables(Context& context, const ParametriOptions& options)
{
    context.openPracticeDatabase();
    const Catalogo catalogo = parametri::leggiParametri();
    std::vector<const parametri::Versione*> versions;
    if (!options.data.empty()) {
        versions.push_back(&parametri::versioneInVigore(readDate(options.data)));
    } else {
        for (const parametri::Versione& v : parametri::versioni())
            versions.push_back(&v);
    }
    if (context.json) {
        auto list = nlohmann::ordered_json::array();
        for (const parametri::Versione* v : versions) {
            auto tables = nlohmann::ordered_json::array();
            for (const Tabella& t : catalogo.tabelle) {
                if (t.versione == v->nome)
                    tables.push_back(tableJson(t, false));
            }
            list.push_back({{"versione", v->nome},
                            {"decreto", v->decreto},
                            {"dal", v->dal.toDayFirst()},
                            {"al", v->al ? nlohmann::ordered_json(v->al->toDayFirst()) : nullptr},
                            {"tabelle", tables}});
        }
        *context.out << nlohmann::ordered_json{{"risultato", {{"versioni", list}}}}.dump() << '\n';
        return;
    }
    for (const parametri::Versione* v : versions) {
        *context.out << "Versione " << v->nome << ": " << v->decreto << ", " << inVigore(*v) << '\n';
        for (const Tabella& t : catalogo.tabelle) {
            if (t.versione != v->nome)
                continue;
            *context.out << "  " << padRight(t.numero, 7) << padRight(t.titolo, 92)
                         << padLeft(std::to_string(t.cifre.size()), 4) << " cifre  affidabilità " << t.affidabilita
                         << (t.verificata ? "" : "  NON VERIFICATA") << '\n';
        }
    }
}

void printTable(Context& context, const ParametriOptions& options)
{
    context.openPracticeDatabase();
    const Catalogo catalogo = parametri::leggiParametri();
    std::string version = options.versione;
    if (version.empty() && !options.data.empty())
        version = std::string(parametri::versioneInVigore(readDate(options.data)).nome);
    if (version.empty())
        version = std::string(parametri::versioni().back().nome);
    (void)parametri::versione(version);
    const std::string number = parametri::numeroTabella(options.tabella);
    const Tabella* t = catalogo.trova(version, number);
    if (t == nullptr)
        throw CommandError("La versione " + version + " dei parametri non ha la tabella " + number +
                           " tra le cifre caricate");
    if (context.json) {
        *context.out << nlohmann::ordered_json{{"risultato", tableJson(*t, true, options.provenienza)}}.dump() << '\n';
        return;
    }
    *context.out << "Tabella " << t->numero << " - " << t->titolo << " (versione " << t->versione << ", affidabilità "
                 << t->affidabilita << (t->verificata ? "" : ", NON VERIFICATA: non ufficiale") << ")\n";
    std::string bracket = "(none)";
    for (const Cifra& c : t->cifre) {
        const std::string current = parametri::testoScaglione(c);
        if (current != bracket) {
            *context.out << "  " << (c.da ? "Scaglione " + current : std::string("Senza scaglioni")) << '\n';
            bracket = current;
        }
        *context.out << "    " << padRight(c.fase, 70) << padLeft(testoImporto(c.valoreMedio), 12) << '\n';
    }
    if (!t->nota.empty())
        *context.out << "Nota: " << t->nota << '\n';
    for (const std::string& source : parametri::fontiBrevi(*t, t->cifre))
        *context.out << "Fonte: " << source << '\n';
    if (options.provenienza) {
        *context.out << "\nProvenienza delle cifre:\n";
        for (const std::string& source : fullSources(*t, t->cifre))
            *context.out << "  " << source << '\n';
    }
}

nlohmann::ordered_json resultJson(const parametri::Risultato& r, bool provenance)
{
    auto phases = nlohmann::ordered_json::array();
    for (const parametri::FaseCalcolata& f : r.fasi) {
        nlohmann::ordered_json phase{{"fase", f.fase},
                                     {"cifra", testoImportoPunto(f.cifra)},
                                     {"medio", testoImportoPunto(f.medio)},
                                     {"minimo", testoImportoPunto(f.minimo)},
                                     {"massimo", testoImportoPunto(f.massimo)},
                                     {"percentuale", parametri::testoPercentuale(f.percentuale)},
                                     {"scelto", testoImportoPunto(f.scelto)},
                                     {"fonteCifra", f.fonteCifra},
                                     {"regolaMedio", f.regolaMedio},
                                     {"regolaLimiti", f.regolaLimiti},
                                     {"regolaScelto", f.regolaScelto}};
        if (provenance)
            phase["provenienza"] = f.provenienza;
        phases.push_back(phase);
    }
    nlohmann::ordered_json json{{"versione", r.versione},
                                {"decreto", r.decreto},
                                {"tabella", r.tabella},
                                {"titolo", r.titolo},
                                {"affidabilita", r.affidabilita},
                                {"verificata", r.verificata},
                                {"valore", r.valore},
                                {"scaglione", r.scaglione},
                                {"regolaScaglione", r.regolaScaglione},
                                {"raddoppi", r.raddoppi},
                                {"fasi", phases},
                                {"sommaMinimi", testoImportoPunto(r.sommaMinimi)},
                                {"sommaMedi", testoImportoPunto(r.sommaMedi)},
                                {"sommaMassimi", testoImportoPunto(r.sommaMassimi)},
                                {"sommaFasi", testoImportoPunto(r.sommaFasi)},
                                {"clienti", r.clienti},
                                {"percentualeClienti", parametri::testoPercentuale(r.percentualeClienti)},
                                {"aumentoClienti", testoImportoPunto(r.aumentoClienti)},
                                {"regolaClienti", r.regolaClienti},
                                {"compenso", testoImportoPunto(r.compenso)},
                                {"speseGenerali", testoImportoPunto(r.speseGenerali)},
                                {"regolaSpeseGenerali", r.regolaSpeseGenerali},
                                {"totale", testoImportoPunto(r.totale)},
                                {"avvertenze", r.avvertenze},
                                {"fonti", r.fonti}};
    if (provenance)
        json["provenienza"] = r.provenienza;
    return json;
}

void printResult(Context& context, const parametri::Risultato& r, bool provenance)
{
    std::ostream& out = *context.out;
    out << "Parametri forensi, versione " << r.versione << ": " << r.decreto << '\n';
    out << "Tabella " << r.tabella << " - " << r.titolo << " (affidabilità " << r.affidabilita << ")\n";
    out << "Valore: " << (r.valore.empty() ? "-" : r.valore) << "; scaglione " << r.scaglione << '\n';
    out << "  (" << r.regolaScaglione << ")\n\n";
    std::size_t name = 30;
    for (const auto& f : r.fasi)
        name = std::max(name, width(f.fase));
    const auto row = [&](const std::string& label, const std::string& minimum, const std::string& average,
                         const std::string& maximum, const std::string& percent, const std::string& chosen) {
        out << padRight(label, name) << padLeft(minimum, 12) << padLeft(average, 12) << padLeft(maximum, 12)
            << padLeft(percent, 9) << padLeft(chosen, 13) << '\n';
    };
    row("Fase", "Minimo", "Medio", "Massimo", "%", "Importo");
    for (const auto& f : r.fasi)
        row(f.fase, testoImporto(f.minimo), testoImporto(f.medio), testoImporto(f.massimo),
            parametri::testoPercentuale(f.percentuale), testoImporto(f.scelto));
    // The phases summed at their minimum, average and maximum, as the
    // published tables give them, beside the sum of the chosen amounts.
    row("Somma delle fasi", testoImporto(r.sommaMinimi), testoImporto(r.sommaMedi), testoImporto(r.sommaMassimi), "",
        testoImporto(r.sommaFasi));
    const std::size_t total = name + 58;
    const auto line = [&](const std::string& label, Currency amount) {
        out << padRight(label, total - 13) << padLeft(testoImporto(amount), 13) << '\n';
    };
    if (r.clienti > 1)
        line("Aumento per " + std::to_string(r.clienti) + " clienti (" +
                 parametri::testoPercentuale(r.percentualeClienti) + ")",
             r.aumentoClienti);
    line("Compenso", r.compenso);
    line("Spese generali (15%)", r.speseGenerali);
    line("Totale (senza CPA e IVA)", r.totale);
    out << "\nDa dove viene ogni numero:\n";
    // Limits the phases share are said once.
    const bool sameLimits = std::all_of(r.fasi.begin(), r.fasi.end(), [&](const parametri::FaseCalcolata& f) {
        return f.regolaLimiti == r.fasi.front().regolaLimiti;
    });
    if (sameLimits && !r.fasi.empty())
        out << "  Limiti di ogni fase: " << r.fasi.front().regolaLimiti << '\n';
    for (const auto& f : r.fasi) {
        out << "  " << f.fase << ": " << f.regolaMedio << (sameLimits ? "" : "; limiti: " + f.regolaLimiti)
            << "; importo: " << f.regolaScelto << '\n';
    }
    if (r.clienti > 1)
        out << "  Clienti: " << r.regolaClienti << '\n';
    out << "  Spese generali: " << r.regolaSpeseGenerali << '\n';
    for (const std::string& source : r.fonti)
        out << "Fonte: " << source << '\n';
    for (const std::string& warning : r.avvertenze)
        out << "Attenzione: " << warning << '\n';
    if (provenance) {
        out << "\nProvenienza delle cifre:\n";
        for (const auto& f : r.fasi)
            out << "  " << f.fonteCifra << '\n';
        std::vector<std::string> sources{r.provenienza};
        for (const auto& f : r.fasi) {
            if (std::find(sources.begin(), sources.end(), f.provenienza) == sources.end())
                sources.push_back(f.provenienza);
        }
        for (const std::string& source : sources)
            out << "  " << source << '\n';
    }
}

void price(Context& context, const ParametriOptions& options)
{
    parametri::Richiesta request;
    request.data = readDate(options.data);
    request.tabella = options.tabella;
    if (!options.valore.empty()) {
        try {
            request.valore = readTypedAmount(options.valore);
        } catch (const ValueError& e) {
            throw CommandError("--valore: " + std::string(e.what()));
        }
    }
    if (!options.indeterminabile.empty())
        request.indeterminabile = parametri::indeterminabile(options.indeterminabile);
    request.fasi = split(options.fasi, ',');
    for (const std::string& item : options.percentuali) {
        const auto equals = item.find('=');
        if (equals == std::string::npos)
            throw CommandError("«" + item + "» non è una percentuale di fase: indicarla come fase=+20");
        const std::string phase = item.substr(0, equals);
        if (request.percentuali.count(phase) != 0)
            throw CommandError("La percentuale della fase «" + phase + "» è indicata più di una volta");
        request.percentuali[phase] = parametri::percentuale(item.substr(equals + 1));
    }
    request.clienti = options.clienti;
    context.openPracticeDatabase();
    const parametri::Risultato result = parametri::calcola(parametri::leggiParametri(), request);
    if (context.json) {
        *context.out << nlohmann::ordered_json{{"risultato", resultJson(result, options.provenienza)}}.dump() << '\n';
        return;
    }
    printResult(context, result, options.provenienza);
}

} // namespace

void addParametriCommand(CLI::App& app, Context& context)
{
    auto* command = app.add_subcommand(
        "parametri", "I parametri forensi del D.M. 55/2014 (2014, 2018, 2022) per il lavoro svolto dal 3 aprile 2014");
    command->require_subcommand(1);
    auto options = std::make_shared<ParametriOptions>();

    auto* tabelle = command->add_subcommand("tabelle", "Elenca le versioni e le loro tabelle con la loro affidabilità");
    tabelle->add_option("--data", options->data, "Solo la versione in vigore in questo giorno (GG/MM/AAAA)");
    tabelle->callback([&context, options] { printTables(context, *options); });

    auto* mostra =
        command->add_subcommand("mostra", "Mostra una tabella: ogni cifra per scaglione e fase, con la sua fonte");
    mostra->add_option("--tabella", options->tabella, "Numero della tabella, per esempio 2 o 25-bis")->required();
    mostra->add_option("--versione", options->versione, "2014, 2018 o 2022 (predefinita: la versione in vigore)");
    mostra->add_option("--data", options->data, "La versione in vigore in questo giorno (GG/MM/AAAA)");
    mostra->add_flag("--provenienza", options->provenienza,
                     "Anche la provenienza completa delle cifre, come la danno i file distribuiti");
    mostra->callback([&context, options] { printTable(context, *options); });

    auto* calcola = command->add_subcommand(
        "calcola",
        "Calcola un compenso: per fase il valore medio, minimo, massimo e quello scelto, la somma, le spese "
        "generali del 15% e il totale, ciascuno con la regola e la cifra da cui viene");
    calcola
        ->add_option("--data", options->data,
                     "Giorno in cui il lavoro è stato completato (GG/MM/AAAA): sceglie la versione")
        ->required();
    calcola->add_option("--tabella", options->tabella, "Numero della tabella, per esempio 2 (tribunale)")->required();
    calcola->add_option("--valore", options->valore,
                        "Valore della causa in euro: 30000, 30000,50, 30.000,50 o 30000.50");
    calcola->add_option("--indeterminabile", options->indeterminabile,
                        "Valore indeterminabile: bassa, alta o particolare");
    calcola
        ->add_option("--fasi", options->fasi,
                     "Fasi svolte, separate da virgole: studio,introduttiva,istruttoria,decisionale")
        ->required();
    calcola->add_option(
        "--percentuale", options->percentuali,
        "Aumenta o diminuisce una fase rispetto al valore medio, per esempio istruttoria=+20 (ripetibile)");
    calcola->add_option("--clienti", options->clienti, "Numero dei clienti nella stessa posizione (predefinito 1)");
    calcola->add_flag("--provenienza", options->provenienza,
                      "Anche la cifra da cui è calcolata ogni fase e la sua provenienza completa");
    calcola->callback([&context, options] { price(context, *options); });

    auto* importa = command->add_subcommand(
        "importa",
        "Carica cifre corrette o mancanti da un file CSV "
        "(versione;tabella;scaglione_da;scaglione_a;fase;valore_medio;affidabilita;fonte). Il file è "
        "controllato tutto prima di scrivere, in una sola transazione: un file con una riga sbagliata non "
        "cambia nulla");
    importa->add_option("FILE", options->file, "Il file CSV")->required();
    importa->callback([&context, options] {
        std::error_code sizeError;
        const auto size = std::filesystem::file_size(options->file, sizeError);
        if (!sizeError && size > MaxImportBytes)
            throw CommandError(options->file + " contiene " + std::to_string(size) +
                               " byte; un file di parametri ne può contenere al massimo 16 MiB");
        context.openPracticeDatabase();
        const parametri::Caricamento result = parametri::importaFileParametri(options->file);
        if (context.json) {
            *context.out << nlohmann::ordered_json{{"risultato",
                                                    {{"cifre", result.cifre},
                                                     {"sostituite", result.sostituite},
                                                     {"tabelleNuove", result.tabelle}}}}
                                .dump()
                         << '\n';
            return;
        }
        *context.out << "Cifre importate: " << result.cifre << " (sostituite " << result.sostituite
                     << ", tabelle nuove " << result.tabelle << ")\n";
    });

    auto* esporta = command->add_subcommand("esporta", "Scrive ogni cifra con la sua fonte come file CSV");
    esporta->add_option("--output", options->output, "File da scrivere (predefinito: l'uscita standard)");
    esporta->callback([&context, options] {
        context.openPracticeDatabase();
        const std::string text = parametri::esportaParametri();
        if (options->output.empty()) {
            *context.out << text;
            return;
        }
        refuseDatabaseAsOutput(options->output, context.location());
        writeWholeFile(options->output, text);
    });
}

} // namespace avlor::cli
