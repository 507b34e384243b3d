// avlor: the AvlorLogic component from the shell, for a firm's administrator,
// a host developer and the project's own tests.
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <new>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "CallCommand.h"
#include "Context.h"
#include "DbCommands.h"
#include "ParametriCommand.h"
#include "ParcellaCommand.h"
#include "QueryCommands.h"
#include "TariffaCommand.h"
#include "TariffeCommands.h"

namespace {

// The number of single-letter edits between two words.
std::size_t editDistance(const std::string& a, const std::string& b)
{
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t above = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
            diagonal = above;
        }
    }
    return row[b.size()];
}

// --db and --json belong to every command: each subcommand takes them too,
// so that its help shows them and they may follow the command's name.
void shareOptions(CLI::App& command, avlor::cli::Context& context, const std::string& databaseHelp)
{
    for (CLI::App* sub : command.get_subcommands([](CLI::App*) { return true; })) {
        if (sub->get_name() == "call")
            continue; // its words after the class name are the call's own
        if (sub->get_option_no_throw("--db") == nullptr)
            sub->add_option("--db", context.database, databaseHelp);
        if (sub->get_option_no_throw("--json") == nullptr)
            sub->add_flag("--json", context.json, "Risultati in JSON");
        shareOptions(*sub, context, databaseHelp);
    }
}

// When a command was left out or mistyped: what the command given (or avlor
// itself) offers, and the nearest name to a word it does not know.
std::string missingCommand(const CLI::App& app, const std::vector<std::string>& words)
{
    const CLI::App* deepest = &app;
    std::string path = "avlor";
    while (!deepest->get_subcommands().empty()) {
        deepest = deepest->get_subcommands().front();
        path += " " + deepest->get_name();
    }
    std::vector<std::string> names;
    for (const CLI::App* sub : deepest->get_subcommands([](const CLI::App*) { return true; }))
        names.push_back(sub->get_name());
    if (names.empty())
        return {};
    std::string list;
    for (const auto& name : names)
        list += (list.empty() ? "" : ", ") + name;
    // The first word that is no option and no name of a command.
    std::string unknown;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (word == "--db") {
            ++i;
            continue;
        }
        if (word.starts_with("-"))
            continue;
        const bool known = std::find(names.begin(), names.end(), word) != names.end();
        if (!known && (path + " ").find(" " + word + " ") == std::string::npos) {
            unknown = word;
            break;
        }
    }
    if (unknown.empty())
        return path + " vuole un comando: " + list + " (" + path + " --help per l'aiuto)";
    std::string nearest;
    std::size_t best = 3; // more edits than this suggest nothing
    for (const auto& name : names) {
        const std::size_t distance = editDistance(unknown, name);
        if (distance < best || (name.starts_with(unknown) && nearest.empty())) {
            best = std::min(best, distance);
            nearest = name;
        }
    }
    return "comando sconosciuto «" + unknown + "»" + (nearest.empty() ? "." : ": forse «" + nearest + "»?") +
        " I comandi di " + path + " sono: " + list + " (" + path + " --help per l'aiuto)";
}

} // namespace

int main(int argc, char** argv)
{
    // Past a file-size limit a write fails with an error the command reports
    // (and cleans up after) instead of killing it half-way.
    std::signal(SIGXFSZ, SIG_IGN);
    avlor::cli::Context context;
    context.out = &std::cout;

    CLI::App app{"avlor: calcola le prestazioni legali con le tariffe forensi, risponde alle domande sul database "
                 "delle pratiche e chiama le classi pubbliche del componente AvlorLogic."};
    app.require_subcommand(1);
    app.fallthrough();
    const std::string databaseHelp = avlor::cli::databaseOptionHelp();
    app.add_option("--db", context.database, databaseHelp);
    app.add_flag("--json", context.json, "Risultati in JSON");

    avlor::cli::addDbCommands(app, context);
    avlor::cli::addTariffaCommand(app, context);
    avlor::cli::addTariffeCommands(app, context);
    avlor::cli::addQueryCommands(app, context);
    avlor::cli::addCallCommand(app, context);
    avlor::cli::addParcellaCommand(app, context);
    avlor::cli::addParametriCommand(app, context);
    shareOptions(app, context, databaseHelp);

    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& e) {
        return app.exit(e); // --help
    } catch (const CLI::ParseError& e) {
        // A command left out or mistyped: say what there is.
        const std::string missing = missingCommand(app, std::vector<std::string>(argv + 1, argv + argc));
        if (!missing.empty() &&
            (dynamic_cast<const CLI::RequiredError*>(&e) != nullptr ||
             dynamic_cast<const CLI::ExtrasError*>(&e) != nullptr)) {
            std::cerr << "avlor: error: " << missing << '\n';
            return EXIT_FAILURE;
        }
        std::cerr << "avlor: error: " << e.what() << '\n';
        return EXIT_FAILURE;
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
