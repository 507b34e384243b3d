#include "ParcellaCommand.h"

#include <cstdlib>
#include <deque>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "DialogJson.h"
#include "Existence.h"
#include "ScriptAnswers.h"
#include "avlor/core/Date.h"
#include "avlor/core/Messages.h"
#include "avlor/dialog/Clock.h"
#include "avlor/dialog/frmOKParcella.h"
#include "avlor/ui/OpenWindow.h"

namespace avlor::cli {

namespace {

using nlohmann::json;

struct Options {
    std::int32_t pratica = 0;
    std::string parti;
    std::string adempimento;
    std::string data;
    std::string oggi;
    std::string script;
};

std::string oneLine(std::string text)
{
    for (char& c : text) {
        if (c == '\r' || c == '\n')
            c = ' ';
    }
    return text;
}

Date dayArgument(const std::string& option, const std::string& text)
{
    const auto day = Date::parseDayFirst(text);
    if (!day)
        throw CommandError(option + " vuole una data GG/MM/AAAA, non \"" + oneLine(text) + "\"");
    return *day;
}

std::string textMember(const json& step, const char* member)
{
    const auto& v = step.at(member);
    if (!v.is_string())
        throw ScriptError(std::string("\"") + member + "\" vuole il nome di un controllo");
    return v.get<std::string>();
}

std::deque<MsgResult> answersOf(const json& step)
{
    std::deque<MsgResult> answers;
    if (!step.contains("risposte"))
        return answers;
    const auto& list = step["risposte"];
    if (!list.is_array())
        throw ScriptError("\"risposte\" vuole un elenco di risposte (OK, Annulla, Si, No)");
    for (const auto& word : list) {
        if (!word.is_string())
            throw ScriptError("\"risposte\" vuole un elenco di risposte (OK, Annulla, Si, No)");
        try {
            answers.push_back(answerFromWord(word.get<std::string>()));
        } catch (const CommandError& e) {
            throw ScriptError(e.what());
        }
    }
    return answers;
}

// Runs one step of the script on the dialog.
void runStep(dialog::frmOKParcella& dialog, const json& step)
{
    static const char* const verbs[] = {"click", "imposta", "apri", "scegli", "stato"};
    const char* verb = nullptr;
    for (const char* v : verbs) {
        if (step.contains(v)) {
            if (verb)
                throw ScriptError(std::string("un passo fa una cosa sola: \"") + verb + "\" e \"" + v + "\" insieme");
            verb = v;
        }
    }
    if (!verb)
        throw ScriptError("un passo vuole uno fra \"click\", \"imposta\", \"apri\", \"scegli\", \"stato\"");
    for (const auto& [member, value] : step.items()) {
        static_cast<void>(value);
        if (member != verb && member != "risposte" && member != "valore" && member != "chiave" && member != "riga")
            throw ScriptError("membro sconosciuto \"" + oneLine(member) + "\"");
    }

    const std::string what = verb;
    if (what == "stato")
        return;
    const std::string name = textMember(step, verb);
    if (what == "click") {
        dialog.click(name);
    } else if (what == "apri") {
        dialog.open(name);
    } else if (what == "imposta") {
        if (!step.contains("valore"))
            throw ScriptError("\"imposta\" vuole \"valore\", il testo da scrivere");
        const auto& v = step["valore"];
        if (v.is_string())
            dialog.typeText(name, v.get<std::string>());
        else if (v.is_number_integer())
            dialog.typeText(name, std::to_string(v.get<std::int64_t>()));
        else
            throw ScriptError("\"valore\" vuole il testo da scrivere");
    } else { // scegli
        const bool byKey = step.contains("chiave");
        const bool byRow = step.contains("riga");
        if (byKey == byRow)
            throw ScriptError("\"scegli\" vuole \"chiave\" oppure \"riga\"");
        const auto& n = step[byKey ? "chiave" : "riga"];
        if (!n.is_number_integer())
            throw ScriptError(std::string("\"") + (byKey ? "chiave" : "riga") + "\" vuole un numero intero");
        const std::int64_t number = n.get<std::int64_t>();
        if (number < INT32_MIN || number > INT32_MAX)
            throw ScriptError(std::string("\"") + (byKey ? "chiave" : "riga") + "\" è fuori intervallo");
        if (byKey)
            dialog.chooseKey(name, static_cast<std::int32_t>(number));
        else
            dialog.choose(name, static_cast<int>(number));
    }
}

std::shared_ptr<const dialog::Clock> clockFor(const Options& options)
{
    if (options.oggi.empty())
        return std::make_shared<dialog::SystemClock>();
    return std::make_shared<dialog::FixedClock>(dayArgument("--oggi", options.oggi));
}

std::string workDate(const Options& options, const dialog::Clock& clock)
{
    return options.data.empty() ? clock.today().toDayFirst() : dayArgument("--data", options.data).toDayFirst();
}

// The window on the case file, as a user at a desktop opens it: the command
// returns once the window has been closed.
void openWindow(const Context& context, const Options& options)
{
    ui::FeeEntryRequest request;
    request.clock = clockFor(options);
    request.data = workDate(options, *request.clock);
    request.idPratica = options.pratica;
    request.parti = options.parti;
    request.adempimento = options.adempimento;
    context.openPracticeDatabase();
    // The window would close at once on a case file that is not there.
    if (!recordExists(Pratica, options.pratica))
        throw CommandError(missingRecord(Pratica, options.pratica));
    try {
        ui::showFeeEntryWindow(request);
    } catch (const dialog::DialogError& e) {
        throw CommandError(e.what());
    }
}

void runScript(const Context& context, const Options& options)
{
    std::istream* in = &std::cin;
    std::ifstream file;
    if (options.script != "-") {
        file.open(options.script);
        if (!file)
            throw CommandError("impossibile leggere lo script " + options.script);
        in = &file;
    }

    const auto clock = clockFor(options);
    const std::string data = workDate(options, *clock);

    context.openPracticeDatabase();

    std::size_t lineNumber = 0;
    auto answers = std::make_shared<ScriptAnswers>([&lineNumber](const std::string& question) {
        // The dialog is in the middle of an event: stop here, with nothing
        // guessed on the person's behalf. What the event had not committed is
        // left uncommitted.
        std::cout.flush();
        std::cerr << "avlor: error: riga " << lineNumber << ": una domanda senza risposta: " << oneLine(question)
                  << std::endl;
        std::_Exit(2);
    });
    const auto previous = setMessageBoxes(answers);
    struct Restore {
        std::shared_ptr<MessageBoxes> boxes;
        ~Restore() { setMessageBoxes(boxes); }
    } restore{previous};

    dialog::frmOKParcella dialog(clock);
    dialog.Setta(options.pratica, options.parti, options.adempimento, data);
    dialog.Form_Load();
    // The dialog closes when it cannot read its case file, as on screen; the
    // script's steps are still answered, and the command then says why and
    // fails.
    const bool closedAtStart = dialog.closed();

    std::string line;
    while (std::getline(*in, line)) {
        ++lineNumber;
        if (line.find_first_not_of(" \t\r") == std::string::npos)
            continue;
        try {
            json step;
            try {
                step = json::parse(line);
            } catch (const json::parse_error&) {
                throw ScriptError("non è un oggetto JSON");
            } catch (const json::out_of_range&) {
                // A number no double can hold (1e400): malformed like any other line.
                throw ScriptError("un numero è fuori dall'intervallo che JSON può rappresentare");
            }
            if (!step.is_object())
                throw ScriptError("non è un oggetto JSON");
            answers->setAnswers(answersOf(step));
            if (!dialog.closed())
                runStep(dialog, step);
        } catch (const CommandError& e) {
            throw ScriptError("riga " + std::to_string(lineNumber) + ": " + e.what());
        } catch (const dialog::DialogError& e) {
            throw ScriptError("riga " + std::to_string(lineNumber) + ": " + e.what());
        }
        *context.out << dialogAnswer(dialog, answers->takeShown()).dump(-1, ' ', false, json::error_handler_t::replace)
                     << std::endl;
    }
    if (closedAtStart) {
        throw CommandError(recordExists(Pratica, options.pratica) ? "la pratica " + std::to_string(options.pratica) +
                                   " non si è potuta leggere: il dialogo si è chiuso senza registrare nulla"
                                                                  : missingRecord(Pratica, options.pratica));
    }
}

} // namespace

void addParcellaCommand(CLI::App& app, Context& context)
{
    auto options = std::make_shared<Options>();
    auto* parcella = app.add_subcommand(
        "parcella",
        "Apre il dialogo \"Parcellazione Adempimento\" su una pratica: la sua finestra sul desktop o, con "
        "--script FILE (- per l'ingresso standard), guidato da uno script di righe JSON, a ciascuna delle quali "
        "risponde con lo stato del dialogo in una riga JSON");
    parcella->add_option("--pratica", options->pratica, "La pratica (Pratica.ID_Pra)")->required();
    parcella->add_option("--parti", options->parti, "La riga cliente/controparte mostrata dal dialogo");
    parcella->add_option("--adempimento", options->adempimento, "L'adempimento effettuato, mostrato dal dialogo");
    parcella->add_option("--data", options->data, "La data del lavoro, GG/MM/AAAA (predefinita: oggi)");
    parcella->add_option("--oggi", options->oggi,
                         "Il giorno che il dialogo prende come oggi, GG/MM/AAAA (predefinito: quello del computer)");
    parcella->add_option("--script", options->script, "Lo script: un file di righe JSON, o - per l'ingresso standard");
    parcella->callback([&context, options] {
        if (options->script.empty())
            openWindow(context, *options);
        else
            runScript(context, *options);
    });
}

} // namespace avlor::cli
