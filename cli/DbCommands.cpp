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
    auto* db = app.add_subcommand("db", "The practice database");
    db->require_subcommand(1);

    auto options = std::make_shared<InitOptions>();
    auto* init = db->add_subcommand(
        "init",
        "Create a new practice database with the schema and the official fee tables that ship with AvlorLogic; "
        "it never overwrites an existing database");
    init->add_option("LOCATION", options->location,
                     "Path, file: URI or postgresql:// URI (default: --db, $AVLOR_DB, else the per-user file)");
    init->add_flag("--demo", options->demo,
                   "Add a small sample firm: users with hourly rates, groups, case files, actions, a fee template");
    init->add_option("--ruolo-postazioni", options->role,
                     "PostgreSQL only: grant this existing role what the workstations need (rows of the practice "
                     "tables, new ids) and nothing more");
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
            *context.out << "Created the practice database " << shownLocation(where) << " with " << items
                         << " official fee items in " << loaded.tables.size() << " tables"
                         << (options->demo ? " and the sample firm" : "") << ".\n";
        }
    });
}

} // namespace avlor::cli
