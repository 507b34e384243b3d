#pragma once
// clsAccessoDati: the record-access object. Every routine that touches the
// database creates one, opens what it needs, reads or writes, and drops it
// before returning. It holds the record set it opened last and reads and
// writes fields of that record set's current row.
//
// What an instance wrote is durable once each Update or Delete returns; a
// failure later in the routine does not undo it.
#include <cstdint>
#include <memory>
#include <string>

#include "avlor/core/Value.h"
#include "avlor/data/RecordSet.h"
#include "avlor/data/TipoCampo.h"

namespace avlor {

class Connection;

class clsAccessoDati {
public:
    // Works on the current practice database (see Database.h).
    clsAccessoDati();
    // Works on the given connection (tests, tools).
    explicit clsAccessoDati(std::shared_ptr<Connection> connection);
    ~clsAccessoDati();
    clsAccessoDati(const clsAccessoDati&) = delete;
    clsAccessoDati& operator=(const clsAccessoDati&) = delete;

    // Opens `source`, a full SELECT statement or a bare table name, and makes
    // its first row current. Read-only mode: 0, 1, -1; editable: 1, 3, -1.
    // Any other combination raises DataError. A failing statement raises
    // DataError with the database's message; only one statement ever runs.
    std::shared_ptr<RecordSet> Apri(const std::string& source, std::int32_t cursorType, std::int32_t lockType,
                                    std::int32_t options);

    // The named field of the current row, converted to the kind `tipoCampo`
    // (TipoTesto, TipoNumero, TipoData). A null field stays null whatever the
    // kind; no open record set, no current row or an unknown field raises
    // DataError; a value that cannot take the kind raises ValueError.
    Value Campo(const std::string& name, std::int32_t tipoCampo);

    // The record set last opened by this instance; DataError when none.
    RecordSet& Recordset();

    // Sets the named field of the current row (or of the row being added);
    // the caller then calls Recordset().Update().
    void ImpostaCampo(const std::string& name, const Value& value);

private:
    std::shared_ptr<Connection> connection_;
    std::shared_ptr<RecordSet> current_;
};

} // namespace avlor
