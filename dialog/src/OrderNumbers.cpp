// The order number proposed for a new action of one of the two sequences.
#include <exception>

#include "BusyPointer.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/dialog/Statements.h"
#include "avlor/dialog/frmOKParcella.h"

namespace avlor::dialog {

// The number after the last action of the sequence dated on or before the
// day, even when later actions already hold it (adding makes room). It is
// counted past 32767 so that the user sees the number that would follow;
// storing it is what refuses it. When the actions cannot be read the
// proposal is 0, which the entry checks refuse.
std::int32_t frmOKParcella::ProponiNOrdine(const std::string& sData, bool bTariffa, bool bNuova, std::int32_t IdAzione)
{
    BusyPointer busy(view());
    try {
        clsAccessoDati dati;
        dati.Apri(sql::proponiNOrdine(s_.idPratica, sData, bTariffa, bNuova, IdAzione), 1, 3, -1);
        if (dati.Recordset().Eof()) {
            return 1;
        }
        return dati.Campo("NOrdine", TipoNumero).toLong() + 1;
    } catch (const std::exception&) {
        return 0;
    }
}

} // namespace avlor::dialog
