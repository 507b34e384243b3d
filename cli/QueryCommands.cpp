#include "QueryCommands.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "CallArguments.h"

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
};

const std::vector<Question>& questions()
{
    static const std::vector<Question> all = {
        {"utenti",
         "livello",
         "Confidentiality level of a user (1 user, 2 group, 3 all, 4 groups but AMMINISTRAZIONE)",
         "AvlorLogic.clsUtenti",
         "GetLivelloRiservatezza",
         {{"ID", Word::Id}}},
        {"utenti", "gruppi", "Groups of a user", "AvlorLogic.clsUtenti", "GetGruppiUtente", {{"ID", Word::Id}}},
        {"utenti",
         "membri",
         "Users of a group",
         "AvlorLogic.clsUtenti",
         "GetUtentiDelGruppo",
         {{"GRUPPO", Word::Text}}},
        {"utenti",
         "contabilita",
         "Whether a user is an accounting user",
         "AvlorLogic.clsUtenti",
         "IsUtenteContabilita",
         {{"ID", Word::Id}}},
        {"utenti",
         "in-gruppo",
         "Whether a user belongs to a group",
         "AvlorLogic.clsUtenti",
         "UtenteInGruppo",
         {{"ID", Word::Id}, {"GRUPPO", Word::Text}}},
        {"utenti",
         "corrente",
         "The current user of this workstation (setting Id_Utente)",
         "AvlorLogic.clsUtenti",
         "GetIdOfCurrentUser",
         {},
         false},
        {"utenti",
         "riservatezza",
         "List of the user ids whose records a user may see (GetSqlRiservatezza)",
         "AvlorLogic.clsUtenti",
         "GetSqlRiservatezza",
         {{"ID", Word::Id}}},
        {"utenti",
         "filtro-pratiche",
         "SQL condition on case files for a user (GetSqlFiltroPratiche)",
         "AvlorLogic.clsUtenti",
         "GetSqlFiltroPratiche",
         {{"ID", Word::Id}}},
        {"utenti",
         "filtro-anagrafiche",
         "SQL condition on persons for a user (GetSqlFiltroAnagrafiche)",
         "AvlorLogic.clsUtenti",
         "GetSqlFiltroAnagrafiche",
         {{"ID", Word::Id}}},
        {"pratica",
         "clienti",
         "Number of clients of a case file, plus one",
         "AvlorLogic.clsPratica",
         "QuantiClientiPerPratica",
         {{"ID", Word::Id}}},
        {"pratica",
         "controparti",
         "Number of counter-parties of a case file, plus one",
         "AvlorLogic.clsPratica",
         "QuanteControPartiPerPratica",
         {{"ID", Word::Id}}},
        {"anagrafica",
         "giuridico",
         "Whether a person is a legal entity",
         "AvlorLogic.clsAnagrafica",
         "IsSoggettoGiuridico",
         {{"ID", Word::Id}}},
        {"fattura",
         "residuo",
         "What remains to be paid on an invoice",
         "AvlorLogic.clsFatture",
         "GetResiduoFattura",
         {{"ID", Word::Id}}},
        {"db", "versione", "Version of the practice database", "AvlorLogic.clsDataBase", "VersioneMdb", {}},
    };
    return all;
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
        {"utenti", "Users, groups and confidentiality filters"},
        {"pratica", "Questions about a case file"},
        {"anagrafica", "Questions about a person"},
        {"fattura", "Questions about an invoice"},
        {"db", "The practice database"},
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
            command->add_option(q.arguments[i].first, (*words)[i])->required();
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
        });
    }
}

} // namespace avlor::cli
