#include "CallCommand.h"

#include <memory>
#include <ostream>

#include "CallArguments.h"
#include "JsonValue.h"
#include "Utf8Text.h"
#include "avlor/core/Messages.h"

namespace avlor::cli {

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
    call->callback([&context, call] {
        const std::vector<std::string> words = call->remaining();
        if (words.size() < 2)
            throw CommandError("call vuole il nome programmatico di una classe e un'operazione, per esempio: "
                               "avlor call AvlorLogic.clsDataBase VersioneMdb");
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
