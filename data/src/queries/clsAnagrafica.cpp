#include "avlor/data/queries/clsAnagrafica.h"

#include "avlor/core/ErrorTrap.h"
#include "avlor/data/clsValoreSql.h"

namespace avlor {

Value clsAnagrafica::IsSoggettoGiuridico(const Value& avIdAna) const
{
    return withFallback(Value(false), [&] {
        const Value naturalPerson = clsValoreSql::instance().ValoreSql(
            "SELECT Anagrafica.IsFisicaGiuridica From Anagrafica WHERE (((Anagrafica.ID_Ana)=" + avIdAna.toText() +
            "))");
        return logicalNot(naturalPerson);
    });
}

} // namespace avlor
