// The kind options, the table edition that the date selects, and the
// refusal of dates for which there is no fee table.
#include "Families.h"
#include "avlor/dialog/frmOKParcella.h"

namespace avlor::dialog {

void frmOKParcella::optDiritti_Click() { ScegliFamiglia("optDiritti"); }

void frmOKParcella::optOnorari_Click() { ScegliFamiglia("optOnorari"); }

void frmOKParcella::optPenale_Click() { ScegliFamiglia("optPenale"); }

void frmOKParcella::optStragiudiziale_Click() { ScegliFamiglia("optStragiudiziale"); }

void frmOKParcella::ScegliFamiglia(const std::string& opzione)
{
    const TableFamily family = *familyOfOption(opzione);
    ultimaFamiglia_ = opzione;
    if (s_.ValutaDefault == "LIRA") {
        s_.sTabella = tableOf(family, Edition::Lire94);
    } else if (const std::optional<Date> day = Date::parseDayFirst(textOf("FData"))) {
        // The edition comes from the date shown before the reset below.
        s_.sTabella = euroEdition(family, *day);
    }
    RipristinaInserimento();
}

// Steps shared by every option of tariff entry: the entry switches to
// tariff mode and starts afresh for a new action.
void frmOKParcella::RipristinaInserimento()
{
    MostraModoInserimento(false);

    setControlText("FData", today().toDayFirst());
    s_.idTariffa = 0;
    s_.ImportoVoce = Currency{};
    for (const char* list : {"cmbCodice", "cmbVoce"}) {
        setControlText(list, "");
        clearList(list);
    }
    for (const char* field : {"FImporto", "FDenMaxS", "FDenMaxT", "FDenMinS", "FDenMinT"}) {
        setControlText(field, "");
    }

    for (const char* name : {"FImporto", "FImponibili", "FEsenti", "lblImporto", "lblImponibili", "lblEsenti"}) {
        setEnabled(name, true);
    }

    // A change of kind abandons the change in progress. Leaving time entry
    // also brings back the tariff actions, since the grid listed the hourly
    // ones.
    if (s_.bModifica || !grigliaTariffa_) {
        RiempiGriglia(true);
        s_.bModifica = false;
        s_.idAzioneCorrente = 0;
    }

    setEnabled("cmdModifica", true);
    setEnabled("cmdCancella", true);
}

void frmOKParcella::optParcellaBase_Click()
{
    // Templates use no fee table: the table in use stays as it is, and the
    // entry starts afresh as for any tariff kind.
    RipristinaInserimento();
}

void frmOKParcella::FData_Change()
{
    const std::optional<Date> day = Date::parseDayFirst(textOf("FData"));
    if (!day) {
        return;
    }
    std::optional<TableFamily> family;
    for (const char* option : {"optDiritti", "optOnorari", "optPenale", "optStragiudiziale"}) {
        if (isOn(option)) {
            family = familyOfOption(option);
            break;
        }
    }
    if (!family) {
        return;
    }
    if (s_.ValutaDefault == "LIRA") {
        // In lire the edition never depends on the day: the chosen item and
        // its amounts stay.
        s_.sTabella = tableOf(*family, Edition::Lire94);
        return;
    }
    s_.sTabella = euroEdition(*family, Date::fromDayFirst(day->toDayFirst()));
    SvuotaScelta();
}

// In euro any change of date makes the user choose the item again, even
// when the edition stays the same.
void frmOKParcella::SvuotaScelta()
{
    for (const char* list : {"cmbCodice", "cmbVoce"}) {
        setControlText(list, "");
        clearList(list);
    }
    for (const char* field : {"FImporto", "FDenMaxS", "FDenMaxT", "FDenMinS", "FDenMinT"}) {
        setControlText(field, "");
    }
}

bool frmOKParcella::ControllaAnte94()
{
    const std::string& text = textOf("FData");
    if (text.empty()) {
        return true;
    }
    // Text that is not a date is taken like an empty field: only a real day
    // before the tables began is refused.
    const std::optional<Date> day = Date::parseDayFirst(text);
    if (day && *day < Date::fromDayFirst("01/10/1994")) {
        informa("ATTENZIONE : Il tariffario ante 94 non e' disponibile.");
        return false;
    }
    return true;
}

} // namespace avlor::dialog
