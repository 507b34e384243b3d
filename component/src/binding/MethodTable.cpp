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

DispatchResult TableObject::invoke(const std::string& method, std::vector<Value>& arguments)
{
    auto found =
        std::find_if(methods_.begin(), methods_.end(), [&](const Method& m) { return sameName(m.name, method); });
    if (found == methods_.end())
        throw UsageError("La classe " + progId_ + " non ha un'operazione di nome '" + method + "'");
    if (arguments.size() != found->arity)
        throw UsageError(progId_ + "." + found->name + " vuole " + std::to_string(found->arity) +
                         (found->arity == 1 ? " argomento" : " argomenti") +
                         ", ricevuti: " + std::to_string(arguments.size()));
    return found->call(arguments);
}

} // namespace avlor::binding
