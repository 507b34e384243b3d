// The dialog object: its controls, the view it tells of changes, and the
// generic input surface that front ends and the driver use.
#include "avlor/dialog/frmOKParcella.h"

#include <algorithm>
#include <array>
#include <utility>

#include "FieldText.h"
#include "avlor/core/Error.h"
#include "avlor/dialog/MoneyText.h"

namespace avlor::dialog {

namespace {

constexpr std::array<const char*, 6> OpzioniTipo = {"optOraria",         "optDiritti", "optOnorari",
                                                    "optStragiudiziale", "optPenale",  "optParcellaBase"};

} // namespace

frmOKParcella::frmOKParcella(std::shared_ptr<const Clock> clock, Locale locale)
    : clock_(clock ? std::move(clock) : std::make_shared<SystemClock>()), locale_(std::move(locale)), view_(&nullView_),
      controls_(initialControls())
{
}

frmOKParcella::~frmOKParcella() = default;

void frmOKParcella::setView(DialogView* view) noexcept { view_ = view != nullptr ? view : &nullView_; }

Date frmOKParcella::today() const { return clock_->today(); }

// ---- Control state --------------------------------------------------------

const Control& frmOKParcella::control(const std::string& name) const
{
    const auto found =
        std::find_if(controls_.begin(), controls_.end(), [&](const Control& control) { return control.name == name; });
    if (found == controls_.end()) {
        throw DialogError("Il dialogo \"" + std::string(CaptionDialogo) + "\" non ha un controllo di nome \"" + name +
                          "\"");
    }
    return *found;
}

Control& frmOKParcella::mutableControl(const std::string& name)
{
    return const_cast<Control&>(std::as_const(*this).control(name));
}

void frmOKParcella::changed(const std::string& name)
{
    if (name == "GrigliaParcella") {
        view_->gridChanged();
    }
    view_->controlChanged(name);
}

void frmOKParcella::setControlText(const std::string& name, const std::string& text)
{
    Control& target = mutableControl(name);
    if (target.text != text) {
        target.text = text;
        changed(name);
    }
}

void frmOKParcella::setEnabled(const std::string& name, bool enabled)
{
    Control& target = mutableControl(name);
    if (target.enabled != enabled) {
        target.enabled = enabled;
        changed(name);
    }
}

void frmOKParcella::setVisible(const std::string& name, bool visible)
{
    Control& target = mutableControl(name);
    if (target.visible != visible) {
        target.visible = visible;
        changed(name);
    }
}

void frmOKParcella::setCaption(const std::string& name, const std::string& caption)
{
    Control& target = mutableControl(name);
    if (target.caption != caption) {
        target.caption = caption;
        changed(name);
    }
}

void frmOKParcella::setValue(const std::string& name, bool value)
{
    Control& target = mutableControl(name);
    if (target.value != value) {
        target.value = value;
        changed(name);
    }
}

void frmOKParcella::selectOption(const std::string& name)
{
    // The kind options form one group: selecting one clears the others.
    for (const char* option : OpzioniTipo) {
        setValue(option, name == option);
    }
}

void frmOKParcella::clearList(const std::string& name)
{
    Control& target = mutableControl(name);
    if (!target.rows.empty() || !target.keys.empty() || target.current != -1) {
        target.rows.clear();
        target.keys.clear();
        target.current = -1;
        changed(name);
    }
}

bool frmOKParcella::isOn(const std::string& name) const { return control(name).value; }

const std::string& frmOKParcella::textOf(const std::string& name) const { return control(name).text; }

void frmOKParcella::setFocus(const std::string& name)
{
    focused_ = name;
    view_->focus(name);
}

void frmOKParcella::requestClose()
{
    closed_ = true;
    view_->closeRequested();
}

void frmOKParcella::setGridRows(std::vector<std::vector<std::string>> rows)
{
    Control& grid = mutableControl("GrigliaParcella");
    grid.rows = std::move(rows);
    // A fresh array puts the grid back at its start when there is a row.
    grid.current = grid.rows.empty() ? -1 : 0;
    changed("GrigliaParcella");
}

Currency frmOKParcella::amountOf(const std::string& name) const
{
    // The money fields by the captions a person sees beside them.
    static const std::pair<const char*, const char*> captions[] = {
        {"FImporto", "Importo"},     {"FImponibili", "Spese Imponibili"}, {"FEsenti", "Spese Esenti"},
        {"FDenMinT", "Tariffa Min"}, {"FDenMaxT", "Tariffa Max"},         {"FDenMinS", "Tariffa Min"},
        {"FDenMaxS", "Tariffa Max"}};
    const std::string& text = control(name).text;
    try {
        return readAmount(text, locale_);
    } catch (const ValueError& error) {
        if (error.kind() != ValueError::Kind::Overflow)
            throw;
        std::string caption = name;
        for (const auto& [field, shown] : captions) {
            if (name == field)
                caption = shown;
        }
        throw ValueError(ValueError::Kind::Overflow,
                         "L'importo «" + trimmed(text) + "» del campo " + caption +
                             " supera il massimo che si può registrare.");
    }
}

// ---- Generic input surface -------------------------------------------------

void frmOKParcella::setText(const std::string& name, const std::string& text)
{
    const Control& target = control(name);
    switch (target.kind) {
    case ControlKind::TextBox:
    case ControlKind::DateField:
    case ControlKind::NumberField:
    case ControlKind::MoneyField:
    case ControlKind::List:
        setControlText(name, text);
        return;
    default:
        throw DialogError("Nel controllo \"" + name + "\" (" + std::string(kindName(target.kind)) + ") non si scrive");
    }
}

void frmOKParcella::typeText(const std::string& name, const std::string& text)
{
    setText(name, text);
    if (name == "FData") {
        FData_Change();
    } else if (name == "FOre") {
        FOre_Change();
    } else if (name == "FMinuti") {
        FMinuti_Change();
    }
    // The other fields have no change handling: the text is all there is.
}

void frmOKParcella::click(const std::string& name)
{
    const Control& target = control(name);
    if (target.kind == ControlKind::Option) {
        selectOption(name);
        if (name == "optDiritti") {
            optDiritti_Click();
        } else if (name == "optOnorari") {
            optOnorari_Click();
        } else if (name == "optPenale") {
            optPenale_Click();
        } else if (name == "optStragiudiziale") {
            optStragiudiziale_Click();
        } else if (name == "optOraria") {
            optOraria_Click();
        } else {
            optParcellaBase_Click();
        }
        return;
    }
    if (target.kind == ControlKind::CheckBox) {
        setValue(name, !target.value);
        if (name == "chkIncludi") {
            chkIncludi_Click();
        } else {
            chkMosTut_Click();
        }
        return;
    }
    if (target.kind == ControlKind::Button) {
        if (name == "cmdAggiungi") {
            cmdAggiungi_Click();
        } else if (name == "cmdModifica") {
            cmdModifica_Click();
        } else {
            cmdCancella_Click();
        }
        return;
    }
    throw DialogError("Il controllo \"" + name + "\" (" + std::string(kindName(target.kind)) + ") non si clicca");
}

void frmOKParcella::open(const std::string& name)
{
    const Control& target = control(name);
    if (target.kind != ControlKind::List) {
        throw DialogError("Il controllo \"" + name + "\" (" + std::string(kindName(target.kind)) +
                          ") non è un elenco che si apre");
    }
    if (name == "cmbCodice") {
        cmbCodice_DropDown();
    } else if (name == "cmbVoce") {
        cmbVoce_DropDown();
    }
    // The performer list is filled by the dialog itself; opening it shows
    // the rows it holds.
}

void frmOKParcella::choose(const std::string& name, int row)
{
    const Control& target = control(name);
    if (target.kind != ControlKind::List && target.kind != ControlKind::Grid) {
        throw DialogError("Il controllo \"" + name + "\" (" + std::string(kindName(target.kind)) +
                          ") non ha righe da scegliere");
    }
    if (row < 0 || static_cast<std::size_t>(row) >= target.rows.size()) {
        throw DialogError("Il controllo \"" + name + "\" non ha la riga " + std::to_string(row) + " (ne ha " +
                          std::to_string(target.rows.size()) + ")");
    }
    if (target.kind == ControlKind::Grid) {
        Control& grid = mutableControl(name);
        grid.current = row;
        changed(name);
        GrigliaParcella_RowColChange();
        return;
    }
    listaPrima_ = ListaPrima{name, target.current, target.text};
    Control& list = mutableControl(name);
    list.current = row;
    const std::size_t index = static_cast<std::size_t>(row);
    list.text = list.rows[index].empty() ? std::string() : list.rows[index].front();
    changed(name);
    if (name == "cmbCodice") {
        cmbCodice_Click();
    } else if (name == "cmbVoce") {
        cmbVoce_Click();
    } else {
        cmbEseguito_Click();
    }
    listaPrima_.reset();
}

void frmOKParcella::chooseKey(const std::string& name, std::int32_t key)
{
    const Control& target = control(name);
    if (target.kind == ControlKind::List) {
        const auto found = std::find(target.keys.begin(), target.keys.end(), key);
        if (found == target.keys.end()) {
            throw DialogError("L'elenco \"" + name + "\" non ha una riga con chiave " + std::to_string(key));
        }
        choose(name, static_cast<int>(found - target.keys.begin()));
        return;
    }
    if (target.kind == ControlKind::Grid) {
        const std::string wanted = std::to_string(key);
        const auto found = std::find_if(target.rows.begin(), target.rows.end(),
                                        [&](const auto& row) { return !row.empty() && row.front() == wanted; });
        if (found == target.rows.end()) {
            throw DialogError("La griglia \"" + name + "\" non ha l'azione " + wanted);
        }
        choose(name, static_cast<int>(found - target.rows.begin()));
        return;
    }
    throw DialogError("Il controllo \"" + name + "\" (" + std::string(kindName(target.kind)) +
                      ") non ha righe da scegliere");
}

} // namespace avlor::dialog
