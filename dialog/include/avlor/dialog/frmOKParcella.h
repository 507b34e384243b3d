#pragma once
// frmOKParcella: the fee-entry dialog "Parcellazione Adempimento" as a plain
// object, without any user-interface toolkit. A front end (a window, the
// scriptable driver, a test) creates it, hands it the case file with Setta,
// runs Form_Load, then forwards the user's actions either to the event
// methods named after their control and event or through the generic input
// surface (setText, typeText, click, open, choose, chooseKey). It reads the
// state back through controls(), control(name) and state(), and learns what
// changed through its DialogView. Messages go through messageBoxes().
//
// The dialog works on the current practice database (avlor/data/Database.h):
// every routine that touches it opens its own record-access object and shows
// the busy pointer meanwhile.
#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "avlor/core/Currency.h"
#include "avlor/core/Date.h"
#include "avlor/core/Locale.h"
#include "avlor/dialog/Clock.h"
#include "avlor/dialog/Controls.h"
#include "avlor/dialog/DialogError.h"
#include "avlor/dialog/DialogView.h"
#include "avlor/dialog/FormState.h"

namespace avlor {
class clsAccessoDati;
}

namespace avlor::dialog {

// The dialog's caption.
inline constexpr const char* CaptionDialogo = "Parcellazione Adempimento";
// The title of the dialog's own message boxes: the component's name, which is
// what a message box without a title of its own shows.
inline constexpr const char* TitoloMessaggi = "AvlorLogic";

class frmOKParcella {
public:
    // `clock` gives "today" (the machine's day when null); `locale` gives the
    // separators with which amounts and dates are shown.
    explicit frmOKParcella(std::shared_ptr<const Clock> clock = nullptr, Locale locale = Locale::user());
    ~frmOKParcella();
    frmOKParcella(const frmOKParcella&) = delete;
    frmOKParcella& operator=(const frmOKParcella&) = delete;

    // The view told of every change; null restores the view that shows
    // nothing. The dialog does not own it: it must outlive its use.
    void setView(DialogView* view) noexcept;

    // ---- Context and start-up -------------------------------------------
    // Takes the case file, the parties line, the work done and the date of
    // the work ("DD/MM/YYYY"), and the current user from the settings store.
    void Setta(std::int32_t idP, const std::string& sParti, const std::string& sAdempEff, const std::string& sData);
    // The load: reads the case file and the configuration, chooses the table,
    // proposes the order number and fills the grid and the performer list.
    // When the case cannot be read the dialog closes (closed() true) without
    // a message. A work date that is not a date raises DialogError.
    void Form_Load();

    // ---- Events ---------------------------------------------------------
    void optDiritti_Click();
    void optOnorari_Click();
    void optPenale_Click();
    void optStragiudiziale_Click();
    void optOraria_Click();
    void optParcellaBase_Click();
    void FData_Change();
    // Opening a list refills it; choosing takes its current row.
    void cmbCodice_DropDown();
    void cmbCodice_Click();
    void cmbVoce_DropDown();
    void cmbVoce_Click();
    // The user moved to a row of the grid: that action is loaded for change.
    void GrigliaParcella_RowColChange();
    void cmbEseguito_Click();
    void FOre_Change();
    void FMinuti_Change();
    void chkIncludi_Click();
    void chkMosTut_Click();
    // The three buttons add, change and delete actions. Each press is one
    // unit of work: what it writes is kept whole or not at all, and a press
    // that fails says why and leaves the database as it was.
    void cmdAggiungi_Click();
    void cmdModifica_Click();
    void cmdCancella_Click();

    // ---- Generic input surface ------------------------------------------
    // Each refuses an unknown control, or one that has no such event, with a
    // DialogError naming it; nothing is changed then.
    //
    // Sets the text of a text box, a date, number or money field, or a
    // list's edit text, without raising any event.
    void setText(const std::string& name, const std::string& text);
    // As setText, then raises the control's change event (FData, FOre,
    // FMinuti; the other fields have none).
    void typeText(const std::string& name, const std::string& text);
    // A button or an option: raises its click (an option is selected first).
    // A check box: toggles its value, then raises its click.
    void click(const std::string& name);
    // Opens a list: its refill.
    void open(const std::string& name);
    // Chooses row `row` (from 0) of a list or of the grid and raises the
    // choice event.
    void choose(const std::string& name, int row);
    // Chooses the row of a list whose hidden key is `key`, or the grid row
    // whose first column (IdAzione) is that number.
    void chooseKey(const std::string& name, std::int32_t key);

    // ---- Reading the state ----------------------------------------------
    [[nodiscard]] const std::vector<Control>& controls() const noexcept { return controls_; }
    // DialogError for an unknown name.
    [[nodiscard]] const Control& control(const std::string& name) const;
    [[nodiscard]] FormState state() const { return s_; }
    // True once the dialog asked to be closed.
    [[nodiscard]] bool closed() const noexcept { return closed_; }
    // The control the dialog last put the focus on, if any.
    [[nodiscard]] std::optional<std::string> focused() const { return focused_; }
    // The amount a money field's text reads as (see MoneyText.h).
    [[nodiscard]] Currency amountOf(const std::string& name) const;
    [[nodiscard]] const Locale& locale() const noexcept { return locale_; }
    [[nodiscard]] Date today() const;

private:
    // Control state, with the view told of each change.
    Control& mutableControl(const std::string& name);
    void changed(const std::string& name);
    void setControlText(const std::string& name, const std::string& text);
    void setEnabled(const std::string& name, bool enabled);
    void setVisible(const std::string& name, bool visible);
    void setCaption(const std::string& name, const std::string& caption);
    void setValue(const std::string& name, bool value);
    void selectOption(const std::string& name);
    void clearList(const std::string& name);
    [[nodiscard]] bool isOn(const std::string& name) const;
    [[nodiscard]] const std::string& textOf(const std::string& name) const;
    void setFocus(const std::string& name);
    void requestClose();
    void setGridRows(std::vector<std::vector<std::string>> rows);
    [[nodiscard]] DialogView& view() const noexcept { return *view_; }
    // An information message with one OK button under the dialog's title.
    void informa(const std::string& text) const;

    // Start-up.
    bool LeggiPratica();
    void PreparaCampiDenaro();

    // Tables and the date.
    struct Famiglia;
    void ScegliFamiglia(const std::string& opzione);
    void RipristinaInserimento();
    [[nodiscard]] bool ControllaAnte94();
    void SvuotaScelta();

    // The two lists of tariff items and templates.
    void RiempiCodici();
    void RiempiVoci();
    void ScegliVoce(const std::string& lista);
    [[nodiscard]] bool vuoleParcellePenali() const;

    // The grid and the loading of an action.
    [[nodiscard]] std::vector<std::vector<std::string>> LeggiAzioni(bool bTariffa);
    void RiempiGriglia(bool bTariffa);
    void AggiornaGriglia();
    void CaricaAzione();

    // Order numbers.
    std::int32_t ProponiNOrdine(const std::string& sData, bool bTariffa, bool bNuova, std::int32_t IdAzione);

    // Storing actions.
    [[nodiscard]] bool ControllaDatiTariffa();
    [[nodiscard]] bool ControllaDatiOrari();
    [[nodiscard]] bool ConfermaSopraMassimo();
    bool SalvaAzioneTariffa(bool bNuova);
    bool SalvaAzioneOraria(bool bNuova);
    bool InserisciParcellaBase();
    void PreparaNuovaVoce();
    void SvuotaInserimentoOrario();
    void FineModifica();
    // Deleting.
    void EliminaAzione();
    // The exclamation message of a refused entry, with the focus sent to
    // the control to put right.
    void rifiuta(const std::string& text, const std::string& focus);
    // The message of a press that failed: nothing of it was kept.
    void segnalaFallimento(const std::exception& error) const;
    [[nodiscard]] Date dataInserita() const;
    [[nodiscard]] Currency importoOZero(const std::string& name) const;
    void ImpostaCampiComuni(clsAccessoDati& dati, std::int16_t n) const;

    // Hourly billing.
    void CaricaUtenti(std::int32_t IdUtente);
    void CalcolaImportoOrario();
    void MostraModoInserimento(bool bOraria);
    void TogliMenoIsolato(const std::string& name);

    [[nodiscard]] std::string formatoImporti(const std::string& valuta) const;
    [[nodiscard]] std::string mostraImporto(Currency amount, const std::string& valuta) const;

    std::shared_ptr<const Clock> clock_;
    Locale locale_;
    NullDialogView nullView_;
    DialogView* view_;
    std::vector<Control> controls_;
    FormState s_;
    bool closed_ = false;
    std::optional<std::string> focused_;
    // The family option chosen last, so that templates chosen after criminal
    // work list the criminal ones.
    std::string ultimaFamiglia_ = "optDiritti";
    // Whether the grid lists the tariff actions (or the hourly ones).
    bool grigliaTariffa_ = true;
    // The hourly rates (euro, lire) of the rows of cmbEseguito.
    std::vector<std::pair<Currency, Currency>> tariffeUtenti_;
    // The list state before a choice, put back when the choice is refused.
    struct ListaPrima {
        std::string name;
        int current = -1;
        std::string text;
    };
    std::optional<ListaPrima> listaPrima_;
};

} // namespace avlor::dialog
