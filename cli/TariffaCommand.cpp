#include "TariffaCommand.h"

#include <algorithm>
#include <ostream>

#include "Utf8Text.h"
#include "avlor/core/Error.h"
#include "avlor/core/FeeTables.h"
#include "avlor/core/Format.h"
#include "avlor/core/Messages.h"
#include "avlor/core/TypedAmount.h"
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
        "Calcola una voce di tariffa come ClsParcella.CalcolaTariffa: l'importo proposto (importo), la "
        "fascia (MinTar, MaxTar) e la fascia straordinaria (MinS, MaxS)");
    command
        ->add_option("--tabella", options->tabella,
                     "Tabella, per esempio Diritti2004Euro, Onorari94, OnorariPenali2004Euro")
        ->required();
    command->add_option("--id", options->id, "Id della voce nella tabella (si veda: avlor tariffe elenca)")->required();
    command
        ->add_option(
            "--valore", options->valore,
            "Valore della pratica nell'unità della tabella (lire o euro): 30000, 30000,50, 30.000,50 o 30000.50")
        ->required();
    command->add_option("--rilevanza", options->rilevanza, "Rilevanza, da 0 (minimo) a 100 (massimo)")->required();
    command->add_flag("--indeterminato", options->indeterminato, "Il valore della pratica è indeterminato");
    command->add_option("--autorita", options->autorita,
                        "Autorità, per gli onorari penali (per esempio \"Tribunale\")");

    command->callback([&context, options] {
        if (options->rilevanza < 0 || options->rilevanza > 100)
            throw CommandError("--rilevanza: " + std::to_string(options->rilevanza) +
                               " è fuori dall'intervallo da 0 (minimo) a 100 (massimo)");
        Currency valore;
        try {
            valore = readTypedAmount(options->valore);
        } catch (const ValueError& e) {
            throw CommandError("--valore: " + std::string(e.what()));
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
                throw CommandError("le cifre superano l'intervallo degli importi (" + std::string(e.what()) + ")");
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
        // As a person reads amounts; --json keeps the exact figures.
        const bool lire = !tabella.ends_with("Euro");
        const Locale locale = Locale::user();
        *context.out << "importo " << formatMoney(importo, lire, locale) << '\n'
                     << "MinTar  " << formatMoney(minTar, lire, locale) << '\n'
                     << "MaxTar  " << formatMoney(maxTar, lire, locale) << '\n'
                     << "MinS    " << formatMoney(minS, lire, locale) << '\n'
                     << "MaxS    " << formatMoney(maxS, lire, locale) << '\n';
        for (const auto& m : shown) {
            std::string text = m.text;
            std::replace(text.begin(), text.end(), '\r', '\n');
            *context.out << m.title << ": " << text << '\n';
        }
    });
}

} // namespace avlor::cli
