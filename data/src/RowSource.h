#pragma once
// RowSource: the backend's side of a record set. It knows the statement's
// fields, fetches the rows, and, when the statement's columns all come from
// one table, writes rows of that table back by a key of its own (the SQLite
// row id, for example), which the record set keeps with each row as opaque
// text.
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "avlor/core/Value.h"

namespace avlor {

struct FetchedRow {
    std::string key;
    std::vector<Value> values;
};

// Field index and value, in the order the fields were set.
using FieldChanges = std::vector<std::pair<std::size_t, Value>>;

class RowSource {
public:
    virtual ~RowSource() = default;

    [[nodiscard]] virtual const std::vector<std::string>& fieldNames() const = 0;
    // The statement as run, for error messages.
    [[nodiscard]] virtual const std::string& statement() const = 0;
    // Every row of the statement, in its order.
    [[nodiscard]] virtual std::vector<FetchedRow> fetch() = 0;

    // Empty when the rows can be written back; otherwise the reason why not.
    [[nodiscard]] virtual std::string whyNotUpdatable() const = 0;
    // `value` as the field would store it (and read it back). Raises
    // ValueError when the value cannot take the field's type.
    [[nodiscard]] virtual Value normalise(std::size_t field, const Value& value) const = 0;
    // Writes a new row with `changes` (other columns take their defaults) and
    // returns it as stored, with its generated key and defaults.
    [[nodiscard]] virtual FetchedRow insert(const FieldChanges& changes) = 0;
    // Writes `changes` to the row of `key`; DataError when the row is gone.
    virtual void update(const std::string& key, const FieldChanges& changes) = 0;
    // Removes the row of `key`.
    virtual void remove(const std::string& key) = 0;
};

} // namespace avlor
