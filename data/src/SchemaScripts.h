#pragma once
// The schema scripts of each backend, built into the library from
// sql/schema/<backend>/NNN_name.sql. A new practice database runs them all,
// in version order. The first leaves the version row in Versioni; the
// later ones add tables of their own and leave that row as it is, since
// hosts read it.
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
