#include "avlor/data/queries/clsFatture.h"

#include "avlor/data/clsValoreSql.h"

namespace avlor {

Value clsFatture::GetResiduoFattura(const Value& avIdFattura) const
{
    // The closing "));" is part of the statement as it has always been sent.
    return clsValoreSql::instance().ValoreSql(
        "SELECT Fatture.ResiduoASaldo From Fatture WHERE (((Fatture.ID_Fattura)=" + avIdFattura.toText() + "));");
}

} // namespace avlor
