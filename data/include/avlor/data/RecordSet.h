#pragma once
// RecordSet: the rows of one opened statement or table, with a current row.
// Rows are fetched when the record set is opened. A record set opened in the
// editable mode from a statement whose columns all come from one table
// writes its changes back to that table by the row's key, even when the
// statement selects only some columns; any other record set refuses writes.
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "avlor/core/Value.h"

namespace avlor {

class Connection;

class RecordSet {
public:
    virtual ~RecordSet() = default;

    // True when there is no current row (past the last row, or no rows).
    // (The classic name EOF is a macro of the C library, hence Eof.)
    [[nodiscard]] virtual bool Eof() const = 0;
    // True before the first row; kept for symmetry with Eof.
    [[nodiscard]] virtual bool Bof() const = 0;
    virtual void MoveNext() = 0;
    virtual void MoveFirst() = 0;
    [[nodiscard]] virtual std::int32_t RecordCount() const = 0;

    // Starts a new row; its fields are set with SetField and written by Update.
    virtual void AddNew() = 0;
    // Writes the pending new row or the changed fields of the current row.
    // After a new row is written its generated key and defaults are readable.
    virtual void Update() = 0;
    // Removes the current row from the table.
    virtual void Delete() = 0;

    // The named field of the current row (or of the row being added), as
    // stored: number, Currency, text, date, boolean or null. No current row,
    // or an unknown field, raises DataError.
    [[nodiscard]] virtual Value Field(const std::string& name) const = 0;
    virtual void SetField(const std::string& name, const Value& value) = 0;
    [[nodiscard]] virtual std::vector<std::string> FieldNames() const = 0;
};

} // namespace avlor
