#include "CallCommand.h"

#include <memory>
#include <ostream>

#include "CallArguments.h"
#include "JsonValue.h"
#include "Utf8Text.h"
#include "avlor/core/Messages.h"

namespace avlor::cli {

namespace {

// The public classes (or one of them), each with its operations and their
// arguments, as a host developer looks them up.
void printClasses(const Context& context, const std::string& only)
{
    std::vector<std::string> names = registeredProgIds();
    if (!only.empty())
        names = {CreateObject(only)->progId()};
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const auto& name : names) {
        const auto object = CreateObject(name);
        nlohmann::ordered_json operations = nlohmann::ordered_json::array();
        for (const auto& method : object->methodNames())
            operations.push_back({{"nome", method}, {"argomenti", object->argumentNames(method)}});
        list.push_back({{"classe", object->progId()}, {"operazioni", operations}});
    }
    if (context.json) {
        *context.out << nlohmann::ordered_json{{"risultato", list}}.dump() << '\n';
        return;
    }
    for (const auto& entry : list) {
        *context.out << entry["classe"].get<std::string>() << '\n';
        for (const auto& operation : entry["operazioni"]) {
            std::string arguments;
            for (const auto& a : operation["argomenti"])
                arguments += (arguments.empty() ? "" : ", ") + a.get<std::string>();
            *context.out << "  " << operation["nome"].get<std::string>() << "(" << arguments << ")\n";
        }
    }
}

} // namespace

void addCallCommand(CLI::App& app, Context& context)
{
    auto* call = app.add_subcommand(
        "call",
        "Crea una classe pubblica dal suo nome programmatico e ne chiama un'operazione per nome.\n"
        "Argomenti: un numero intero, un numero decimale col punto, null, o qualunque altra parola come testo;\n"
        "--text PAROLA tiene PAROLA come testo. Esempio: avlor call AvlorLogic.clsUtenti GetSqlFiltroPratiche 5");
    // The words after the operation are handed over as they are, so parsing
    // stops at the programmatic name; --db and --json, taken before it here
    // as before "call", are the command's own options.
    call->prefix_command();
    call->fallthrough(false);
    call->add_option("--db", context.database, databaseOptionHelp());
    call->add_flag("--json", context.json, "Risultati in JSON (il risultato di una chiamata lo è sempre)");
    auto listing = std::make_shared<bool>(false);
    call->add_flag("--elenco", *listing,
                   "Elenca le classi pubbliche, le loro operazioni e i loro argomenti (avlor call --elenco "
                   "[PROGID] per una classe sola)");
    call->callback([&context, call, listing] {
        const std::vector<std::string> words = call->remaining();
        if (*listing) {
            if (words.size() > 1)
                throw CommandError("--elenco vuole al più il nome programmatico di una classe");
            printClasses(context, words.empty() ? std::string() : words.front());
            return;
        }
        if (words.size() < 2)
            throw CommandError("call vuole il nome programmatico di una classe e un'operazione, per esempio: "
                               "avlor call AvlorLogic.clsDataBase VersioneMdb (le elenca: avlor call --elenco)");
        std::vector<Value> arguments = argumentsFromWords(std::vector<std::string>(words.begin() + 2, words.end()));

        context.openPracticeDatabase();
        auto object = CreateObject(words[0]);
        ScopedMessageRecorder messages;
        const DispatchResult result = object->invoke(words[1], arguments);

        nlohmann::ordered_json out;
        out["risultato"] = toJson(result);
        out["argomenti"] = nlohmann::ordered_json::array();
        for (const auto& a : arguments)
            out["argomenti"].push_back(toJson(a));
        out["messaggi"] = nlohmann::ordered_json::array();
        for (const auto& shown : messages.recorder().shown())
            out["messaggi"].push_back(utf8Text(shown.text));
        *context.out << out.dump() << '\n';
    });
}

} // namespace avlor::cli
