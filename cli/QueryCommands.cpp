#include "QueryCommands.h"

#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "CallArguments.h"
#include "Existence.h"

namespace avlor::cli {

namespace {

enum class Word { Id, Text };

struct Question {
    const char* group; // "utenti"
    const char* name; // "livello"
    const char* help;
    const char* progId; // "AvlorLogic.clsUtenti"
    const char* method; // "GetLivelloRiservatezza"
    std::vector<std::pair<const char*, Word>> arguments;
    bool needsDatabase = true;
    // What the first argument, an id, names: the command warns when it names
    // nothing.
    const RecordKind* names = nullptr;
};

const std::vector<Question>& questions()
{
    static const std::vector<Question> all = {
        {"utenti",
         "livello",
         "Livello di riservatezza di un utente (1 utente, 2 gruppo, 3 tutti, 4 gruppi tranne AMMINISTRAZIONE)",
         "AvlorLogic.clsUtenti",
         "GetLivelloRiservatezza",
         {{"ID", Word::Id}},
         true,
         &Utente},
        {"utenti",
         "gruppi",
         "Gruppi di un utente",
         "AvlorLogic.clsUtenti",
         "GetGruppiUtente",
         {{"ID", Word::Id}},
         true,
         &Utente},
        {"utenti",
         "membri",
         "Utenti di un gruppo",
         "AvlorLogic.clsUtenti",
         "GetUtentiDelGruppo",
         {{"GRUPPO", Word::Text}}},
        {"utenti",
         "contabilita",
         "Se un utente è abilitato alla contabilità",
         "AvlorLogic.clsUtenti",
         "IsUtenteContabilita",
         {{"ID", Word::Id}},
         true,
         &Utente},
        {"utenti",
         "in-gruppo",
         "Se un utente appartiene a un gruppo",
         "AvlorLogic.clsUtenti",
         "UtenteInGruppo",
         {{"ID", Word::Id}, {"GRUPPO", Word::Text}},
         true,
         &Utente},
        {"utenti",
         "corrente",
         "L'utente corrente di questa postazione (impostazione Id_Utente)",
         "AvlorLogic.clsUtenti",
         "GetIdOfCurrentUser",
         {},
         false},
        {"utenti",
         "riservatezza",
         "Elenco degli id degli utenti i cui dati un utente può vedere (GetSqlRiservatezza)",
         "AvlorLogic.clsUtenti",
         "GetSqlRiservatezza",
         {{"ID", Word::Id}},
         true,
         &Utente},
        {"utenti",
         "filtro-pratiche",
         "Condizione SQL sulle pratiche per un utente (GetSqlFiltroPratiche)",
         "AvlorLogic.clsUtenti",
         "GetSqlFiltroPratiche",
         {{"ID", Word::Id}},
         true,
         &Utente},
        {"utenti",
         "filtro-anagrafiche",
         "Condizione SQL sulle anagrafiche per un utente (GetSqlFiltroAnagrafiche)",
         "AvlorLogic.clsUtenti",
         "GetSqlFiltroAnagrafiche",
         {{"ID", Word::Id}},
         true,
         &Utente},
        {"pratica",
         "clienti",
         "Numero dei clienti di una pratica, più uno",
         "AvlorLogic.clsPratica",
         "QuantiClientiPerPratica",
         {{"ID", Word::Id}},
         true,
         &Pratica},
        {"pratica",
         "controparti",
         "Numero delle controparti di una pratica, più uno",
         "AvlorLogic.clsPratica",
         "QuanteControPartiPerPratica",
         {{"ID", Word::Id}},
         true,
         &Pratica},
        {"anagrafica",
         "giuridico",
         "Se un'anagrafica è un soggetto giuridico",
         "AvlorLogic.clsAnagrafica",
         "IsSoggettoGiuridico",
         {{"ID", Word::Id}},
         true,
         &Anagrafica},
        {"fattura",
         "residuo",
         "Quanto resta da pagare di una fattura",
         "AvlorLogic.clsFatture",
         "GetResiduoFattura",
         {{"ID", Word::Id}},
         true,
         &Fattura},
        {"db", "versione", "Versione del database delle pratiche", "AvlorLogic.clsDataBase", "VersioneMdb", {}},
    };
    return all;
}

// What an argument of a question is, for its help.
std::string argumentHelp(const Question& q, std::size_t i)
{
    if (q.arguments[i].second == Word::Text)
        return "Nome del gruppo (RelGruppiUtenti.Fk_Gruppo), per esempio Civile";
    if (q.names == nullptr)
        return "Un id, numero intero";
    return "Id del record (" + std::string(q.names->table) + "." + q.names->key +
        "), numero intero da -2147483648 a 2147483647";
}

CLI::App* groupCommand(CLI::App& app, const std::string& name)
{
    if (auto* existing = [&]() -> CLI::App* {
            try {
                return app.get_subcommand(name);
            } catch (const CLI::OptionNotFound&) {
                return nullptr;
            }
        }())
        return existing;
    static const std::map<std::string, std::string> helps = {
        {"utenti", "Utenti, gruppi e filtri di riservatezza"},
        {"pratica", "Domande su una pratica"},
        {"anagrafica", "Domande su un'anagrafica"},
        {"fattura", "Domande su una fattura"},
        {"db", "Il database delle pratiche"},
    };
    auto* group = app.add_subcommand(name, helps.at(name));
    group->require_subcommand(1);
    return group;
}

} // namespace

void addQueryCommands(CLI::App& app, Context& context)
{
    for (const auto& q : questions()) {
        auto* command = groupCommand(app, q.group)->add_subcommand(q.name, q.help);
        auto words = std::make_shared<std::vector<std::string>>(q.arguments.size());
        for (std::size_t i = 0; i < q.arguments.size(); ++i)
            command->add_option(q.arguments[i].first, (*words)[i], argumentHelp(q, i))->required();
        command->callback([&context, &q, words] {
            if (q.needsDatabase)
                context.openPracticeDatabase();
            else
                context.selectDatabase();
            std::vector<Value> arguments;
            for (std::size_t i = 0; i < q.arguments.size(); ++i)
                // The command's own verbs take ids as whole numbers only: the
                // public classes put an id into their statement as it is
                // written, so any other word would become part of the SQL.
                arguments.push_back(q.arguments[i].second == Word::Text
                                        ? Value::text((*words)[i])
                                        : Value::longValue(idFromWord(q.arguments[i].first, (*words)[i])));
            auto object = CreateObject(q.progId);
            context.printResult(object->invoke(q.method, arguments));
            if (q.names != nullptr)
                warnIfMissing(std::cerr, *q.names, arguments.front().toLong());
        });
    }
}

} // namespace avlor::cli
