#include "Context.h"

#include <filesystem>
#include <ostream>

#include "JsonValue.h"
#include "avlor/data/DataError.h"
#include "avlor/data/Database.h"
#include "avlor/data/clsValoreSql.h"

namespace avlor::cli {

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
    if (const auto file = databaseFile(where)) {
        if (!std::filesystem::exists(*file))
            throw CommandError("no practice database at " + where + " (create one with: avlor db init " + where +
                               ")");
        // An empty file would be turned into an empty database by opening it;
        // it is refused untouched instead.
        std::error_code sizeError;
        if (std::filesystem::file_size(*file, sizeError) == 0 && !sizeError)
            throw CommandError(where + " is not a practice database (the file is empty)");
    }
    setCurrentDatabase(where);
    try {
        (void)clsValoreSql::instance().ValoreSql("SELECT Versione FROM Versioni");
    } catch (const DataError& e) {
        throw CommandError(shownLocation(where) + " is not a practice database (" + e.what() + ")");
    }
}

void Context::printResult(const DispatchResult& result) const
{
    if (json)
        *out << nlohmann::ordered_json{{"risultato", toJson(result)}}.dump() << '\n';
    else
        *out << toPlainText(result) << '\n';
}

} // namespace avlor::cli
