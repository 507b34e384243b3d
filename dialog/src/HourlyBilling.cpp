// Work billed by time: the performer list, the amount from hours and
// minutes, and the switch between tariff entry and time entry.
#include <exception>

#include "BusyPointer.h"
#include "FieldText.h"
#include "avlor/core/Format.h"
#include "avlor/core/Value.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/dialog/Statements.h"
#include "avlor/dialog/frmOKParcella.h"

namespace avlor::dialog {

void frmOKParcella::optOraria_Click()
{
    // Time entry abandons a change in progress, as the other kinds do, and
    // lists the hourly actions. The tariff fields keep their values.
    s_.bModifica = false;
    s_.idAzioneCorrente = 0;
    MostraModoInserimento(true);
    CaricaUtenti(s_.idUtenteCorrente);
    RiempiGriglia(false);
}

void frmOKParcella::CaricaUtenti(std::int32_t IdUtente)
{
    BusyPointer busy(view());
    clearList("cmbEseguito");
    tariffeUtenti_.clear();
    Control& list = mutableControl("cmbEseguito");
    try {
        clsAccessoDati dati;
        dati.Apri(sql::utenti(), 1, 3, -1);
        for (; !dati.Recordset().Eof(); dati.Recordset().MoveNext()) {
            const Currency euro = amountOrZero(dati.Campo("TariffaEuro", TipoNumero));
            const Currency lire = amountOrZero(dati.Campo("TariffaLira", TipoNumero));
            list.rows.push_back({plainText(dati.Campo("NomeUtente", TipoTesto)),
                                 formatAmount(euro, FormatoEuro, locale_), formatAmount(lire, FormatoLire, locale_)});
            list.keys.push_back(dati.Campo("ID_Utente", TipoNumero).toLong());
            tariffeUtenti_.emplace_back(euro, lire);
        }
    } catch (const std::exception&) {
        // Users that cannot be read leave the rows read so far.
    }
    // The given user's row becomes current and its rates are taken, without
    // pricing anew: a refill is not a choice of the user. A user who is not
    // in the list (no setting, a removed user) selects no row: the performer
    // is then chosen by hand, and no rate is assumed meanwhile.
    list.current = -1;
    list.text.clear();
    s_.idEseguitoDa = 0;
    s_.TariffaEuro = Currency{};
    s_.TariffaLira = Currency{};
    for (std::size_t row = 0; row < list.keys.size(); ++row) {
        if (list.keys[row] == IdUtente) {
            list.current = static_cast<int>(row);
            list.text = list.rows[row].front();
            s_.idEseguitoDa = IdUtente;
            s_.TariffaEuro = tariffeUtenti_[row].first;
            s_.TariffaLira = tariffeUtenti_[row].second;
            break;
        }
    }
    changed("cmbEseguito");
}

void frmOKParcella::cmbEseguito_Click()
{
    const Control& list = control("cmbEseguito");
    if (list.current < 0 || static_cast<std::size_t>(list.current) >= tariffeUtenti_.size()) {
        return;
    }
    const std::size_t row = static_cast<std::size_t>(list.current);
    s_.idEseguitoDa = list.keys[row];
    s_.TariffaEuro = tariffeUtenti_[row].first;
    s_.TariffaLira = tariffeUtenti_[row].second;
    CalcolaImportoOrario();
}

void frmOKParcella::FOre_Change()
{
    TogliMenoIsolato("FOre");
    CalcolaImportoOrario();
}

void frmOKParcella::FMinuti_Change()
{
    TogliMenoIsolato("FMinuti");
    CalcolaImportoOrario();
}

// A lone minus sign is no number: the field is cleared.
void frmOKParcella::TogliMenoIsolato(const std::string& name)
{
    if (trimmed(textOf(name)) == "-") {
        setControlText(name, "");
    }
}

void frmOKParcella::CalcolaImportoOrario()
{
    const Currency rate = s_.ValutaPratica == "LIRA" ? s_.TariffaLira : s_.TariffaEuro;
    Currency amount;
    try {
        amount = rate.timesDouble(numberLenient(textOf("FOre")));
        const double minutes = numberLenient(textOf("FMinuti"));
        if (minutes != 0) {
            // The rate per minute times the minutes, worked out as a double
            // and only then turned into an amount: so 60000 lire an hour for
            // 5 minutes is exactly 5000.
            const double perMinutes = rate.toDouble() / 60.0 * static_cast<double>(Value::dbl(minutes).toLong());
            amount = amount + Currency::fromDouble(perMinutes);
        }
    } catch (const std::exception&) {
        // Hours or minutes too large for an amount: the amount shown stays.
        return;
    }
    if (amount > Currency{}) {
        // Up to the thousand: the test is on 5000 although the unit is 1000,
        // and it applies in both currencies. So an exact 6000 becomes 7000
        // while 5000 and 10000 stay, and in euro a positive amount below 1000
        // becomes 1000 once its whole value is at least 1.
        const std::int64_t thousandRaw = 1000 * Currency::Scale;
        std::int64_t thousands = amount.raw() / thousandRaw;
        const std::int64_t whole = Value::currency(amount).toLong();
        if (whole % 5000 > 0) {
            ++thousands;
        }
        amount = Currency::fromWhole(thousands * 1000);
    }
    setControlText("FImporto", mostraImporto(amount, s_.ValutaPratica));
}

void frmOKParcella::MostraModoInserimento(bool bOraria)
{
    for (const char* name : {"fraMinMax", "fraStaord", "fraCodice", "fraN", "fraVoce", "lblMINMAXS", "lblMINMAXT"}) {
        setVisible(name, !bOraria);
    }
    for (const char* name : {"fraTempo", "fraEseguito", "fraDescrizione"}) {
        setVisible(name, bOraria);
    }
    // An hourly action keeps its amount in Onorari: the column says so. The
    // two trailing blanks belong to the captions.
    Control& grid = mutableControl("GrigliaParcella");
    const std::string caption = bOraria ? "Importo  " : "Onorari  ";
    if (grid.columns[7] != caption) {
        grid.columns[7] = caption;
        changed("GrigliaParcella");
    }
    if (s_.idAzioneCorrente != 0) {
        return; // the action loaded for change keeps its number
    }
    const std::optional<Date> day = Date::parseDayFirst(s_.sData);
    const std::string dayText = day ? day->toDayFirst() : s_.sData;
    setControlText("FNumOrdine", std::to_string(ProponiNOrdine(dayText, !bOraria, true, 0)));
}

} // namespace avlor::dialog
