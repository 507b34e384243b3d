#pragma once
// The schema scripts of each backend, built into the library from
// sql/schema/<backend>/NNN_name.sql. A new practice database runs them all,
// in version order; the last one leaves its number in Versioni.
#include <string_view>
#include <vector>

namespace avlor {

struct SchemaScript {
    std::string_view backend; // "sqlite", "postgresql"
    int version;
    std::string_view name;
    std::string_view sql;
};

// The scripts of `backend`, in version order.
[[nodiscard]] std::vector<SchemaScript> schemaScripts(std::string_view backend);

} // namespace avlor
