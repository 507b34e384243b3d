#include "Existence.h"

#include <exception>
#include <ostream>

#include "avlor/data/clsValoreSql.h"

namespace avlor::cli {

bool recordExists(const RecordKind& kind, std::int32_t id)
{
    const Value count = clsValoreSql::instance().ValoreSql(std::string("SELECT COUNT(*) FROM ") + kind.table +
                                                           " WHERE " + kind.key + " = " + std::to_string(id));
    return count.toLong() > 0;
}

std::string missingRecord(const RecordKind& kind, std::int32_t id)
{
    return std::string(kind.named) + " " + std::to_string(id) + " non esiste nel database";
}

void warnIfMissing(std::ostream& err, const RecordKind& kind, std::int32_t id)
{
    bool exists = true;
    try {
        exists = recordExists(kind, id);
    } catch (const std::exception&) {
        // The question has had its answer already; a check that cannot be
        // made says nothing rather than turn that answer into a failure.
    }
    if (!exists)
        err << "avlor: avviso: " << missingRecord(kind, id) << '\n';
}

} // namespace avlor::cli
