// Adding and changing actions: the entry checks, the two save routines
// (tariff and hourly), the over-maximum question and the reset of the entry
// for the next action.
#include <exception>

#include "BusyPointer.h"
#include "FieldText.h"
#include "Renumbering.h"
#include "UnitOfWork.h"
#include "avlor/core/Error.h"
#include "avlor/core/Messages.h"
#include "avlor/core/Value.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/dialog/MoneyText.h"
#include "avlor/dialog/Statements.h"
#include "avlor/dialog/frmOKParcella.h"

namespace avlor::dialog {

namespace {

// The over-maximum question; the blanks line up the two bracketed lines.
const std::string DomandaSopraMassimo = "ATTENZIONE : L'importo e' superiore al massimo tariffario.\r\r"
                                        "[OK]              Effettua il salvataggio\r"
                                        "[ANNULLA]   Annulla l'operazione.";

// The order number typed, as a whole number: rounded halves to even, and
// text that is no number (or past 32767) refused with ValueError.
std::int16_t numeroDigitato(const std::string& text)
{
    try {
        return Value(text).toInteger();
    } catch (const ValueError& error) {
        if (error.kind() != ValueError::Kind::Overflow)
            throw;
        throw OrderNumberPastLimit(error.what());
    }
}

// Opens the row a save writes: a new one, once room was made for it at `n`
// in its sequence, or the action being changed.
void apriRigaDaSalvare(clsAccessoDati& dati, bool bNuova, std::int32_t idPratica, std::int16_t n, bool bTariffa,
                       std::int32_t idAzione)
{
    if (bNuova) {
        faiPostoPerInserimento(idPratica, n, bTariffa);
        dati.Apri(sql::TabellaAzioni, 1, 3, -1);
        dati.Recordset().AddNew();
    } else {
        dati.Apri(sql::azione(idAzione), 1, 3, -1);
    }
}

} // namespace

// Whether the action goes into the expense note is read when it is stored;
// ticking the box changes nothing else.
void frmOKParcella::chkIncludi_Click() { }

void frmOKParcella::rifiuta(const std::string& text, const std::string& focus)
{
    static_cast<void>(messageBoxes().show(text, TitoloMessaggi, MsgIcon::Exclamation, MsgButtons::Ok));
    setFocus(focus);
}

void frmOKParcella::segnalaFallimento(const std::exception& error) const
{
    const std::string causa = dynamic_cast<const OrderNumberPastLimit*>(&error) != nullptr
        ? std::string("Il Numero d'Ordine supera 32767.")
        : std::string(error.what());
    static_cast<void>(messageBoxes().show("ATTENZIONE : Operazione non eseguita.\r"
                                          "Nessuna modifica e' stata registrata.\r\r" +
                                              causa,
                                          TitoloMessaggi, MsgIcon::Critical, MsgButtons::Ok));
}

// The date field's day; text that is no day-first date is refused with
// ValueError, so that nothing is stored under a date nobody typed.
Date frmOKParcella::dataInserita() const { return Value(trimmed(textOf("FData"))).toDate(); }

bool frmOKParcella::ControllaDatiTariffa()
{
    if (trimmed(textOf("FData")).empty()) {
        rifiuta("ATTENZIONE : E' necessario inserire la data !", "FData");
        return false;
    }
    if (numberLenient(textOf("FNumOrdine")) <= 0) {
        rifiuta("ATTENZIONE:\rE' necessario inserire il Numero d'Ordine.", "FNumOrdine");
        return false;
    }
    // Only the one combination the option group never allows would let an
    // empty description through: templates need a description too.
    if (!(isOn("optParcellaBase") && isOn("optOraria")) && trimmed(textOf("cmbVoce")).empty()) {
        rifiuta("ATTENZIONE:\rE' necessario inserire la Descrizione della Voce di Parcella.", "cmbVoce");
        return false;
    }
    if (isOn("optParcellaBase") && s_.idTariffa == 0) {
        rifiuta("ATTENZIONE:\rE' necessario selezionare una Parcella Base presente in archivio.", "cmbVoce");
        return false;
    }
    return true;
}

bool frmOKParcella::ControllaDatiOrari()
{
    // The wording differs from the tariff check on purpose.
    if (trimmed(textOf("FData")).empty()) {
        rifiuta("ATTENZIONE:\rE' necessario inserire la data.", "FData");
        return false;
    }
    if (numberLenient(textOf("FNumOrdine")) <= 0) {
        rifiuta("ATTENZIONE:\rE' necessario inserire il Numero d'Ordine.", "FNumOrdine");
        return false;
    }
    if (trimmed(textOf("txtDescrizione")).empty()) {
        rifiuta("ATTENZIONE:\rE' necessario inserire la Descrizione.", "txtDescrizione");
        return false;
    }
    return true;
}

// True when the user goes on: an amount above the item's maximum is asked
// about; one equal to it, or no maximum, is not.
bool frmOKParcella::ConfermaSopraMassimo()
{
    const std::string importo = trimmed(textOf("FImporto"));
    const std::string massimo = trimmed(textOf("FDenMaxT"));
    if (importo.empty() || massimo.empty()) {
        return true;
    }
    Currency sopra;
    Currency limite;
    for (const auto& [campo, valore] : {std::pair{"FImporto", &sopra}, std::pair{"FDenMaxT", &limite}}) {
        try {
            *valore = amountOf(campo);
        } catch (const ValueError& error) {
            rifiuta(std::string("ATTENZIONE : ") + error.what(), campo);
            return false;
        }
    }
    if (!(sopra > limite)) {
        return true;
    }
    if (messageBoxes().show(DomandaSopraMassimo, TitoloMessaggi, MsgIcon::Question, MsgButtons::OkCancel) ==
        MsgResult::Ok) {
        return true;
    }
    setFocus("FImporto");
    return false;
}

void frmOKParcella::cmdAggiungi_Click()
{
    if (!isOn("optOraria")) {
        if (!ControllaDatiTariffa()) {
            return;
        }
        if (isOn("optParcellaBase")) {
            if (!InserisciParcellaBase()) {
                return;
            }
        } else {
            if (!ConfermaSopraMassimo() || !SalvaAzioneTariffa(true)) {
                return;
            }
        }
        PreparaNuovaVoce();
    } else {
        if (!ControllaDatiOrari() || !SalvaAzioneOraria(true)) {
            return;
        }
        CaricaUtenti(s_.idUtenteCorrente);
        s_.idAzioneCorrente = 0;
        SvuotaInserimentoOrario();
    }
    AggiornaGriglia();
    FineModifica();
}

void frmOKParcella::cmdModifica_Click()
{
    if (s_.idAzioneCorrente == 0) {
        return;
    }
    if (!isOn("optOraria")) {
        if (!ControllaDatiTariffa()) {
            return;
        }
        if (SalvaAzioneTariffa(false)) {
            AggiornaGriglia();
        }
    } else {
        if (!ControllaDatiOrari()) {
            return;
        }
        if (SalvaAzioneOraria(false)) {
            AggiornaGriglia();
            CaricaUtenti(s_.idUtenteCorrente);
            SvuotaInserimentoOrario();
        }
    }
    // Whether the change was stored or not, the entry starts afresh; after
    // an hourly change this puts the tariff proposal for today in place of
    // the hourly one, as it always has.
    PreparaNuovaVoce();
    FineModifica();
}

// No action is loaded any more: the next press of cmdAggiungi adds, and
// cmdModifica waits for an action to be chosen.
void frmOKParcella::FineModifica()
{
    s_.idAzioneCorrente = 0;
    s_.bModifica = false;
}

// The entry after an hourly action was stored or deleted. Its number comes
// from the date handed to the dialog, while the tariff reset proposes from
// today: the two differ on purpose.
void frmOKParcella::SvuotaInserimentoOrario()
{
    for (const char* field : {"txtDescrizione", "FImporto", "FEsenti", "FImponibili", "FOre", "FMinuti"}) {
        setControlText(field, "");
    }
    setControlText("FData", today().toDayFirst());
    const std::optional<Date> giorno = Date::parseDayFirst(s_.sData);
    const std::string dataContesto = giorno ? giorno->toDayFirst() : s_.sData;
    setControlText("FNumOrdine", std::to_string(ProponiNOrdine(dataContesto, false, true, 0)));
}

void frmOKParcella::PreparaNuovaVoce()
{
    s_.idTariffa = 0;
    s_.ImportoVoce = Currency{};
    setControlText("FData", today().toDayFirst());
    setControlText("FNumOrdine", std::to_string(ProponiNOrdine(trimmed(textOf("FData")), true, true, 0)));
    for (const char* field : {"FImporto", "FEsenti", "FImponibili", "FDenMaxS", "FDenMaxT", "FDenMinS", "FDenMinT",
                              "cmbVoce", "cmbCodice"}) {
        setControlText(field, "");
    }
    setControlText("FQuantita", "1");
}

// A money field's amount, or 0 when it is empty.
Currency frmOKParcella::importoOZero(const std::string& name) const
{
    return trimmed(textOf(name)).empty() ? Currency{} : amountOf(name);
}

// The fields both kinds of action store alike: the date, the number, the
// case file with its currency and rate, and the expenses.
void frmOKParcella::ImpostaCampiComuni(clsAccessoDati& dati, std::int16_t n) const
{
    dati.ImpostaCampo("Data", Value(dataInserita()));
    dati.ImpostaCampo("NOrdine", Value(n));
    dati.ImpostaCampo("IdPra", Value(s_.idPratica));
    dati.ImpostaCampo("Valuta", Value(s_.ValutaPratica));
    dati.ImpostaCampo("Cambio", Value(s_.CambioPratica));
    dati.ImpostaCampo("Imponibili", Value(importoOZero("FImponibili")));
    dati.ImpostaCampo("Esenti", Value(importoOZero("FEsenti")));
}

bool frmOKParcella::SalvaAzioneTariffa(bool bNuova)
{
    BusyPointer busy(view());
    try {
        const std::int16_t n = numeroDigitato(textOf("FNumOrdine"));
        UnitOfWork lavoro(s_.idPratica);
        clsAccessoDati dati;
        apriRigaDaSalvare(dati, bNuova, s_.idPratica, n, true, s_.idAzioneCorrente);

        ImpostaCampiComuni(dati, n);
        dati.ImpostaCampo("Codice", Value(textOf("cmbCodice")));
        dati.ImpostaCampo("Descr", Value(textOf("cmbVoce")));
        dati.ImpostaCampo("Diritti", Value(Currency{}));
        dati.ImpostaCampo("Onorari", Value(Currency{}));
        if (!trimmed(textOf("FImporto")).empty()) {
            const Currency importo = amountOf("FImporto");
            if (isOn("optDiritti")) {
                dati.ImpostaCampo("Diritti", Value(importo));
            } else if (isOn("optOnorari") || isOn("optStragiudiziale") || isOn("optPenale")) {
                dati.ImpostaCampo("Onorari", Value(importo));
            }
        }
        const std::pair<const char*, std::int16_t> tipi[] = {
            {"optDiritti", 0}, {"optOnorari", 1}, {"optStragiudiziale", 2}, {"optPenale", 3}};
        for (const auto& [opzione, tipo] : tipi) {
            if (isOn(opzione)) {
                dati.ImpostaCampo("TipoAzione", Value(tipo));
            }
        }
        dati.ImpostaCampo("IsTariffa", Value(true));
        const std::string quantita = textOf("FQuantita");
        dati.ImpostaCampo("Quantita", Value(trimmed(quantita).empty() ? std::string("0") : quantita));
        // A change stores 0 too: the link to an invoice does not survive a
        // change of the action.
        dati.ImpostaCampo("IdFattura", Value(std::int32_t{0}));
        dati.ImpostaCampo("IdEseguitoDa", Value(s_.idUtenteCorrente));
        dati.ImpostaCampo("IdVoceParcella", Value(s_.idTariffa));
        dati.ImpostaCampo("TabellaTariffa", Value(s_.idTariffa != 0 ? s_.sTabella : std::string()));
        dati.ImpostaCampo("InNotaSpese", Value(isOn("chkIncludi")));
        dati.Recordset().Update();
        const std::int32_t idAzione = dati.Campo("IdAzione", TipoNumero).toLong();

        if (!bNuova) {
            spostaDopoModifica(s_.idPratica, n, true, idAzione);
            chiudiTestaTariffa(s_.idPratica);
        }
        lavoro.commit();
        return true;
    } catch (const std::exception& error) {
        segnalaFallimento(error);
        return false;
    }
}

bool frmOKParcella::SalvaAzioneOraria(bool bNuova)
{
    BusyPointer busy(view());
    try {
        const std::int16_t n = numeroDigitato(textOf("FNumOrdine"));
        UnitOfWork lavoro(s_.idPratica);
        clsAccessoDati dati;
        apriRigaDaSalvare(dati, bNuova, s_.idPratica, n, false, s_.idAzioneCorrente);

        // The tariff fields (Codice, Diritti, Quantita, TipoAzione, the item
        // and its table, IdFattura) are not an hourly action's: a new row
        // keeps the table's defaults.
        ImpostaCampiComuni(dati, n);
        dati.ImpostaCampo("Descr", Value(textOf("txtDescrizione")));
        dati.ImpostaCampo("Onorari", Value(importoOZero("FImporto")));
        dati.ImpostaCampo("IsTariffa", Value(false));
        const std::string ore = trimmed(textOf("FOre"));
        dati.ImpostaCampo("Ore", Value(ore.empty() ? 0.0 : Value(ore).toDouble()));
        const std::string minuti = trimmed(textOf("FMinuti"));
        dati.ImpostaCampo("Minuti", Value(minuti.empty() ? std::int32_t{0} : Value(minuti).toLong()));
        // A change clears the invoiced mark as well.
        dati.ImpostaCampo("bFattura", Value(false));
        dati.ImpostaCampo("IdEseguitoDa", Value(s_.idEseguitoDa));
        dati.ImpostaCampo("InNotaSpese", Value(isOn("chkIncludi")));
        dati.Recordset().Update();
        const std::int32_t idAzione = dati.Campo("IdAzione", TipoNumero).toLong();

        if (!bNuova) {
            spostaDopoModifica(s_.idPratica, n, false, idAzione);
        }
        lavoro.commit();
        return true;
    } catch (const std::exception& error) {
        segnalaFallimento(error);
        return false;
    }
}

} // namespace avlor::dialog
