#include "TariffeCommands.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <ostream>

#include "OutputFile.h"
#include "avlor/core/FeeTables.h"
#include "avlor/tariffe/TariffExport.h"
#include "avlor/tariffe/TariffImport.h"
#include "avlor/tariffe/TariffListing.h"

namespace avlor::cli {

namespace {

constexpr std::uintmax_t MaxImportBytes = 16U * 1024U * 1024U;

struct TariffeOptions {
    std::string tabella;
    std::string file;
    std::string output;
};

} // namespace

void addTariffeCommands(CLI::App& app, Context& context)
{
    auto* tariffe = app.add_subcommand("tariffe", "The official fee tables of the practice database");
    tariffe->require_subcommand(1);
    auto options = std::make_shared<TariffeOptions>();

    auto* elenca = tariffe->add_subcommand(
        "elenca", "List the items of a fee table (Id, code, description) and count those with amounts");
    elenca->add_option("--tabella", options->tabella, "Fee table, e.g. Onorari2004Euro")->required();
    elenca->callback([&context, options] {
        const FeeTable table = requireFeeTable(options->tabella);
        context.openPracticeDatabase();
        const auto items = listTariffItems(table.name);
        const TariffCount count = countTariffItems(table.name);
        if (context.json) {
            auto list = nlohmann::ordered_json::array();
            for (const auto& item : items)
                list.push_back({{"Id", item.id},
                                {"CodiceTariffa", item.code},
                                {"Azione", item.description},
                                {"conImporti", item.priced}});
            *context.out
                << nlohmann::ordered_json{{"risultato",
                                           {{"tabella", table.name}, {"voci", list}, {"conImporti", count.priced}}}}
                       .dump()
                << '\n';
            return;
        }
        for (const auto& item : items)
            *context.out << item.id << '\t' << item.code << '\t' << item.description << '\n';
        *context.out << count.items << " items, " << count.priced << " with amounts\n";
    });

    auto* importa = tariffe->add_subcommand(
        "importa",
        "Load a complete official fee table from a CSV file (header row naming the table's columns; "
        "Italian or point decimals; amounts in the table's unit). The whole file is checked first and "
        "written in one transaction: a file with one bad line changes nothing");
    importa->add_option("--tabella", options->tabella, "Fee table, e.g. Diritti2004Euro")->required();
    importa->add_option("FILE", options->file, "The CSV file")->required();
    importa->callback([&context, options] {
        const FeeTable table = requireFeeTable(options->tabella);
        // A file is checked whole in memory before anything is written; an
        // official table is a few hundred kilobytes, so a file past the
        // limit is not one, and is refused before it can exhaust memory.
        std::error_code sizeError;
        const auto size = std::filesystem::file_size(options->file, sizeError);
        if (!sizeError && size > MaxImportBytes)
            throw CommandError(options->file + " holds " + std::to_string(size) +
                               " bytes; a fee-table file may hold at most " + std::to_string(MaxImportBytes) +
                               " bytes (16 MiB)");
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
            *context.out << result.table << ": " << result.added << " items added, " << result.replaced
                         << " replaced\n";
    });

    auto* esporta = tariffe->add_subcommand(
        "esporta", "Write a fee table as a CSV file in the form that importa reads back unchanged");
    esporta->add_option("--tabella", options->tabella, "Fee table, e.g. Onorari2004Euro")->required();
    esporta->add_option("--output,-o", options->output, "Write to this file instead of the standard output");
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
