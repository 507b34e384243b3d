#include <algorithm>
#include <functional>
#include <utility>

#include "avlor/core/Error.h"
#include "binding/MethodTable.h"

namespace avlor {

namespace {

using Factory = std::unique_ptr<AutomationObject> (*)();

const std::vector<std::pair<std::string, Factory>>& factories()
{
    static const std::vector<std::pair<std::string, Factory>> table = {
        {"AvlorLogic.ClsParcella", &binding::makeClsParcella},
        {"AvlorLogic.clsUtenti", &binding::makeClsUtenti},
        {"AvlorLogic.clsPratica", &binding::makeClsPratica},
        {"AvlorLogic.clsDataBase", &binding::makeClsDataBase},
        {"AvlorLogic.clsAnagrafica", &binding::makeClsAnagrafica},
        {"AvlorLogic.clsFatture", &binding::makeClsFatture},
        {"AvlorLogic.clsParametri", &binding::makeClsParametri},
    };
    return table;
}

} // namespace

const std::vector<std::string>& registeredProgIds()
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> out;
        for (const auto& entry : factories())
            out.push_back(entry.first);
        return out;
    }();
    return names;
}

std::unique_ptr<AutomationObject> CreateObject(const std::string& progId)
{
    for (const auto& [name, factory] : factories()) {
        if (binding::sameName(name, progId))
            return factory();
    }
    throw UsageError("Nessuna classe è registrata con il nome '" + progId + "'");
}

} // namespace avlor
