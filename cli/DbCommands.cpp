#include "DbCommands.h"

#include <filesystem>
#include <memory>
#include <ostream>

#include "DemoFirm.h"
#include "avlor/data/Database.h"
#include "avlor/data/NewPracticeDatabase.h"
#include "avlor/parametri/ParametriDatabase.h"
#include "avlor/tariffe/OfficialTariffs.h"

namespace avlor::cli {

namespace {

struct InitOptions {
    std::string location;
    bool demo = false;
    std::string role;
};

} // namespace

void addDbCommands(CLI::App& app, Context& context)
{
    auto* db = app.add_subcommand("db", "Il database delle pratiche");
    db->require_subcommand(1);

    auto options = std::make_shared<InitOptions>();
    auto* init = db->add_subcommand(
        "init",
        "Crea un nuovo database delle pratiche con lo schema e le tariffe ufficiali che AvlorLogic porta con sé; "
        "non sovrascrive mai un database esistente");
    init->add_option(
        "LOCATION", options->location,
        "Percorso, URI file: o URI postgresql:// (predefinito: --db, la variabile AVLOR_DB, altrimenti il file "
        "dell'utente)");
    init->add_flag("--demo", options->demo,
                   "Aggiunge un piccolo studio di prova: utenti con tariffe orarie, gruppi, pratiche, azioni, una "
                   "parcella base");
    init->add_option("--ruolo-postazioni", options->role,
                     "Solo PostgreSQL: concede a questo ruolo esistente ciò che serve alle postazioni (le righe delle "
                     "tabelle delle pratiche, i nuovi id) e nient'altro");
    init->callback([&context, options] {
        const std::string where = options->location.empty() ? context.location() : options->location;
        const OfficialTariffFiles figures = officialTariffFiles();
        // Built where nobody sees it and made visible only when complete: a
        // run that fails or is killed leaves no database behind, and the
        // next run starts afresh.
        OfficialTariffsResult loaded;
        {
            NewPracticeDatabase made(where);
            setCurrentDatabase(made.fillLocation());
            loaded = loadOfficialTariffs(figures);
            (void)parametri::caricaParametriSpediti();
            if (options->demo)
                createDemoFirm();
            if (!options->role.empty())
                made.grantWorkstationRole(options->role);
            setCurrentDatabase(where);
            made.publish();
        }

        std::size_t items = 0;
        for (const auto& table : loaded.tables)
            items += table.added + table.replaced;
        if (context.json) {
            *context.out << nlohmann::ordered_json{{"risultato",
                                                    {{"database", shownLocation(where)},
                                                     {"tabelle", loaded.tables.size()},
                                                     {"voci", items},
                                                     {"demo", options->demo}}}}
                                .dump()
                         << '\n';
        } else {
            *context.out << "Creato il database delle pratiche " << shownLocation(where) << " con " << items
                         << " voci delle tariffe ufficiali in " << loaded.tables.size() << " tabelle"
                         << (options->demo ? " e lo studio di prova" : "") << ".\n";
        }
    });
}

} // namespace avlor::cli
