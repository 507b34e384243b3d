#include "DbCommands.h"

#include <filesystem>
#include <memory>
#include <ostream>

#include "DemoFirm.h"
#include "avlor/data/Database.h"
#include "avlor/tariffe/OfficialTariffs.h"

namespace avlor::cli {

namespace {

// A new database whose filling failed is removed again, so that a failed
// "db init" leaves nothing behind and can simply be run again. A server
// database keeps its empty schema (its fee tables are loaded in one
// transaction, so none is half-loaded); the error says what failed.
void discardNewDatabase(const std::string& where)
{
    closeConnections();
    removeDatabaseFiles(where);
}

struct InitOptions {
    std::string location;
    bool demo = false;
};

} // namespace

void addDbCommands(CLI::App& app, Context& context)
{
    auto* db = app.add_subcommand("db", "The practice database");
    db->require_subcommand(1);

    auto options = std::make_shared<InitOptions>();
    auto* init = db->add_subcommand(
        "init", "Create a new practice database with the schema and the official fee tables that ship with AvlorLogic; "
                "it never overwrites an existing database");
    init->add_option("LOCATION", options->location,
                     "Path, file: URI or postgresql:// URI (default: --db, $AVLOR_DB, else the per-user file)");
    init->add_flag("--demo", options->demo,
                   "Add a small sample firm: users with hourly rates, groups, case files, actions, a fee template");
    init->callback([&context, options] {
        const std::string where = options->location.empty() ? context.location() : options->location;
        const OfficialTariffFiles figures = officialTariffFiles();
        createPracticeDatabase(where);
        OfficialTariffsResult loaded;
        try {
            setCurrentDatabase(where);
            loaded = loadOfficialTariffs(figures);
            if (options->demo)
                createDemoFirm();
        } catch (...) {
            discardNewDatabase(where);
            throw;
        }

        std::size_t items = 0;
        for (const auto& table : loaded.tables)
            items += table.added + table.replaced;
        if (context.json) {
            *context.out << nlohmann::ordered_json{{"risultato", {{"database", shownLocation(where)},
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
