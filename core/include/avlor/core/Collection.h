#pragma once
// Collection: an ordered list of values, 1-based, each optionally filed under
// a text key, as the lists of groups and users are handed to hosts. Keys are
// compared without regard to letter case and must be unique.
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "avlor/core/Value.h"

namespace avlor {

class Collection {
public:
    // Appends `item`; with a key already present raises UsageError.
    void Add(Value item, std::optional<std::string> key = std::nullopt);
    // Item `index`, 1-based; out of range raises UsageError.
    [[nodiscard]] const Value& Item(std::size_t index) const;
    [[nodiscard]] std::size_t Count() const noexcept { return items_.size(); }
    [[nodiscard]] bool ContainsKey(const std::string& key) const;

    [[nodiscard]] std::vector<Value>::const_iterator begin() const noexcept { return items_.begin(); }
    [[nodiscard]] std::vector<Value>::const_iterator end() const noexcept { return items_.end(); }

private:
    std::vector<Value> items_;
    std::vector<std::optional<std::string>> keys_;
};

} // namespace avlor
