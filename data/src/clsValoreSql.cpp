#include "avlor/data/clsValoreSql.h"

#include "avlor/data/Connection.h"
#include "avlor/data/Database.h"

namespace avlor {

clsValoreSql& clsValoreSql::instance()
{
    static clsValoreSql values;
    return values;
}

Value clsValoreSql::ValoreSql(const std::string& statement) const
{
    return connectionFor(currentDatabase())->singleValue(statement);
}

} // namespace avlor
