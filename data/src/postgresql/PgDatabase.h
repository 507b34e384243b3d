#pragma once
// Making a new practice database on a PostgreSQL server.
#include <memory>
#include <string>

namespace avlor {

class PgConnection;

// Installs the practice schema in the existing, empty database named by
// `location` (the firm's administrator makes the database itself, with its
// owner and rights) and returns the open connection. A database that holds
// any table is refused with DataError and left untouched.
[[nodiscard]] std::shared_ptr<PgConnection> createPgPracticeDatabase(const std::string& location);

} // namespace avlor
