#include "Renumbering.h"

#include <string>

#include "avlor/core/Error.h"
#include "avlor/core/Value.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/dialog/Statements.h"

namespace avlor::dialog {

namespace {

// The run-shift: from `c` up, each row still in the unbroken run moves up
// by one; the first row off the run ends it.
void spostaSerie(clsAccessoDati& dati, std::int16_t c)
{
    RecordSet& righe = dati.Recordset();
    for (; !righe.Eof(); righe.MoveNext()) {
        const Value numero = dati.Campo("NOrdine", TipoNumero);
        if (numero.isNull() || numero.toLong() != c) {
            return;
        }
        dati.ImpostaCampo("NOrdine", Value(numeroOrdine(std::int64_t{numero.toLong()} + 1)));
        righe.Update();
        c = numeroOrdine(std::int64_t{c} + 1);
    }
}

} // namespace

std::int16_t numeroOrdine(std::int64_t n)
{
    if (n < INT16_MIN || n > INT16_MAX) {
        throw OrderNumberPastLimit("Il numero d'ordine " + std::to_string(n) + " supera 32767");
    }
    return static_cast<std::int16_t>(n);
}

void faiPostoPerInserimento(std::int32_t idPratica, std::int16_t n, bool bTariffa)
{
    clsAccessoDati dati;
    dati.Apri(sql::numeriDaInserimento(idPratica, n, bTariffa), 1, 3, -1);
    spostaSerie(dati, n);
}

void spostaDopoModifica(std::int32_t idPratica, std::int16_t n, bool bTariffa, std::int32_t idAzione)
{
    clsAccessoDati dati;
    dati.Apri(sql::numeriDaModifica(idPratica, n, bTariffa, idAzione), 1, 3, -1);
    spostaSerie(dati, n);
}

void chiudiTestaTariffa(std::int32_t idPratica)
{
    clsAccessoDati dati;
    dati.Apri(sql::numeriTariffa(idPratica), 1, 3, -1);
    RecordSet& righe = dati.Recordset();
    std::int16_t k = 1;
    for (; !righe.Eof(); righe.MoveNext()) {
        const Value numero = dati.Campo("NOrdine", TipoNumero);
        if (!numero.isNull() && numero.toLong() <= k) {
            return;
        }
        dati.ImpostaCampo("NOrdine", Value(k));
        righe.Update();
        k = numeroOrdine(std::int64_t{k} + 1);
    }
}

void rinumeraSequenza(std::int32_t idPratica, bool bOraria)
{
    clsAccessoDati dati;
    dati.Apri(sql::numeriDopoCancellazione(idPratica, bOraria), 1, 3, -1);
    RecordSet& righe = dati.Recordset();
    std::int64_t k = 1;
    for (; !righe.Eof(); righe.MoveNext()) {
        dati.ImpostaCampo("NOrdine", Value(numeroOrdine(k)));
        righe.Update();
        ++k;
    }
}

void faiPostoPerParcellaBase(std::int32_t idPratica, std::int16_t n, std::int32_t m)
{
    clsAccessoDati dati;
    dati.Apri(sql::numeriDaParcellaBase(idPratica, n), 1, 3, -1);
    RecordSet& righe = dati.Recordset();
    std::int64_t numero = std::int64_t{n} + m;
    for (; !righe.Eof(); righe.MoveNext()) {
        dati.ImpostaCampo("NOrdine", Value(numeroOrdine(numero)));
        righe.Update();
        ++numero;
    }
}

} // namespace avlor::dialog
