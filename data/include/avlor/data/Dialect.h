#pragma once
// Dialect: how one database backend runs the statements that the application
// writes. The statements are kept exactly as the application writes them;
// the few forms that a backend does not understand are mapped here, in one
// place per backend:
//   - a bare table name in place of a statement opens the whole table;
//   - the date form of the application's statements, CONVERT
//     (SMALLDATETIME,'dd/mm/yyyy', 105), becomes the backend's date literal
//     (a text that is not a calendar date raises DataError);
//   - a bare true / false (outside quotes) becomes the backend's yes/no
//     literal; quoted 'TRUE', 'True', 'true', 'FALSE'... are left alone, the
//     schema makes them match;
//   - one closing ';' (blanks only after it) is dropped; anything after a ';'
//     raises DataError before the statement runs, so that only one statement
//     ever runs.
// Text inside quotes and comments is never touched; blanks stay as written.
#include <string>
#include <string_view>
#include <vector>

#include "avlor/core/Date.h"

namespace avlor {

class Dialect {
public:
    virtual ~Dialect() = default;

    // The backend's name, as the schema scripts' folder: "sqlite", "postgresql".
    [[nodiscard]] virtual std::string_view name() const noexcept = 0;

    // The statement (or bare table name) as this backend runs it.
    [[nodiscard]] std::string translate(std::string_view source) const;

    // True when `source` is a bare table name (blanks around it allowed).
    [[nodiscard]] static bool isBareTableName(std::string_view source);

    // The statements of a script, split at each ';' outside literals and
    // comments, blank ones left out (fixtures and tools; no triggers).
    [[nodiscard]] static std::vector<std::string> splitScript(std::string_view script);

    // `name` quoted as an identifier ("name", inner quotes doubled).
    [[nodiscard]] static std::string quoteIdentifier(std::string_view name);

protected:
    [[nodiscard]] virtual std::string dateLiteral(Date date) const = 0;
    [[nodiscard]] virtual std::string booleanLiteral(bool value) const = 0;
};

} // namespace avlor
