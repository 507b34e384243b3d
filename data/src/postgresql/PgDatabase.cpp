#include "postgresql/PgDatabase.h"

#include "postgresql/PgConnection.h"

namespace avlor {

std::shared_ptr<PgConnection> createPgPracticeDatabase(const std::string& location)
{
    std::shared_ptr<PgConnection> connection = PgConnection::connect(location);
    connection->installSchema();
    return connection;
}

} // namespace avlor
