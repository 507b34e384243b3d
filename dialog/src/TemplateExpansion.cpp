// A template (Parcella Base) turned into tariff actions of the case file,
// item by item in the template's order, from the number typed onwards.
#include <exception>

#include "BusyPointer.h"
#include "FieldText.h"
#include "Renumbering.h"
#include "UnitOfWork.h"
#include "avlor/core/Value.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/dialog/Statements.h"
#include "avlor/dialog/frmOKParcella.h"
#include "avlor/engine/CalcolaTariffaModulo.h"

namespace avlor::dialog {

bool frmOKParcella::InserisciParcellaBase()
{
    BusyPointer busy(view());
    try {
        const std::int16_t n = Value(textOf("FNumOrdine")).toInteger();
        UnitOfWork lavoro(s_.idPratica);
        clsAccessoDati azioni;
        azioni.Apri(sql::TabellaAzioni, 1, 3, -1);
        clsAccessoDati voci;
        voci.Apri(sql::vociParcellaBase(s_.idTariffa), 1, 3, -1);
        const std::int32_t m = voci.Recordset().RecordCount();

        // Room for the m items: the tariff actions from n up follow them,
        // numbered without gaps. A template without items still closes up
        // the actions from n.
        faiPostoPerParcellaBase(s_.idPratica, n, m);

        const Date data = dataInserita();
        std::int64_t numero = n;
        for (; !voci.Recordset().Eof(); voci.Recordset().MoveNext()) {
            const Value valuta = voci.Campo("Valuta", TipoTesto);
            const Value cambio = voci.Campo("Cambio", TipoNumero);
            const Value idTariffa = voci.Campo("IdTariffa", TipoNumero);
            const Value tabella = voci.Campo("TabellaTariffa", TipoTesto);
            const Value tipo = voci.Campo("Tipo", TipoNumero);

            azioni.Recordset().AddNew();
            azioni.ImpostaCampo("Data", Value(data));
            azioni.ImpostaCampo("NOrdine", Value(numeroOrdine(numero)));
            azioni.ImpostaCampo("IdPra", Value(s_.idPratica));
            azioni.ImpostaCampo("Codice", voci.Campo("Codice", TipoTesto));
            azioni.ImpostaCampo("Descr", voci.Campo("Nome", TipoTesto));
            azioni.ImpostaCampo("Valuta", valuta);
            azioni.ImpostaCampo("Cambio", cambio);
            azioni.ImpostaCampo("IsTariffa", Value(true));

            // An item that names no tariff entry carries its own amount; the
            // others are priced for this case file, whose own value,
            // relevance, authority and indeterminate flag apply.
            Currency importo;
            if (idTariffa.isNull() || idTariffa.toLong() < 1) {
                importo = amountOrZero(voci.Campo("Competenze", TipoNumero));
            } else {
                Currency valore = s_.Valore;
                std::int16_t rilevanza = s_.Rilevanza;
                std::string tabellaVoce = plainText(tabella);
                std::int16_t indeterminato = s_.bIndeterminato ? std::int16_t{-1} : std::int16_t{0};
                std::int32_t voce = idTariffa.toLong();
                std::string autorita = s_.Autorita;
                Currency minT;
                Currency maxT;
                Currency minS;
                Currency maxS;
                importo = CalcolaTariffaModulo(valore, rilevanza, tabellaVoce, indeterminato, voce, minT, maxT, minS,
                                               maxS, autorita);
            }
            const Value qta = voci.Campo("Qta", TipoNumero);
            if (!qta.isNull() && qta.toDouble() > 1) {
                importo = importo.times(qta.toLong());
            }
            const bool onorari = !tipo.isNull() && tipo.toDouble() != 0;
            azioni.ImpostaCampo("Onorari", Value(onorari ? importo : Currency{}));
            azioni.ImpostaCampo("Diritti", Value(onorari ? Currency{} : importo));

            azioni.ImpostaCampo("Esenti", voci.Campo("Esenti", TipoNumero));
            azioni.ImpostaCampo("Imponibili", voci.Campo("Imponibili", TipoNumero));
            azioni.ImpostaCampo("Quantita", qta.isNull() ? qta : Value(plainText(qta)));
            azioni.ImpostaCampo("bFattura", Value(false));
            azioni.ImpostaCampo("IdFattura", Value(std::int32_t{0}));
            // Template items are always recorded as done by user 1, whoever
            // is at the keyboard: that is how the firm's templates have
            // always been billed.
            azioni.ImpostaCampo("IdEseguitoDa", Value(std::int32_t{1}));
            azioni.ImpostaCampo("IdVoceParcella", idTariffa);
            azioni.ImpostaCampo("TabellaTariffa", tabella);
            azioni.ImpostaCampo("TipoAzione", tipo);
            azioni.ImpostaCampo("InNotaSpese", Value(isOn("chkIncludi")));
            azioni.Recordset().Update();
            ++numero;
        }
        lavoro.commit();
        return true;
    } catch (const std::exception& error) {
        segnalaFallimento(error);
        return false;
    }
}

} // namespace avlor::dialog
