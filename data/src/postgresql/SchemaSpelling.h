#pragma once
// The spelling of table and column names as the practice schema writes
// them (ConfigGenerale, Fk_Id_Utente, VALORESCA1). PostgreSQL keeps unquoted
// names in lower case and reports them so; the record sets and the table
// list give them back in the schema's spelling, as the SQLite backend does,
// so that column headers of exports and lists read the same on both. The
// spellings are read from the PostgreSQL schema scripts built into the
// library; names the schema does not know are given as the server reports
// them.
#include <string>
#include <string_view>

namespace avlor {

// `table` (any letter case) as the schema spells it.
[[nodiscard]] std::string spelledTable(std::string_view table);

// Column `column` of `table` (any letter case) as the schema spells it.
[[nodiscard]] std::string spelledColumn(std::string_view table, std::string_view column);

// True when the schema knows the column.
[[nodiscard]] bool schemaHasColumn(std::string_view table, std::string_view column);

} // namespace avlor
