#include "binding/MethodTable.h"

#include <algorithm>
#include <cctype>

#include "avlor/core/Error.h"

namespace avlor::binding {

bool sameName(const std::string& a, const std::string& b) noexcept
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
           });
}

std::string argumentText(const Value& value) { return value.toText(); }

TableObject::TableObject(std::string progId, std::vector<Method> methods)
    : progId_(std::move(progId)), methods_(std::move(methods))
{
}

std::vector<std::string> TableObject::methodNames() const
{
    std::vector<std::string> names;
    names.reserve(methods_.size());
    for (const auto& m : methods_)
        names.push_back(m.name);
    return names;
}

const Method& TableObject::method(const std::string& name) const
{
    auto found =
        std::find_if(methods_.begin(), methods_.end(), [&](const Method& m) { return sameName(m.name, name); });
    if (found == methods_.end()) {
        std::string known;
        for (const auto& m : methods_)
            known += (known.empty() ? "" : ", ") + m.name;
        throw UsageError("La classe " + progId_ + " non ha un'operazione di nome '" + name +
                         "' (le sue operazioni: " + known + ")");
    }
    return *found;
}

std::vector<std::string> TableObject::argumentNames(const std::string& name) const { return method(name).arguments; }

DispatchResult TableObject::invoke(const std::string& name, std::vector<Value>& arguments)
{
    const Method& found = method(name);
    if (arguments.size() != found.arguments.size()) {
        std::string names;
        for (const auto& a : found.arguments)
            names += (names.empty() ? "" : ", ") + a;
        throw UsageError(progId_ + "." + found.name + " vuole " + std::to_string(found.arguments.size()) +
                         (found.arguments.size() == 1 ? " argomento" : " argomenti") +
                         (names.empty() ? "" : " (" + names + ")") + ", " +
                         (arguments.size() == 1 ? "ne è dato " : "ne sono dati ") + std::to_string(arguments.size()));
    }
    return found.call(arguments);
}

} // namespace avlor::binding
