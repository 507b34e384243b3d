#pragma once
// The fee-entry dialog's own state between events, field by field under the
// names the dialog's logic uses. A copy is handed out read-only
// (frmOKParcella::state()) so that a driver or a test can show every field.
#include <cstdint>
#include <string>
#include <vector>

#include "avlor/core/Currency.h"

namespace avlor::dialog {

struct FormState {
    // The context handed over by Setta.
    std::int32_t idPratica = 0;
    std::string sParti;
    std::string sAdempEff;
    std::string sData;
    std::int32_t idUtenteCorrente = -1;

    // Read from the case file.
    Currency Valore;
    bool bIndeterminato = false;
    std::int16_t Rilevanza = 0;
    std::string Autorita;
    std::string ValutaPratica;
    // The case file's exchange rate, stored with each action written.
    Currency CambioPratica;

    // Read from the general configuration.
    std::string ValutaDefault;
    Currency CambioLiraEuro;

    // The fee table in use, the grid binding and the change in progress.
    std::string sTabella;
    std::vector<std::string> NomiCampi;
    bool bModifica = false;
    std::int32_t idAzioneCorrente = 0;

    // The tariff item (or template) chosen last and its unit amount.
    std::int32_t idTariffa = 0;
    Currency ImportoVoce;

    // The grid's text array, rows by the 14 columns.
    std::vector<std::vector<std::string>> ArrayAzioni;

    // The performer chosen in "Eseguito da" and that user's hourly rates.
    std::int32_t idEseguitoDa = 0;
    Currency TariffaEuro;
    Currency TariffaLira;

    bool operator==(const FormState&) const = default;
};

} // namespace avlor::dialog
