#include "avlor/data/queries/clsPratica.h"

#include <string>

#include "avlor/data/clsValoreSql.h"

namespace avlor {

namespace {

// The count of the statement plus 1, made a whole number. The sum goes
// through value arithmetic, so a null count stays null and the conversion
// raises rather than answering a made-up number.
std::int32_t countPlusOne(const std::string& statement)
{
    const Value count = clsValoreSql::instance().ValoreSql(statement);
    return add(count, Value::integer(1)).toLong();
}

} // namespace

std::int32_t clsPratica::QuantiClientiPerPratica(const Value& avCodicePratica) const
{
    return countPlusOne("SELECT Count(MultiIntesta.ID_Multi) AS ConteggioDiID_Multi "
                        "FROM MultiIntesta "
                        "WHERE (MultiIntesta.ID_Pra = " +
                        avCodicePratica.toText() + ") AND (MultiIntesta.IsCliente='True')");
}

std::int32_t clsPratica::QuanteControPartiPerPratica(const Value& avCodicePratica) const
{
    return countPlusOne("SELECT Count(MultiIntesta.ID_Multi) AS ConteggioDiID_Multi "
                        "FROM MultiIntesta "
                        "WHERE (MultiIntesta.IsCliente='False') And (MultiIntesta.ID_Pra = " +
                        avCodicePratica.toText() + ")");
}

} // namespace avlor
