#include "TariffeCommands.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "OutputFile.h"
#include "avlor/core/FeeTables.h"
#include "avlor/engine/BuiltInItems.h"
#include "avlor/tariffe/TariffExport.h"
#include "avlor/tariffe/TariffImport.h"
#include "avlor/tariffe/TariffListing.h"

namespace avlor::cli {

namespace {

constexpr std::uintmax_t MaxImportBytes = 16U * 1024U * 1024U;

enum class AmountSource { None, Rows, Rules };

std::string sourceWord(AmountSource source)
{
    switch (source) {
    case AmountSource::Rows:
        return "tabella";
    case AmountSource::Rules:
        return "regole";
    case AmountSource::None:
        break;
    }
    return "nessuno";
}

struct ListedItem {
    std::int32_t id = 0;
    std::string code;
    std::string description;
    AmountSource source = AmountSource::None;
};

// The table's rows and the items the engine prices by its own rules, in the
// order of Id: an item the engine prices is priced so whatever its row holds
// (the engine reads no amount for it).
std::vector<ListedItem> listedItems(const FeeTable& table)
{
    std::map<std::int32_t, ListedItem> byId;
    for (const TariffItem& row : listTariffItems(table.name))
        byId[row.id] = {row.id, row.code, row.description, row.priced ? AmountSource::Rows : AmountSource::None};
    for (const BuiltInItem& builtIn : builtInItems(table)) {
        ListedItem& item = byId[builtIn.id];
        item.id = builtIn.id;
        if (item.description.empty())
            item.description = builtIn.rule;
        item.source = AmountSource::Rules;
    }
    std::vector<ListedItem> items;
    for (auto& [id, item] : byId)
        items.push_back(std::move(item));
    return items;
}

struct TariffeOptions {
    std::string tabella;
    std::string file;
    std::string output;
};

} // namespace

void addTariffeCommands(CLI::App& app, Context& context)
{
    auto* tariffe = app.add_subcommand("tariffe", "Le tabelle ufficiali delle tariffe nel database delle pratiche");
    tariffe->require_subcommand(1);
    auto options = std::make_shared<TariffeOptions>();

    auto* elenca = tariffe->add_subcommand(
        "elenca",
        "Elenca ogni voce che il programma sa calcolare in una tabella: Id, codice, descrizione e da dove "
        "vengono i suoi importi (dalle righe della tabella o dalle regole del programma)");
    elenca->add_option("--tabella", options->tabella, "Tabella, per esempio Onorari2004Euro")->required();
    elenca->callback([&context, options] {
        const FeeTable table = requireFeeTable(options->tabella);
        context.openPracticeDatabase();
        const std::vector<ListedItem> items = listedItems(table);
        std::size_t fromRows = 0;
        std::size_t fromRules = 0;
        for (const ListedItem& item : items) {
            fromRows += item.source == AmountSource::Rows ? 1 : 0;
            fromRules += item.source == AmountSource::Rules ? 1 : 0;
        }
        if (context.json) {
            auto list = nlohmann::ordered_json::array();
            for (const auto& item : items)
                list.push_back({{"Id", item.id},
                                {"CodiceTariffa", item.code},
                                {"Azione", item.description},
                                {"conImporti", item.source != AmountSource::None},
                                {"importi", sourceWord(item.source)}});
            *context.out << nlohmann::ordered_json{{"risultato",
                                                    {{"tabella", table.name},
                                                     {"voci", list},
                                                     {"conImporti", fromRows + fromRules},
                                                     {"dallaTabella", fromRows},
                                                     {"dalleRegole", fromRules}}}}
                                .dump()
                         << '\n';
            return;
        }
        *context.out << "Id\tCodice\tDescrizione\tImporti\n";
        for (const auto& item : items)
            *context.out << item.id << '\t' << item.code << '\t' << item.description << '\t' << sourceWord(item.source)
                         << '\n';
        *context.out << table.name << ": voci " << items.size() << "; con importi dalla tabella " << fromRows
                     << "; dalle regole del programma " << fromRules << "; senza importi "
                     << items.size() - fromRows - fromRules << '\n';
    });

    auto* importa = tariffe->add_subcommand(
        "importa",
        "Carica una tabella ufficiale completa da un file CSV (una riga d'intestazione con le colonne della "
        "tabella; decimali all'italiana o col punto; importi nell'unità della tabella). Il file è controllato "
        "tutto prima di scrivere, in una sola transazione: un file con una riga sbagliata non cambia nulla");
    importa->add_option("--tabella", options->tabella, "Tabella, per esempio Diritti2004Euro")->required();
    importa->add_option("FILE", options->file, "Il file CSV")->required();
    importa->callback([&context, options] {
        const FeeTable table = requireFeeTable(options->tabella);
        // A file is checked whole in memory before anything is written; an
        // official table is a few hundred kilobytes, so a file past the
        // limit is not one, and is refused before it can exhaust memory.
        std::error_code sizeError;
        const auto size = std::filesystem::file_size(options->file, sizeError);
        if (!sizeError && size > MaxImportBytes)
            throw CommandError(options->file + " contiene " + std::to_string(size) +
                               " byte; un file di tariffe può contenerne al più " + std::to_string(MaxImportBytes) +
                               " (16 MiB)");
        context.openPracticeDatabase();
        const TariffImportResult result = importTariffFile(table.name, options->file);
        if (context.json)
            *context.out << nlohmann::ordered_json{{"risultato",
                                                    {{"tabella", result.table},
                                                     {"aggiunte", result.added},
                                                     {"sostituite", result.replaced}}}}
                                .dump()
                         << '\n';
        else
            *context.out << result.table << ": " << result.added
                         << (result.added == 1 ? " voce aggiunta, " : " voci aggiunte, ") << result.replaced
                         << (result.replaced == 1 ? " sostituita\n" : " sostituite\n");
    });

    auto* esporta = tariffe->add_subcommand(
        "esporta", "Scrive una tabella come file CSV, nella forma che importa rilegge senza cambiamenti");
    esporta->add_option("--tabella", options->tabella, "Tabella, per esempio Onorari2004Euro")->required();
    esporta->add_option("--output,-o", options->output, "Scrive in questo file invece che sull'uscita standard");
    esporta->callback([&context, options] {
        const FeeTable table = requireFeeTable(options->tabella);
        if (!options->output.empty())
            refuseDatabaseAsOutput(options->output, context.location());
        context.openPracticeDatabase();
        const std::string text = exportTariffText(table.name);
        if (options->output.empty()) {
            *context.out << text;
            return;
        }
        writeWholeFile(options->output, text);
    });
}

} // namespace avlor::cli
