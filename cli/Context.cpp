#include "Context.h"

#include <ostream>

#include "JsonValue.h"
#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"

namespace avlor::cli {

std::string databaseOptionHelp()
{
    return "Database delle pratiche: un percorso, un URI file: o un URI postgresql:// (predefinito: la "
           "variabile AVLOR_DB, altrimenti " +
        defaultDatabaseLocation() + ")";
}

std::string Context::location() const
{
    if (!database.empty())
        return database;
    setCurrentDatabase("");
    return currentDatabase();
}

void Context::selectDatabase() const { setCurrentDatabase(location()); }

void Context::openPracticeDatabase() const
{
    const std::string where = location();
    try {
        requirePracticeDatabase(where);
    } catch (const DataError& e) {
        throw CommandError(e.what());
    }
    setCurrentDatabase(where);
}

void Context::printResult(const DispatchResult& result) const
{
    if (json)
        *out << nlohmann::ordered_json{{"risultato", toJson(result)}}.dump() << '\n';
    else
        *out << toPlainText(result) << '\n';
}

} // namespace avlor::cli
