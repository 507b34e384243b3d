#include "avlor/dialog/Statements.h"

namespace avlor::dialog::sql {

namespace {

std::string filtroTariffa(bool bTariffa) { return bTariffa ? " AND IsTariffa = 'TRUE' " : " AND IsTariffa = 'FALSE' "; }

} // namespace

std::string casoPratica(std::int32_t idPratica)
{
    // Two pieces joined as they stand: hence the two blanks before WHERE.
    return std::string("SELECT Valuta,Valore,Cambio,Rilevanza,Autorita FROM Pratica ") +
        " WHERE ID_Pra = " + std::to_string(idPratica);
}

std::string configGenerale() { return "SELECT * FROM ConfigGenerale"; }

std::string utenti() { return "SELECT * FROM Utenti ORDER BY ID_Utente"; }

std::string dataSql(const std::string& dayFirst) { return "CONVERT (SMALLDATETIME,'" + dayFirst + "', 105) "; }

std::string proponiNOrdine(std::int32_t idPratica, const std::string& dayFirst, bool bTariffa, bool bNuova,
                           std::int32_t idAzione)
{
    std::string text = "SELECT NOrdine,Data FROM Azioni WHERE IdPra = " + std::to_string(idPratica);
    text += filtroTariffa(bTariffa);
    if (!bNuova) {
        text += " AND IdAzione <> " + std::to_string(idAzione);
    }
    text += " AND Data <= " + dataSql(dayFirst);
    text += " ORDER BY Data DESC,NOrdine DESC";
    return text;
}

std::string griglia(std::int32_t idPratica, bool bTariffa)
{
    return std::string("SELECT Azioni.*, Utenti.NomeUtente ") +
        "FROM Utenti INNER JOIN Azioni ON Utenti.ID_Utente = "
        "Azioni.IdEseguitoDa" +
        " WHERE IdPra = " + std::to_string(idPratica) + filtroTariffa(bTariffa) + " ORDER BY NOrdine ";
}

std::string codiciTariffa(const std::string& tabella) { return "SELECT * FROM " + tabella + " ORDER BY CodiceTariffa"; }

std::string vociTariffa(const std::string& tabella) { return "SELECT * FROM " + tabella + " ORDER BY Azione"; }

std::string parcelleBaseCodice(bool penali, bool autorita)
{
    if (!penali) {
        return std::string("SELECT * FROM ParcellaBase") + " ORDER BY CodiceParcella";
    }
    if (autorita) {
        return std::string("SELECT * FROM ParcellaBase") + " WHERE IsPenale= 'true' ORDER BY CodiceParcella";
    }
    return std::string("SELECT * FROM ParcellaBase ") + " ORDER BY NomeParcella ";
}

std::string parcelleBaseVoce(bool penali, bool autorita)
{
    if (!penali) {
        return std::string("SELECT * FROM ParcellaBase") + " ORDER BY CodiceParcella";
    }
    if (autorita) {
        return std::string("SELECT * FROM ParcellaBase") + " WHERE IsPenale= true ORDER BY CodiceParcella";
    }
    return std::string("SELECT * FROM ParcellaBase ") + " ORDER BY NomeParcella ";
}

std::string azione(std::int32_t idAzione)
{
    return "SELECT * FROM Azioni WHERE IdAzione = " + std::to_string(idAzione);
}

std::string numeriDaInserimento(std::int32_t idPratica, std::int32_t nOrdine, bool bTariffa)
{
    return "SELECT NOrdine From Azioni WHERE IdPra = " + std::to_string(idPratica) +
        " AND NOrdine >= " + std::to_string(nOrdine) + filtroTariffa(bTariffa) + " ORDER BY NOrdine ";
}

std::string numeriDaModifica(std::int32_t idPratica, std::int32_t nOrdine, bool bTariffa, std::int32_t idAzione)
{
    return "SELECT NOrdine From Azioni WHERE IdPra = " + std::to_string(idPratica) +
        " AND NOrdine >= " + std::to_string(nOrdine) +
        (bTariffa ? " AND IsTariffa = 'TRUE' AND IdAzione <> " : " AND IsTariffa = 'FALSE' AND IdAzione <> ") +
        std::to_string(idAzione) + " ORDER BY NOrdine ";
}

std::string numeriTariffa(std::int32_t idPratica)
{
    // Two pieces joined as they stand: hence the two blanks before ORDER.
    return "SELECT NOrdine FROM Azioni WHERE IdPra = " + std::to_string(idPratica) + " AND IsTariffa = 'TRUE' " +
        " ORDER BY NOrdine ";
}

std::string numeriDopoCancellazione(std::int32_t idPratica, bool bOraria)
{
    return "SELECT NOrdine FROM Azioni WHERE IdPra = " + std::to_string(idPratica) + filtroTariffa(!bOraria) +
        " ORDER BY NOrdine ";
}

std::string numeriDaParcellaBase(std::int32_t idPratica, std::int32_t nOrdine)
{
    return "SELECT NOrdine FROM Azioni WHERE IdPra = " + std::to_string(idPratica) + " AND IsTariffa = 'TRUE' " +
        " AND NOrdine >= " + std::to_string(nOrdine) + " ORDER BY NOrdine ";
}

std::string vociParcellaBase(std::int32_t idParcellaBase)
{
    return "SELECT * FROM VociParcellaBase WHERE IdParcellaBase = " + std::to_string(idParcellaBase) +
        " ORDER BY NOrdine";
}

} // namespace avlor::dialog::sql
