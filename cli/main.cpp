// avlor: the AvlorLogic component from the shell, for a firm's administrator,
// a host developer and the project's own tests.
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <new>

#include <CLI/CLI.hpp>

#include "CallCommand.h"
#include "Context.h"
#include "DbCommands.h"
#include "ParametriCommand.h"
#include "ParcellaCommand.h"
#include "QueryCommands.h"
#include "TariffaCommand.h"
#include "TariffeCommands.h"

int main(int argc, char** argv)
{
    // Past a file-size limit a write fails with an error the command reports
    // (and cleans up after) instead of killing it half-way.
    std::signal(SIGXFSZ, SIG_IGN);
    avlor::cli::Context context;
    context.out = &std::cout;

    CLI::App app{"avlor: price legal work from the Italian lawyers' fee tables, ask the practice database's "
                 "questions, and call the AvlorLogic component's public classes."};
    app.require_subcommand(1);
    app.fallthrough();
    app.add_option("--db", context.database,
                   "Practice database: a path, a file: URI or a postgresql:// URI "
                   "(default: $AVLOR_DB, else ~/.local/share/avlor/avlor.db)");
    app.add_flag("--json", context.json, "Print results as JSON");

    avlor::cli::addDbCommands(app, context);
    avlor::cli::addTariffaCommand(app, context);
    avlor::cli::addTariffeCommands(app, context);
    avlor::cli::addQueryCommands(app, context);
    avlor::cli::addCallCommand(app, context);
    avlor::cli::addParcellaCommand(app, context);
    avlor::cli::addParametriCommand(app, context);

    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& e) {
        return app.exit(e); // --help
    } catch (const std::bad_alloc&) {
        std::cerr << "avlor: error: not enough memory for this command\n";
        return EXIT_FAILURE;
    } catch (const std::exception& e) {
        // Argument errors and every other failure alike: one line, status 1;
        // a script that cannot go on ends with status 2, so that a caller
        // tells it from a command that failed.
        const int status = dynamic_cast<const avlor::cli::ScriptError*>(&e) ? 2 : EXIT_FAILURE;
        std::string message = e.what();
        for (char& c : message) {
            if (c == '\n' || c == '\r')
                c = ' ';
        }
        std::cerr << "avlor: error: " << message << '\n';
        return status;
    }
    return EXIT_SUCCESS;
}
