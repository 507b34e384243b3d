#include "avlor/core/Collection.h"

#include "NumberText.h"
#include "avlor/core/Error.h"

namespace avlor {

void Collection::Add(Value item, std::optional<std::string> key)
{
    if (key && ContainsKey(*key))
        throw UsageError("Collection: la chiave \"" + *key + "\" è già presente");
    items_.push_back(std::move(item));
    keys_.push_back(std::move(key));
}

const Value& Collection::Item(std::size_t index) const
{
    if (index < 1 || index > items_.size())
        throw UsageError("Collection: l'indice " + std::to_string(index) + " è fuori da 1.." +
                         std::to_string(items_.size()));
    return items_[index - 1];
}

bool Collection::ContainsKey(const std::string& key) const
{
    for (const auto& existing : keys_) {
        if (existing && detail::equalsIgnoreCase(*existing, key))
            return true;
    }
    return false;
}

} // namespace avlor
