// The two lists of tariff items (by code and by description) or of
// templates, and the proposal when an item is chosen.
#include <exception>

#include "BusyPointer.h"
#include "FieldText.h"
#include "avlor/core/Value.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/dialog/Statements.h"
#include "avlor/dialog/frmOKParcella.h"
#include "avlor/engine/CalcolaTariffaModulo.h"

namespace avlor::dialog {

namespace {

std::string fieldText(clsAccessoDati& dati, const std::string& name) { return plainText(dati.Campo(name, TipoTesto)); }

bool isCivilTable(const std::string& tabella)
{
    return tabella == "Onorari94" || tabella == "Onorari94Euro" || tabella == "Onorari2004Euro";
}

} // namespace

void frmOKParcella::cmbCodice_DropDown() { RiempiCodici(); }

void frmOKParcella::cmbVoce_DropDown() { RiempiVoci(); }

// Criminal templates are wanted for criminal work: when the kind chosen
// last before "Parcella Base" was "Penale". Then the case's authority
// decides between the criminal templates and all of them by name.
bool frmOKParcella::vuoleParcellePenali() const { return ultimaFamiglia_ == "optPenale"; }

// Both fills: clear the list, warn about a criminal case without authority,
// add the rows, and make current again the row that shows the text the list
// showed before.
void frmOKParcella::RiempiCodici()
{
    const std::string shown = textOf("cmbCodice");
    clearList("cmbCodice");
    if (s_.Autorita.empty() && isOn("optPenale")) {
        informa("ATTENZIONE : Non e' selezionata nessuna Autorita' per la Pratica. "
                "\rSara' impossibile calcolare in "
                "automatico l'importo degli Onorari di Tipo Penale.");
    }
    BusyPointer busy(view());
    Control& list = mutableControl("cmbCodice");
    try {
        clsAccessoDati dati;
        if (isOn("optParcellaBase")) {
            dati.Apri(sql::parcelleBaseCodice(vuoleParcellePenali(), !s_.Autorita.empty()), 1, 3, -1);
            for (; !dati.Recordset().Eof(); dati.Recordset().MoveNext()) {
                list.rows.push_back({fieldText(dati, "CodiceParcella"), fieldText(dati, "NomeParcella")});
                list.keys.push_back(dati.Campo("IdParcella", TipoNumero).toLong());
            }
        } else {
            dati.Apri(sql::codiciTariffa(s_.sTabella), 1, 3, -1);
            for (; !dati.Recordset().Eof(); dati.Recordset().MoveNext()) {
                list.rows.push_back({fieldText(dati, "CodiceTariffa"), fieldText(dati, "Azione")});
                list.keys.push_back(dati.Campo("Id", TipoNumero).toLong());
            }
        }
    } catch (const std::exception&) {
        // A table that cannot be read leaves the rows read so far.
    }
    for (std::size_t row = 0; row < list.rows.size(); ++row) {
        if (list.rows[row].front() == shown) {
            list.current = static_cast<int>(row);
        }
    }
    changed("cmbCodice");
}

void frmOKParcella::RiempiVoci()
{
    const std::string shown = textOf("cmbVoce");
    clearList("cmbVoce");
    if (s_.Autorita.empty() && isOn("optPenale")) {
        informa("ATTENZIONE : Non e' selezionata nessuna Autorita' per la Pratica. "
                "\rSara' impossibile calcolare in "
                "automatico l'importo degli Onorari di Tipo Penale.");
    }
    BusyPointer busy(view());
    Control& list = mutableControl("cmbVoce");
    try {
        clsAccessoDati dati;
        if (isOn("optParcellaBase")) {
            dati.Apri(sql::parcelleBaseVoce(vuoleParcellePenali(), !s_.Autorita.empty()), 1, 3, -1);
            for (; !dati.Recordset().Eof(); dati.Recordset().MoveNext()) {
                list.rows.push_back({fieldText(dati, "NomeParcella"), fieldText(dati, "CodiceParcella"), ""});
                list.keys.push_back(dati.Campo("IdParcella", TipoNumero).toLong());
            }
        } else {
            // Civil fees do not depend on the authority: their rows leave
            // the authority column empty.
            const bool civil = isCivilTable(s_.sTabella);
            dati.Apri(sql::vociTariffa(s_.sTabella), 1, 3, -1);
            for (; !dati.Recordset().Eof(); dati.Recordset().MoveNext()) {
                list.rows.push_back({fieldText(dati, "Azione"), fieldText(dati, "CodiceTariffa"),
                                     civil ? std::string() : fieldText(dati, "Autorita")});
                list.keys.push_back(dati.Campo("Id", TipoNumero).toLong());
            }
        }
    } catch (const std::exception&) {
        // A table that cannot be read leaves the rows read so far.
    }
    for (std::size_t row = 0; row < list.rows.size(); ++row) {
        if (list.rows[row].front() == shown) {
            list.current = static_cast<int>(row);
        }
    }
    changed("cmbVoce");
}

void frmOKParcella::cmbCodice_Click() { ScegliVoce("cmbCodice"); }

void frmOKParcella::cmbVoce_Click() { ScegliVoce("cmbVoce"); }

void frmOKParcella::ScegliVoce(const std::string& lista)
{
    if (!ControllaAnte94()) {
        // The item is not taken: the list shows again what it showed.
        if (listaPrima_ && listaPrima_->name == lista) {
            Control& list = mutableControl(lista);
            list.current = listaPrima_->current;
            list.text = listaPrima_->text;
            changed(lista);
        }
        return;
    }
    const Control& list = control(lista);
    if (list.current < 0 || static_cast<std::size_t>(list.current) >= list.rows.size()) {
        return;
    }
    const std::size_t row = static_cast<std::size_t>(list.current);
    setControlText(lista, list.rows[row].front());
    s_.idTariffa = list.keys[row];
    const std::string other = lista == "cmbCodice" ? "cmbVoce" : "cmbCodice";
    setControlText(other, trimmed(list.rows[row].size() > 1 ? list.rows[row][1] : std::string()));

    // A template is priced item by item when it is added: choosing one takes
    // its key and nothing else.
    if (isOn("optParcellaBase")) {
        return;
    }

    if ((s_.sTabella == "OnorariStrag94" || s_.sTabella == "OnorariStrag94Euro" ||
         s_.sTabella == "OnorariStrag2004Euro") &&
        (s_.idTariffa == 16 || s_.idTariffa == 18)) {
        informa("ATTENZIONE : Vanno applicati gli stessi\rDiritti/Onorari dovuti "
                "in sede giudiziale");
    }

    Currency minT;
    Currency maxT;
    Currency minS;
    Currency maxS;
    {
        BusyPointer busy(view());
        Currency valore = s_.Valore;
        std::int16_t rilevanza = s_.Rilevanza;
        std::string tabella = s_.sTabella;
        std::int16_t indeterminato = s_.bIndeterminato ? std::int16_t{-1} : std::int16_t{0};
        std::int32_t item = s_.idTariffa;
        std::string autorita = s_.Autorita;
        try {
            s_.ImportoVoce =
                CalcolaTariffaModulo(valore, rilevanza, tabella, indeterminato, item, minT, maxT, minS, maxS, autorita);
        } catch (const std::exception&) {
            // The fee table lacks the row or a column: nothing is proposed
            // and the fields keep what they show.
            s_.ImportoVoce = Currency{};
            return;
        }
    }

    // The proposal is the unit amount times the quantity; a quantity that is
    // no 16-bit whole number proposes nothing (the band is still shown).
    std::optional<Currency> proposta;
    const double quantita = numberLenient(textOf("FQuantita"));
    if (quantita == 0) {
        proposta = Currency{};
    } else {
        try {
            proposta = s_.ImportoVoce.times(Value::dbl(quantita).toInteger());
        } catch (const std::exception&) {
            proposta.reset();
        }
    }
    const std::string& valuta = s_.ValutaDefault;
    setControlText("FImporto", proposta ? mostraImporto(*proposta, valuta) : std::string());
    setControlText("FDenMinT", mostraImporto(minT, valuta));
    setControlText("FDenMaxT", mostraImporto(maxT, valuta));
    setControlText("FDenMinS", mostraImporto(minS, valuta));
    setControlText("FDenMaxS", mostraImporto(maxS, valuta));
}

} // namespace avlor::dialog
