// Loading a recorded action into the entry so that it can be changed or
// deleted.
#include <charconv>
#include <exception>

#include "BusyPointer.h"
#include "Families.h"
#include "FieldText.h"
#include "avlor/core/Value.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/dialog/Statements.h"
#include "avlor/dialog/frmOKParcella.h"
#include "avlor/engine/CalcolaTariffaModulo.h"

namespace avlor::dialog {

namespace {

// The option of each stored kind of fee; 4 and 5 repeat 0 and 1.
const char* optionOfKind(std::int16_t tipo)
{
    switch (tipo) {
    case 0:
    case 4:
        return "optDiritti";
    case 1:
    case 5:
        return "optOnorari";
    case 2:
        return "optStragiudiziale";
    case 3:
        return "optPenale";
    default:
        return nullptr;
    }
}

} // namespace

// The grid's current row changing by the user's choice is what loads an
// action; the grid's own repositioning after a fill loads nothing.
void frmOKParcella::GrigliaParcella_RowColChange()
{
    const Control& grid = control("GrigliaParcella");
    if (grid.current < 0 || static_cast<std::size_t>(grid.current) >= grid.rows.size()) {
        return;
    }
    const std::string& key = grid.rows[static_cast<std::size_t>(grid.current)].front();
    std::int32_t id = 0;
    const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), id);
    if (error != std::errc() || end != key.data() + key.size()) {
        return;
    }
    s_.idAzioneCorrente = id;
    CaricaAzione();
}

void frmOKParcella::CaricaAzione()
{
    const std::int32_t id = s_.idAzioneCorrente;
    std::int16_t tipo = 0;
    bool tariffa = false;
    {
        BusyPointer busy(view());
        try {
            clsAccessoDati dati;
            dati.Apri(sql::azione(id), 1, 3, -1);
            tipo = dati.Campo("TipoAzione", TipoNumero).toInteger();
            tariffa = dati.Campo("IsTariffa", TipoNumero).toBool();
        } catch (const std::exception&) {
            return; // the action is gone or unreadable: nothing is loaded
        }
    }

    // Selecting the option raises its click only when it was not selected
    // already, as selecting it by program does; that click resets the date
    // to today and may abandon an earlier change, so the loaded action's key
    // is set again at the end.
    const char* option = tariffa ? optionOfKind(tipo) : "optOraria";
    if (option != nullptr && !isOn(option)) {
        selectOption(option);
        if (tariffa) {
            ScegliFamiglia(option);
        } else {
            optOraria_Click();
        }
        s_.idAzioneCorrente = id;
    }
    if (tariffa && option != nullptr) {
        const TableFamily family = *familyOfOption(option);
        if (s_.ValutaDefault == "EURO") {
            if (const std::optional<Date> day = Date::parseDayFirst(textOf("FData"))) {
                s_.sTabella = euroEdition(family, *day);
            }
        } else {
            s_.sTabella = tableOf(family, Edition::Lire94);
        }
    }

    BusyPointer busy(view());
    try {
        clsAccessoDati dati;
        dati.Apri(sql::azione(id), 1, 3, -1);
        const Value data = dati.Campo("Data", TipoData);
        const std::string dataText = data.isNull() || data.isEmpty() ? std::string() : data.toDate().toDayFirst();
        const std::string valuta = trimmed(plainText(dati.Campo("Valuta", TipoTesto)));
        static_cast<void>(dati.Campo("Cambio", TipoNumero));

        if (tariffa) {
            setControlText("FData", dataText);
            setControlText("FNumOrdine", plainText(dati.Campo("NOrdine", TipoNumero)));
            const Value nota = dati.Campo("InNotaSpese", TipoNumero);
            setValue("chkIncludi", !nota.isNull() && nota.toBool());
            setControlText("cmbCodice", plainText(dati.Campo("Codice", TipoTesto)));
            setControlText("cmbVoce", plainText(dati.Campo("Descr", TipoTesto)));
            setControlText("FQuantita", plainText(dati.Campo("Quantita", TipoTesto)));

            const Currency importo = amountOrZero(dati.Campo(tipo == 0 ? "Diritti" : "Onorari", TipoNumero));
            setControlText("FImporto", mostraImporto(importo, valuta));
            setControlText("FEsenti", mostraImporto(amountOrZero(dati.Campo("Esenti", TipoNumero)), valuta));
            setControlText("FImponibili", mostraImporto(amountOrZero(dati.Campo("Imponibili", TipoNumero)), valuta));

            std::string tabella = plainText(dati.Campo("TabellaTariffa", TipoTesto));
            const Value voce = dati.Campo("IdVoceParcella", TipoNumero);
            s_.idTariffa = voce.isNull() ? 0 : voce.toLong();
            if (s_.idTariffa > 0) {
                // The band comes from the table stored with the action; the
                // stored amount stays as it is.
                Currency valore = s_.Valore;
                std::int16_t rilevanza = s_.Rilevanza;
                std::int16_t indeterminato = s_.bIndeterminato ? std::int16_t{-1} : std::int16_t{0};
                std::int32_t item = s_.idTariffa;
                std::string autorita = s_.Autorita;
                Currency minT;
                Currency maxT;
                Currency minS;
                Currency maxS;
                static_cast<void>(CalcolaTariffaModulo(valore, rilevanza, tabella, indeterminato, item, minT, maxT,
                                                       minS, maxS, autorita));
                setControlText("FDenMinT", mostraImporto(minT, valuta));
                setControlText("FDenMaxT", mostraImporto(maxT, valuta));
                setControlText("FDenMinS", mostraImporto(minS, valuta));
                setControlText("FDenMaxS", mostraImporto(maxS, valuta));
            }
        } else {
            setControlText("FData", dataText);
            setControlText("txtDescrizione", plainText(dati.Campo("Descr", TipoTesto)));
            const Value eseguito = dati.Campo("IdEseguitoDa", TipoNumero);
            const std::int32_t performer = eseguito.isNull() ? 0 : eseguito.toLong();
            setControlText("FImporto", mostraImporto(amountOrZero(dati.Campo("Onorari", TipoNumero)), valuta));
            setControlText("FEsenti", mostraImporto(amountOrZero(dati.Campo("Esenti", TipoNumero)), valuta));
            setControlText("FImponibili", mostraImporto(amountOrZero(dati.Campo("Imponibili", TipoNumero)), valuta));
            setControlText("FNumOrdine", plainText(dati.Campo("NOrdine", TipoNumero)));
            setControlText("FOre", plainText(dati.Campo("Ore", TipoTesto)));
            setControlText("FMinuti", plainText(dati.Campo("Minuti", TipoTesto)));
            CaricaUtenti(performer);
        }
    } catch (const std::exception&) {
        // What was shown before the failure stays shown.
    }
    // The loaded action is the one in change mode.
    s_.idAzioneCorrente = id;
    s_.bModifica = true;
}

} // namespace avlor::dialog
