#include "TariffaCommand.h"

#include <algorithm>
#include <cctype>
#include <ostream>

#include "Utf8Text.h"
#include "avlor/core/Error.h"
#include "avlor/core/FeeTables.h"
#include "avlor/core/Messages.h"
#include "avlor/engine/CalcolaTariffaModulo.h"

namespace avlor::cli {

namespace {

struct TariffaOptions {
    std::string tabella;
    std::int32_t id = 0;
    std::string valore;
    std::int16_t rilevanza = 0;
    bool indeterminato = false;
    std::string autorita;
};

} // namespace

void addTariffaCommand(CLI::App& app, Context& context)
{
    auto options = std::make_shared<TariffaOptions>();
    auto* command = app.add_subcommand(
        "tariffa",
        "Price one fee item as ClsParcella.CalcolaTariffa does: the proposed amount (importo), the band "
        "(MinTar, MaxTar) and the extraordinary band (MinS, MaxS)");
    command
        ->add_option("--tabella", options->tabella, "Fee table, e.g. Diritti2004Euro, Onorari94, OnorariPenali2004Euro")
        ->required();
    command->add_option("--id", options->id, "Id of the item in the table (see: avlor tariffe elenca)")->required();
    command
        ->add_option("--valore", options->valore, "Value of the case in the table's unit, point as decimal separator")
        ->required();
    command->add_option("--rilevanza", options->rilevanza, "Importance, 0 (minimum) to 100 (maximum)")->required();
    command->add_flag("--indeterminato", options->indeterminato, "The value of the case is indeterminate");
    command->add_option("--autorita", options->autorita, "Authority, for criminal fees (e.g. \"Tribunale\")");

    command->callback([&context, options] {
        // Amounts are exact to the ten-thousandth; a finer figure would be
        // rounded without a word.
        if (const auto point = options->valore.find('.'); point != std::string::npos) {
            std::size_t decimals = 0;
            for (std::size_t i = point + 1;
                 i < options->valore.size() && std::isdigit(static_cast<unsigned char>(options->valore[i])) != 0; ++i)
                ++decimals;
            if (decimals > 4)
                throw CommandError("--valore: '" + options->valore + "' has more than four decimals");
        }
        if (options->rilevanza < 0 || options->rilevanza > 100)
            throw CommandError("--rilevanza: " + std::to_string(options->rilevanza) +
                               " is outside 0 (minimum) to 100 (maximum)");
        Currency valore;
        try {
            valore = Currency::fromText(options->valore);
        } catch (const Error&) {
            throw CommandError("--valore: '" + options->valore +
                               "' is not a number (use a point as decimal separator)");
        }
        std::string tabella(requireFeeTable(options->tabella).name);
        context.openPracticeDatabase();

        std::int16_t rilevanza = options->rilevanza;
        std::int16_t bInd = options->indeterminato ? std::int16_t{-1} : std::int16_t{0};
        std::int32_t id = options->id;
        std::string autorita = options->autorita;
        Currency minTar, maxTar, minS, maxS;

        ScopedMessageRecorder messages;
        // As ClsParcella.CalcolaTariffa, which answers 0 for any failure;
        // the command also says when a figure overflows instead of printing
        // a 0 that looks like a price.
        Currency importo;
        try {
            importo = CalcolaTariffaModulo(valore, rilevanza, tabella, bInd, id, minTar, maxTar, minS, maxS, autorita);
        } catch (const ValueError& e) {
            if (e.kind() == ValueError::Kind::Overflow)
                throw CommandError("the figures overflow the range of amounts (" + std::string(e.what()) + ")");
            importo = Currency{};
        } catch (const std::exception&) {
            importo = Currency{};
        }
        const auto& shown = messages.recorder().shown();
        const nlohmann::ordered_json messaggio =
            shown.empty() ? nlohmann::ordered_json(nullptr) : nlohmann::ordered_json(utf8Text(shown.back().text));

        if (context.json) {
            *context.out << nlohmann::ordered_json{{"importo", importo.toFixed4()}, {"MinTar", minTar.toFixed4()},
                                                   {"MaxTar", maxTar.toFixed4()},   {"MinS", minS.toFixed4()},
                                                   {"MaxS", maxS.toFixed4()},       {"messaggio", messaggio}}
                                .dump()
                         << '\n';
            return;
        }
        *context.out << "importo " << importo.toFixed4() << '\n'
                     << "MinTar  " << minTar.toFixed4() << '\n'
                     << "MaxTar  " << maxTar.toFixed4() << '\n'
                     << "MinS    " << minS.toFixed4() << '\n'
                     << "MaxS    " << maxS.toFixed4() << '\n';
        for (const auto& m : shown) {
            std::string text = m.text;
            std::replace(text.begin(), text.end(), '\r', '\n');
            *context.out << m.title << ": " << text << '\n';
        }
    });
}

} // namespace avlor::cli
