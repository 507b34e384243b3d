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
        "Create a public class by its programmatic name and call one of its operations by name.\n"
        "Arguments: a whole number, a decimal number with a point, null, or any other word as text;\n"
        "--text WORD keeps WORD as text. Example: avlor call AvlorLogic.clsUtenti GetSqlFiltroPratiche 5");
    // The words after the operation are handed over as they are, so parsing
    // stops at the programmatic name; --db and --json, taken before it here
    // as before "call", are the command's own options.
    call->prefix_command();
    call->fallthrough(false);
    call->add_option("--db", context.database,
                     "Practice database: a path, a file: URI or a postgresql:// URI "
                     "(default: $AVLOR_DB, else ~/.local/share/avlor/avlor.db)");
    call->add_flag("--json", context.json, "Print results as JSON (the result of a call always is)");
    call->callback([&context, call] {
        const std::vector<std::string> words = call->remaining();
        if (words.size() < 2)
            throw CommandError("call needs a programmatic name and an operation, for example: "
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
