#include "avlor/ui/FeeEntryWindow.h"

#include <QApplication>
#include <QCheckBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <exception>
#include <set>
#include <string_view>

#include "MultiColumnCombo.h"
#include "avlor/core/Format.h"
#include "avlor/dialog/MoneyText.h"

namespace avlor::ui {

namespace {

using dialog::Control;
using dialog::ControlKind;

QString qtext(const std::string& text) { return QString::fromStdString(text); }

// The date field's form, the one the dialog reads and writes.
const QString DateForm = QStringLiteral("dd/MM/yyyy");

// Grid columns that hold keys, flags and numbers the user has no use for;
// their data stays in the row for the dialog.
bool hiddenGridField(const std::string& field)
{
    static const std::set<std::string> hidden = {"IdAzione", "bFattura",     "NOrdine",
                                                 "Quantita", "IdEseguitoDa", "InNotaSpese"};
    return hidden.count(field) != 0;
}

bool amountGridField(const std::string& field)
{
    static const std::set<std::string> amounts = {"Quantita", "Diritti", "Onorari", "Imponibili", "Esenti", "Ore"};
    return amounts.count(field) != 0;
}

// The grid column of the action's description: it takes the width the other
// columns leave and shortens a long text (shown whole in its tip).
constexpr std::string_view DescriptionField = "Descr";

// What the controls without a caption of their own hold, told by their tip.
const QString TipQuantita = QStringLiteral("Quantit\u00e0: quante volte si applica la voce di parcella scelta");
const QString TipMinMax = QStringLiteral("Tariffa minima e massima per la voce di parcella scelta");
const QString TipStraordinaria =
    QStringLiteral("Fascia straordinaria: tariffa minima e massima per la voce di parcella scelta");

// The label text of a label control: its caption, or its text when the
// dialog writes that instead.
QString labelText(const Control& control) { return qtext(control.caption.empty() ? control.text : control.caption); }

} // namespace

FeeEntryWindow::FeeEntryWindow(dialog::frmOKParcella& dialog, QWidget* parent) : QDialog(parent), dialog_(dialog)
{
    setObjectName(QStringLiteral("frmOKParcella"));
    setWindowTitle(qtext(dialog::CaptionDialogo));
    setModal(true);
    setSizeGripEnabled(true);
    build();
    for (const Control& control : dialog_.controls()) {
        showControl(control);
    }
    showGrid();
    connectSignals();
    setTabOrderFromLayout();
    dialog_.setView(this);
    resize(1180, 740);
}

FeeEntryWindow::~FeeEntryWindow()
{
    dialog_.setView(nullptr);
    while (busyDepth_ > 0) {
        QApplication::restoreOverrideCursor();
        --busyDepth_;
    }
}

bool FeeEntryWindow::start(std::int32_t idPratica, const std::string& parti, const std::string& adempimento,
                           const std::string& workDate)
{
    dialog_.Setta(idPratica, parti, adempimento, workDate);
    dialog_.Form_Load();
    return !dialog_.closed();
}

void FeeEntryWindow::setVisible(bool visible)
{
    // The window's size limits follow from its layout. Settled before the
    // window is made on the screen, they go with it; settled just after (as
    // Qt does on a first showing), they have to be passed on to a window
    // that exists already, which a platform without a window manager (the
    // offscreen one) cannot do and says so on standard error at each opening.
    if (visible && layout() != nullptr) {
        ensurePolished();
        layout()->activate();
    }
    QDialog::setVisible(visible);
}

QWidget* FeeEntryWindow::widgetOf(const std::string& name) const
{
    const auto found = widgets_.find(name);
    return found == widgets_.end() ? nullptr : found->second;
}

// ---- Building ------------------------------------------------------------

void FeeEntryWindow::build()
{
    // One widget per control, of the control's kind, with the control's name.
    for (const Control& control : dialog_.controls()) {
        QWidget* widget = nullptr;
        switch (control.kind) {
        case ControlKind::Frame:
            widget = new QGroupBox(this);
            break;
        case ControlKind::Label: {
            auto* label = new QLabel(this);
            label->setTextFormat(Qt::PlainText);
            widget = label;
            break;
        }
        case ControlKind::Option:
            widget = new QRadioButton(this);
            break;
        case ControlKind::CheckBox:
            widget = new QCheckBox(this);
            break;
        case ControlKind::TextBox:
            widget = new QLineEdit(this);
            break;
        case ControlKind::DateField: {
            auto* date = new QDateEdit(this);
            date->setDisplayFormat(DateForm);
            date->setCalendarPopup(true);
            widget = date;
            break;
        }
        case ControlKind::NumberField:
        case ControlKind::MoneyField: {
            auto* field = new QLineEdit(this);
            field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            if (control.kind == ControlKind::NumberField) {
                // Digits, a sign and a decimal part; the dialog reads the
                // text leniently.
                field->setValidator(new QRegularExpressionValidator(
                    QRegularExpression(QStringLiteral("-?[0-9]*([.,][0-9]*)?")), field));
            }
            widget = field;
            break;
        }
        case ControlKind::List: {
            auto* list = new MultiColumnCombo(this);
            // The tariff lists take typed text (the dialog finds the row that
            // shows it again after a refill); the performer list is chosen
            // from only.
            const bool typed = control.name != "cmbEseguito";
            list->setEditable(typed);
            if (typed) {
                list->setInsertPolicy(QComboBox::NoInsert);
                list->setCompleter(nullptr);
            }
            widget = list;
            break;
        }
        case ControlKind::Button: {
            auto* button = new QPushButton(this);
            button->setAutoDefault(false);
            widget = button;
            break;
        }
        case ControlKind::Grid: {
            grid_ = new QTableWidget(this);
            grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
            grid_->setSelectionMode(QAbstractItemView::SingleSelection);
            grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
            grid_->setAlternatingRowColors(true);
            grid_->verticalHeader()->setVisible(false);
            grid_->horizontalHeader()->setHighlightSections(false);
            // One line per action: a description too long for its column
            // ends in an ellipsis rather than wrapping out of sight.
            grid_->setWordWrap(false);
            grid_->setTextElideMode(Qt::ElideRight);
            // The grid's background is the colour of the buttons' face.
            QPalette palette = grid_->palette();
            palette.setColor(QPalette::Base, palette.color(QPalette::Button));
            grid_->setPalette(palette);
            widget = grid_;
            break;
        }
        }
        widget->setObjectName(qtext(control.name));
        widgets_[control.name] = widget;
    }

    // The buttons without a caption of their own show what they do by their
    // picture and tip.
    auto* modifica = static_cast<QPushButton*>(widgetOf("cmdModifica"));
    modifica->setIcon(style()->standardIcon(QStyle::SP_DialogApplyButton));
    modifica->setToolTip(QStringLiteral("Modifica"));
    modifica->setAccessibleName(QStringLiteral("Modifica"));
    auto* cancella = static_cast<QPushButton*>(widgetOf("cmdCancella"));
    cancella->setIcon(style()->standardIcon(QStyle::SP_TrashIcon));
    cancella->setToolTip(QStringLiteral("Cancella"));
    cancella->setAccessibleName(QStringLiteral("Cancella"));

    // The quantity and the two bands have no caption of their own.
    for (const char* name : {"fraN", "FQuantita"}) {
        widgetOf(name)->setToolTip(TipQuantita);
    }
    widgetOf("FQuantita")->setAccessibleName(QStringLiteral("Quantit\u00e0"));
    widgetOf("fraMinMax")->setToolTip(TipMinMax);
    widgetOf("fraStaord")->setToolTip(TipStraordinaria);

    // Labels name the field beside them (their accelerators and screen
    // readers use it).
    for (const auto& [label, field] : std::vector<std::pair<const char*, const char*>>{{"lblImporto", "FImporto"},
                                                                                       {"lblImponibili", "FImponibili"},
                                                                                       {"lblEsenti", "FEsenti"},
                                                                                       {"lblMinT", "FDenMinT"},
                                                                                       {"lblMaxT", "FDenMaxT"},
                                                                                       {"lblMinS", "FDenMinS"},
                                                                                       {"lblMaxS", "FDenMaxS"},
                                                                                       {"lblOre", "FOre"},
                                                                                       {"lblMinuti", "FMinuti"}}) {
        static_cast<QLabel*>(widgetOf(label))->setBuddy(widgetOf(field));
    }

    const auto frame = [this](const char* name) { return static_cast<QGroupBox*>(widgetOf(name)); };
    const auto within = [&](const char* name, QLayout* layout) {
        frame(name)->setLayout(layout);
        return layout;
    };
    const auto single = [&](const char* name, const char* child) {
        auto* layout = new QHBoxLayout;
        layout->addWidget(widgetOf(child));
        within(name, layout);
    };

    // The frames and what each holds.
    single("fraClienteContro", "lblClienteContro");
    single("fraAdempimento", "lblAdempimento");
    for (const char* label : {"lblClienteContro", "lblAdempimento"}) {
        auto* shown = static_cast<QLabel*>(widgetOf(label));
        shown->setWordWrap(true);
        shown->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    {
        auto* layout = new QHBoxLayout;
        for (const char* option :
             {"optOraria", "optDiritti", "optOnorari", "optStragiudiziale", "optPenale", "optParcellaBase"}) {
            layout->addWidget(widgetOf(option));
        }
        layout->addStretch();
        within("fraTipo", layout);
    }
    single("fraCodice", "cmbCodice");
    single("fraVoce", "cmbVoce");
    single("fraDescrizione", "txtDescrizione");
    single("fraData", "FData");
    single("fraOrdine", "FNumOrdine");
    single("fraN", "FQuantita");
    single("fraEseguito", "cmbEseguito");
    const auto pairs = [&](const char* name, std::vector<std::pair<const char*, const char*>> rows) {
        auto* layout = new QGridLayout;
        int row = 0;
        for (const auto& [label, field] : rows) {
            layout->addWidget(widgetOf(label), row, 0);
            layout->addWidget(widgetOf(field), row, 1);
            ++row;
        }
        layout->setColumnStretch(1, 1);
        within(name, layout);
    };
    pairs("fraImporto", {{"lblImporto", "FImporto"}, {"lblImponibili", "FImponibili"}, {"lblEsenti", "FEsenti"}});
    pairs("fraMinMax", {{"lblMinT", "FDenMinT"}, {"lblMaxT", "FDenMaxT"}});
    pairs("fraStaord", {{"lblMinS", "FDenMinS"}, {"lblMaxS", "FDenMaxS"}});
    {
        auto* layout = new QHBoxLayout;
        layout->addWidget(widgetOf("FOre"));
        layout->addWidget(widgetOf("lblOre"));
        layout->addWidget(widgetOf("FMinuti"));
        layout->addWidget(widgetOf("lblMinuti"));
        within("fraTempo", layout);
    }

    // The window, top to bottom in the order of entry.
    auto* main = new QVBoxLayout(this);
    {
        auto* row = new QHBoxLayout;
        row->addWidget(widgetOf("fraClienteContro"), 1);
        row->addWidget(widgetOf("fraAdempimento"), 1);
        main->addLayout(row);
    }
    main->addWidget(widgetOf("fraTipo"));
    {
        auto* row = new QHBoxLayout;
        row->addWidget(widgetOf("fraCodice"), 2);
        row->addWidget(widgetOf("fraVoce"), 5);
        row->addWidget(widgetOf("fraDescrizione"), 5);
        main->addLayout(row);
    }
    {
        auto* row = new QHBoxLayout;
        row->addWidget(widgetOf("fraData"));
        row->addWidget(widgetOf("fraOrdine"));
        row->addWidget(widgetOf("fraN"));
        row->addWidget(widgetOf("fraEseguito"), 1);
        row->addWidget(widgetOf("fraTempo"));
        row->addStretch();
        main->addLayout(row);
    }
    {
        auto* row = new QHBoxLayout;
        row->addWidget(widgetOf("fraImporto"), 3);
        for (const auto& [label, frameName] : std::vector<std::pair<const char*, const char*>>{
                 {"lblMINMAXT", "fraMinMax"}, {"lblMINMAXS", "fraStaord"}}) {
            auto* column = new QVBoxLayout;
            column->addWidget(widgetOf(label));
            column->addWidget(widgetOf(frameName), 1);
            row->addLayout(column, 2);
        }
        main->addLayout(row);
    }
    {
        auto* row = new QHBoxLayout;
        row->addWidget(widgetOf("chkIncludi"));
        row->addWidget(widgetOf("chkMosTut"));
        row->addStretch();
        row->addWidget(widgetOf("cmdAggiungi"));
        row->addWidget(widgetOf("cmdModifica"));
        row->addWidget(widgetOf("cmdCancella"));
        main->addLayout(row);
    }
    main->addWidget(grid_, 1);
    for (const char* field : {"FData", "FNumOrdine", "FQuantita"}) {
        widgetOf(field)->setMinimumWidth(90);
    }
    for (const char* field : {"FNumOrdine", "FQuantita"}) {
        widgetOf(field)->setMaximumWidth(120);
    }
    // The frames of the short fields keep to their size; the performer's
    // takes the room left.
    for (const char* name : {"fraData", "fraOrdine", "fraN", "fraTempo"}) {
        widgetOf(name)->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    }
    for (const char* field : {"FOre", "FMinuti"}) {
        widgetOf(field)->setMaximumWidth(70);
    }
}

void FeeEntryWindow::setTabOrderFromLayout()
{
    // The keyboard goes through the controls in the order the dialog lays
    // them out, which is the order of entry.
    QWidget* previous = nullptr;
    for (const Control& control : dialog_.controls()) {
        if (control.kind == ControlKind::Frame || control.kind == ControlKind::Label) {
            continue;
        }
        QWidget* widget = widgetOf(control.name);
        if (previous != nullptr) {
            QWidget::setTabOrder(previous, widget);
        }
        previous = widget;
    }
}

// ---- From the widgets to the dialog --------------------------------------

template <typename F>
void FeeEntryWindow::forward(F&& event)
{
    ++eventDepth_;
    try {
        event();
    } catch (const std::exception& error) {
        messageBoxes().show(error.what(), dialog::TitoloMessaggi, MsgIcon::Critical, MsgButtons::Ok);
    }
    --eventDepth_;
    // An event may load an action or let go of one after the grid was last
    // refilled (a press stores, then refills, then ends the change).
    if (eventDepth_ == 0) {
        showLoadedAction();
    }
}

void FeeEntryWindow::connectSignals()
{
    for (const Control& control : dialog_.controls()) {
        const std::string name = control.name;
        QWidget* widget = widgetOf(name);
        switch (control.kind) {
        case ControlKind::Option:
            // Only a choice that changes the kind of entry is an event: the
            // option already chosen does nothing when clicked again.
            connect(static_cast<QAbstractButton*>(widget), &QAbstractButton::clicked, this, [this, name] {
                if (!dialog_.control(name).value) {
                    forward([&] { dialog_.click(name); });
                }
            });
            break;
        case ControlKind::CheckBox:
        case ControlKind::Button:
            connect(static_cast<QAbstractButton*>(widget), &QAbstractButton::clicked, this,
                    [this, name] { forward([&] { dialog_.click(name); }); });
            break;
        case ControlKind::TextBox:
        case ControlKind::NumberField:
            connect(static_cast<QLineEdit*>(widget), &QLineEdit::textEdited, this, [this, name](const QString& text) {
                forward([&] { dialog_.typeText(name, text.toStdString()); });
            });
            break;
        case ControlKind::MoneyField: {
            auto* field = static_cast<QLineEdit*>(widget);
            connect(field, &QLineEdit::textEdited, this, [this, name](const QString& text) {
                typedMoney_[name] = true;
                forward([&] { dialog_.typeText(name, text.toStdString()); });
            });
            connect(field, &QLineEdit::editingFinished, this, [this, name] { moneyFieldLeft(name); });
            break;
        }
        case ControlKind::DateField:
            connect(static_cast<QDateEdit*>(widget), &QDateEdit::dateChanged, this, [this, name](QDate date) {
                forward([&] { dialog_.typeText(name, date.toString(DateForm).toStdString()); });
            });
            break;
        case ControlKind::List: {
            auto* list = static_cast<MultiColumnCombo*>(widget);
            list->aboutToOpen = [this, name] { forward([&] { dialog_.open(name); }); };
            connect(list, &QComboBox::activated, this,
                    [this, name](int row) { forward([&] { dialog_.choose(name, row); }); });
            if (list->isEditable()) {
                connect(list->lineEdit(), &QLineEdit::textEdited, this, [this, name](const QString& text) {
                    forward([&] { dialog_.setText(name, text.toStdString()); });
                });
            }
            break;
        }
        case ControlKind::Grid:
            connect(grid_, &QTableWidget::currentCellChanged, this,
                    [this, name](int row, int column, int previousRow, int previousColumn) {
                        if (row < 0 || (row == previousRow && column == previousColumn)) {
                            return;
                        }
                        forward([&] { dialog_.choose(name, row); });
                    });
            break;
        case ControlKind::Frame:
        case ControlKind::Label:
            break;
        }
    }
}

void FeeEntryWindow::moneyFieldLeft(const std::string& name)
{
    // Once the user leaves a money field he typed into, it shows the amount
    // it reads as in its currency's format, as it would have been proposed.
    if (!typedMoney_[name]) {
        return;
    }
    typedMoney_[name] = false;
    forward([&] {
        const Control& field = dialog_.control(name);
        if (field.text.empty()) {
            return;
        }
        const Currency amount = dialog::readAmount(field.text, dialog_.locale());
        const std::string_view pattern = field.currency == "EURO" ? FormatoEuro : FormatoLire;
        dialog_.setText(name, formatAmount(amount, pattern, dialog_.locale()));
    });
}

// ---- From the dialog to the widgets --------------------------------------

void FeeEntryWindow::controlChanged(const std::string& name)
{
    if (name == "GrigliaParcella") {
        showGrid();
        return;
    }
    showControl(dialog_.control(name));
}

void FeeEntryWindow::gridChanged() { showGrid(); }

void FeeEntryWindow::showControl(const Control& control)
{
    QWidget* widget = widgetOf(control.name);
    if (widget == nullptr) {
        return;
    }
    const QSignalBlocker blocker(widget);
    switch (control.kind) {
    case ControlKind::Frame:
        static_cast<QGroupBox*>(widget)->setTitle(qtext(control.caption));
        break;
    case ControlKind::Label:
        static_cast<QLabel*>(widget)->setText(labelText(control));
        break;
    case ControlKind::Option:
    case ControlKind::CheckBox: {
        auto* button = static_cast<QAbstractButton*>(widget);
        button->setText(qtext(control.caption));
        if (control.kind == ControlKind::Option && !control.value) {
            // A radio button of a group is cleared by checking another; to
            // show none checked the group lets go of its exclusiveness.
            button->setAutoExclusive(false);
            button->setChecked(false);
            button->setAutoExclusive(true);
        } else {
            button->setChecked(control.value);
        }
        break;
    }
    case ControlKind::Button:
        static_cast<QPushButton*>(widget)->setText(qtext(control.caption));
        break;
    case ControlKind::TextBox:
    case ControlKind::NumberField:
    case ControlKind::MoneyField: {
        auto* field = static_cast<QLineEdit*>(widget);
        if (field->text() != qtext(control.text)) {
            field->setText(qtext(control.text));
        }
        if (control.kind == ControlKind::MoneyField) {
            field->setToolTip(qtext(control.currency));
        }
        break;
    }
    case ControlKind::DateField: {
        const QDate date = QDate::fromString(qtext(control.text), QStringLiteral("d/M/yyyy"));
        if (date.isValid()) {
            static_cast<QDateEdit*>(widget)->setDate(date);
        }
        break;
    }
    case ControlKind::List: {
        auto* list = static_cast<MultiColumnCombo*>(widget);
        if (list->columnCaptions() != control.columns) {
            list->setColumns(control.columns);
        }
        bool same = list->count() == static_cast<int>(control.rows.size());
        for (int r = 0; same && r < list->count(); ++r) {
            same = list->itemText(r) ==
                    qtext(control.rows[static_cast<std::size_t>(r)].empty()
                              ? std::string()
                              : control.rows[static_cast<std::size_t>(r)].front()) &&
                list->keyAt(r) == control.keys[static_cast<std::size_t>(r)];
        }
        if (!same) {
            list->setRows(control.rows, control.keys);
        }
        list->setCurrentIndex(control.current);
        if (list->isEditable() && list->currentText() != qtext(control.text)) {
            list->setEditText(qtext(control.text));
        }
        break;
    }
    case ControlKind::Grid:
        break;
    }
    widget->setEnabled(control.enabled);
    widget->setVisible(control.visible);
}

void FeeEntryWindow::showGrid()
{
    const Control& control = dialog_.control("GrigliaParcella");
    const QSignalBlocker blocker(grid_);
    const auto& fields = dialog::gridFieldNames();
    const bool captionsChanged = control.columns != gridColumns_;
    if (captionsChanged) {
        grid_->setColumnCount(static_cast<int>(control.columns.size()));
        QStringList captions;
        for (const std::string& caption : control.columns) {
            captions << qtext(caption);
        }
        grid_->setHorizontalHeaderLabels(captions);
        for (std::size_t c = 0; c < control.columns.size() && c < fields.size(); ++c) {
            const int column = static_cast<int>(c);
            grid_->setColumnHidden(column, hiddenGridField(fields[c]));
            grid_->horizontalHeader()->setSectionResizeMode(
                column, fields[c] == DescriptionField ? QHeaderView::Stretch : QHeaderView::Interactive);
        }
        gridColumns_ = control.columns;
    }
    bool refit = captionsChanged;
    if (control.rows != gridRows_) {
        grid_->setRowCount(static_cast<int>(control.rows.size()));
        for (std::size_t r = 0; r < control.rows.size(); ++r) {
            for (std::size_t c = 0; c < control.columns.size(); ++c) {
                const std::string text = c < control.rows[r].size() ? control.rows[r][c] : std::string();
                auto* item = new QTableWidgetItem(qtext(text));
                if (c < fields.size() && amountGridField(fields[c])) {
                    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
                }
                if (c < fields.size() && fields[c] == DescriptionField) {
                    item->setToolTip(qtext(text));
                }
                grid_->setItem(static_cast<int>(r), static_cast<int>(c), item);
            }
        }
        gridRows_ = control.rows;
        refit = true;
    }
    if (refit) {
        fitGridColumns();
    }
    if (eventDepth_ == 0) {
        showLoadedAction();
    }
    grid_->setEnabled(control.enabled);
    grid_->setVisible(control.visible);
}

void FeeEntryWindow::fitGridColumns()
{
    // Every column but the description's is as wide as its caption and its
    // widest cell need, so that amounts are shown whole; the description
    // takes what is left of the grid's width.
    const auto& fields = dialog::gridFieldNames();
    for (int column = 0; column < grid_->columnCount(); ++column) {
        const auto c = static_cast<std::size_t>(column);
        if (grid_->isColumnHidden(column) || (c < fields.size() && fields[c] == DescriptionField)) {
            continue;
        }
        grid_->resizeColumnToContents(column);
    }
}

void FeeEntryWindow::showLoadedAction()
{
    // The grid highlights the action loaded for change, and no row while
    // none is: the first row the grid comes back to after a fill is not a
    // choice of the user's. With no current cell, moving into the grid with
    // the keyboard does not load the first action either.
    const std::int32_t loaded = dialog_.state().idAzioneCorrente;
    int row = -1;
    if (loaded != 0) {
        const QString key = QString::number(loaded);
        for (int r = 0; r < grid_->rowCount() && row < 0; ++r) {
            const QTableWidgetItem* item = grid_->item(r, 0);
            if (item != nullptr && item->text() == key) {
                row = r;
            }
        }
    }
    const QSignalBlocker blocker(grid_);
    if (row < 0) {
        grid_->setCurrentIndex(QModelIndex());
        grid_->clearSelection();
        return;
    }
    if (grid_->currentRow() != row) {
        // The first column the user sees.
        int column = 0;
        while (column < grid_->columnCount() - 1 && grid_->isColumnHidden(column)) {
            ++column;
        }
        grid_->setCurrentCell(row, column);
    }
    if (!grid_->selectionModel()->isRowSelected(row, QModelIndex())) {
        grid_->selectRow(row);
    }
}

void FeeEntryWindow::focus(const std::string& name)
{
    if (QWidget* widget = widgetOf(name)) {
        widget->setFocus(Qt::OtherFocusReason);
    }
}

void FeeEntryWindow::busy(bool on)
{
    // The application's wait cursor while the dialog works on the database.
    if (on) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        ++busyDepth_;
    } else if (busyDepth_ > 0) {
        QApplication::restoreOverrideCursor();
        --busyDepth_;
    }
}

void FeeEntryWindow::closeRequested()
{
    closed_ = true;
    if (isVisible()) {
        reject();
    }
}

} // namespace avlor::ui
