#pragma once
// What the PostgreSQL backend needs to know of a statement's text before it
// runs it: that it is a query, and whether its rows are rows of one table
// (so that an editable record set can write them back).
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace avlor {

// Raises DataError("Not a query ...", reportAs) when `sql` is a command
// other than a query: anything but SELECT (without INTO), VALUES, TABLE, or
// WITH ... SELECT without a data-changing part. The read-only session
// refuses any write anyway; this names the fault before anything reaches
// the server, and keeps session commands (SET, BEGIN, COMMIT) away from it.
// Text that starts no command is left to the server's syntax error.
void requirePgQuery(std::string_view sql, const std::string& reportAs);

// True when `sql` starts or ends a transaction or a savepoint (BEGIN,
// START, COMMIT, END, ROLLBACK, ABORT, SAVEPOINT, RELEASE, PREPARE
// TRANSACTION): commands that only the layer itself may give, since it keeps
// track of the session's transaction.
[[nodiscard]] bool isTransactionCommand(std::string_view sql);

// A plain query of one table: SELECT [ALL] <columns> FROM <table> [[AS]
// alias] followed by no other table (no ',' or JOIN) and no DISTINCT, GROUP
// BY or compound query at the top level.
struct SingleTableQuery {
    std::string table; // the table as written ("Azioni", "public.azioni")
    std::string qualifier; // the alias, or the table as written
    std::size_t columnsAt; // offset just after SELECT [ALL]
};

// The shape of `sql`, or nothing with the reason in `whyNot`.
[[nodiscard]] std::optional<SingleTableQuery> singleTableQuery(std::string_view sql, std::string& whyNot);

// `sql` with `columns` (expressions) put in front of its own columns.
[[nodiscard]] std::string withLeadingColumns(std::string_view sql, const SingleTableQuery& shape,
                                             const std::vector<std::string>& columns);

// The spelling of `name` among the words of `sql` (an alias as written),
// matched without regard to letter case; nothing when no word matches.
[[nodiscard]] std::optional<std::string> spellingInStatement(std::string_view sql, std::string_view name);

} // namespace avlor
