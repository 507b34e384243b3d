// Taking the context, the load, and the reading of the case file and of the
// general configuration.
#include <exception>

#include "BusyPointer.h"
#include "FieldText.h"
#include "avlor/core/Format.h"
#include "avlor/core/Messages.h"
#include "avlor/core/Settings.h"
#include "avlor/core/Value.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/dialog/Statements.h"
#include "avlor/dialog/frmOKParcella.h"

namespace avlor::dialog {

void frmOKParcella::informa(const std::string& text) const
{
    static_cast<void>(messageBoxes().show(text, TitoloMessaggi, MsgIcon::Information, MsgButtons::Ok));
}

std::string frmOKParcella::formatoImporti(const std::string& valuta) const
{
    return std::string(valuta == "EURO" ? FormatoEuro : FormatoLire);
}

std::string frmOKParcella::mostraImporto(Currency amount, const std::string& valuta) const
{
    return formatAmount(amount, formatoImporti(valuta), locale_);
}

void frmOKParcella::Setta(std::int32_t idP, const std::string& sParti, const std::string& sAdempEff,
                          const std::string& sData)
{
    // A missing setting gives -1, text that is no number 0; nothing is said.
    const std::string idUtente = SettingsStore::read(AppAvlor, SezioneShared, ChiaveIdUtente, "-1");
    s_.idUtenteCorrente = Value::dbl(numberLenient(idUtente)).toLong();
    s_.sParti = sParti;
    s_.idPratica = idP;
    s_.sAdempEff = sAdempEff;
    s_.sData = sData;
}

void frmOKParcella::Form_Load()
{
    const std::optional<Date> workDate = Date::parseDayFirst(s_.sData);
    if (!workDate) {
        throw DialogError("La data del lavoro \"" + s_.sData +
                          "\" data al dialogo non è una data nella forma GG/MM/AAAA");
    }
    setCaption("lblClienteContro", s_.sParti);
    setCaption("lblAdempimento", s_.sAdempEff);
    // The date picker starts on today's date, as such a control does.
    setControlText("FData", today().toDayFirst());

    // The configuration is not read yet: the click takes a euro edition,
    // which the default table chosen below replaces.
    selectOption("optDiritti");
    optDiritti_Click();
    MostraModoInserimento(false);

    s_.NomiCampi = gridFieldNames();
    if (!LeggiPratica()) {
        requestClose();
        return;
    }

    if (s_.ValutaDefault == "LIRA") {
        s_.sTabella = "Diritti94";
    } else {
        // The date handed to the dialog decides, not the date field.
        s_.sTabella = Date::fromDayFirst("02/06/2004") <= *workDate ? "Diritti2004Euro" : "Diritti94Euro";
    }

    PreparaCampiDenaro();
    setControlText("FData", workDate->toDayFirst());
    setControlText("FNumOrdine", std::to_string(ProponiNOrdine(workDate->toDayFirst(), true, true, 0)));
    s_.bModifica = false;

    RiempiGriglia(true);
    CaricaUtenti(s_.idUtenteCorrente);
}

void frmOKParcella::PreparaCampiDenaro()
{
    for (const char* name : {"FDenMaxS", "FDenMaxT", "FDenMinT", "FDenMinS", "FImporto", "FImponibili", "FEsenti"}) {
        Control& field = mutableControl(name);
        field.currency = s_.ValutaDefault;
        field.exchangeRate = s_.CambioLiraEuro;
        changed(name);
    }
    // The quantity starts at one: an item applies once unless the user says
    // otherwise, as after every reset of the entry.
    setControlText("FQuantita", "1");
}

bool frmOKParcella::LeggiPratica()
{
    BusyPointer busy(view());
    try {
        clsAccessoDati dati;
        dati.Apri(sql::casoPratica(s_.idPratica), 1, 3, -1);

        const std::string valore = plainText(dati.Campo("Valore", TipoTesto));
        if (numberLenient(valore) > 0) {
            s_.Valore = dati.Campo("Valore", TipoNumero).toCurrency();
            s_.bIndeterminato = false;
        } else {
            s_.Valore = Currency{};
            s_.bIndeterminato = true;
        }

        // Exact comparison: "Euro" is not the euro word and counts as lire.
        if (trimmed(plainText(dati.Campo("Valuta", TipoTesto))) == "EURO") {
            s_.ValutaPratica = "EURO";
            if (s_.sTabella.find("Euro") == std::string::npos) {
                s_.sTabella += "Euro";
            }
        } else {
            s_.ValutaPratica = "LIRA";
        }

        s_.CambioPratica = amountOrZero(dati.Campo("Cambio", TipoNumero));
        s_.Rilevanza = dati.Campo("Rilevanza", TipoNumero).toInteger();
        s_.Autorita = plainText(dati.Campo("Autorita", TipoTesto));

        dati.Apri(sql::configGenerale(), 1, 3, -1);
        s_.ValutaDefault = plainText(dati.Campo("ValutaDefault", TipoTesto));
        s_.CambioLiraEuro = dati.Campo("CambioLiraEuro", TipoNumero).toCurrency();
        return true;
    } catch (const std::exception&) {
        // A case file or a configuration that cannot be read ends the
        // dialog; the caller closes it without a message of its own.
        return false;
    }
}

} // namespace avlor::dialog
