#pragma once
// FeeEntryWindow: the fee-entry dialog "Parcellazione Adempimento" on screen,
// a Qt 6 Widgets dialog over the toolkit-free dialog object. Each control of
// the dialog is one widget of its kind, named after the control
// (QObject::objectName), so that tests and accessibility tools find it:
//   - frames are group boxes, labels labels, options radio buttons, check
//     boxes check boxes, buttons push buttons;
//   - the text box, number and money fields are line edits, the work date a
//     date edit with a calendar that shows and accepts "DD/MM/YYYY";
//   - the three lists are drop-downs whose pop-up shows every column under
//     its caption, each row keeping its hidden key;
//   - the grid is a table of the dialog's text array under its 14 column
//     captions, the keys and flags hidden.
// The window only forwards: a widget's signal becomes the dialog's event (or
// a call of its input surface), and whatever the dialog changes comes back
// through its view and is shown. It keeps nothing between openings.
//
// While the window exists, the component's message boxes are real Qt ones
// (QtMessageBoxes); the ones in force before are put back when it goes.
#include <QDialog>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "avlor/dialog/DialogView.h"
#include "avlor/dialog/frmOKParcella.h"
#include "avlor/ui/QtMessageBoxes.h"

class QTableWidget;

namespace avlor::ui {

class FeeEntryWindow final : public QDialog, private dialog::DialogView {
public:
    // The window becomes the dialog's view; the dialog must outlive it.
    // `parent` null makes a window of its own (no owner).
    explicit FeeEntryWindow(dialog::frmOKParcella& dialog, QWidget* parent = nullptr);
    ~FeeEntryWindow() override;
    FeeEntryWindow(const FeeEntryWindow&) = delete;
    FeeEntryWindow& operator=(const FeeEntryWindow&) = delete;

    // Hands the dialog its case file (Setta) and runs its load. False when
    // the dialog closed itself because the case could not be read: the
    // window is then not to be shown.
    bool start(std::int32_t idPratica, const std::string& parti, const std::string& adempimento,
               const std::string& workDate);

    // The widget that shows a control (null for an unknown name).
    [[nodiscard]] QWidget* widgetOf(const std::string& name) const;
    [[nodiscard]] dialog::frmOKParcella& dialogObject() noexcept { return dialog_; }

    void setVisible(bool visible) override;

private:
    // DialogView.
    void controlChanged(const std::string& name) override;
    void gridChanged() override;
    void focus(const std::string& name) override;
    void busy(bool on) override;
    void closeRequested() override;

    void build();
    void connectSignals();
    void setTabOrderFromLayout();
    void showControl(const dialog::Control& control);
    void showGrid();
    void fitGridColumns();
    void showLoadedAction();
    // Runs one event of the dialog; an error it raises is shown in a message
    // box instead of escaping into Qt's event loop.
    template <typename F>
    void forward(F&& event);
    void moneyFieldLeft(const std::string& name);

    dialog::frmOKParcella& dialog_;
    ScopedQtMessageBoxes messageBoxes_;
    std::map<std::string, QWidget*> widgets_;
    QTableWidget* grid_ = nullptr;
    // What the grid shows, to refill it only when the dialog's array changed.
    std::vector<std::string> gridColumns_;
    std::vector<std::vector<std::string>> gridRows_;
    // Money fields the user typed into since they last had their amount
    // shown in the field's format.
    std::map<std::string, bool> typedMoney_;
    // How many of the user's events are being run: the grid shows which
    // action is loaded once they have ended.
    int eventDepth_ = 0;
    int busyDepth_ = 0;
    bool closed_ = false;
};

} // namespace avlor::ui
