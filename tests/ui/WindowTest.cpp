// The fee-entry window on Qt's offscreen platform: every control as a widget
// of its kind with its caption, the keyboard order, and the user's actions
// on real widgets reaching the dialog, whose changes come back on screen.
#include <QCheckBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QScrollBar>

#include "WindowFixture.h"

namespace avlor::test {
namespace {

const auto* const qtEnvironment = testing::AddGlobalTestEnvironment(new QtEnvironment);

class Window : public WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        addUser(1, "Avv. Rossi", "150", "250000");
        addUser(2, "Dott. Verdi", "90", "170000");
        addCase(7, "NULL", "EURO", 50, "Tribunale");
        addCase(8, "NULL", "EURO", 0, "NULL");
        addItem("Diritti2004Euro", 391, "D391", "Sessione");
        addItem("Onorari2004Euro", 20, "O20", "Studio della controversia", "Tribunale",
                "MININDET, MAXINDET, MINSTRAORDIMP, MAXSTRAORDIMP|" + TestDatabase::amount("1234.5") + ", " +
                    TestDatabase::amount("3000") + ", " + TestDatabase::amount("50") + ", " +
                    TestDatabase::amount("9000.5"));
    }
};

QString textOf(QWidget* widget)
{
    if (auto* frame = qobject_cast<QGroupBox*>(widget))
        return frame->title();
    if (auto* label = qobject_cast<QLabel*>(widget))
        return label->text();
    if (auto* button = qobject_cast<QAbstractButton*>(widget))
        return button->text();
    return {};
}

TEST_F(Window, EveryControlIsAWidgetOfItsKindWithItsCaption)
{
    openWindow(7, "15/03/2005");
    EXPECT_EQ(window->windowTitle(), "Parcellazione Adempimento");
    EXPECT_TRUE(window->isModal());
    for (const dialog::Control& control : dialog::initialControls()) {
        QWidget* w = window->widgetOf(control.name);
        ASSERT_NE(w, nullptr) << control.name;
        EXPECT_EQ(w->objectName().toStdString(), control.name);
        const char* wanted = nullptr;
        switch (control.kind) {
        case dialog::ControlKind::Frame:
            wanted = "QGroupBox";
            break;
        case dialog::ControlKind::Label:
            wanted = "QLabel";
            break;
        case dialog::ControlKind::Option:
            wanted = "QRadioButton";
            break;
        case dialog::ControlKind::CheckBox:
            wanted = "QCheckBox";
            break;
        case dialog::ControlKind::TextBox:
        case dialog::ControlKind::NumberField:
        case dialog::ControlKind::MoneyField:
            wanted = "QLineEdit";
            break;
        case dialog::ControlKind::DateField:
            wanted = "QDateEdit";
            break;
        case dialog::ControlKind::List:
            wanted = "QComboBox";
            break;
        case dialog::ControlKind::Button:
            wanted = "QPushButton";
            break;
        case dialog::ControlKind::Grid:
            wanted = "QTableWidget";
            break;
        }
        EXPECT_TRUE(w->inherits(wanted)) << control.name << " is a " << w->metaObject()->className();
        if (!control.caption.empty() && control.kind != dialog::ControlKind::Label) {
            EXPECT_EQ(textOf(w).toStdString(), control.caption) << control.name;
        }
        if (control.kind == dialog::ControlKind::List) {
            auto* header = qobject_cast<QTreeView*>(qobject_cast<QComboBox*>(w)->view())->header();
            ASSERT_EQ(header->count(), static_cast<int>(control.columns.size())) << control.name;
            for (int c = 0; c < header->count(); ++c) {
                EXPECT_EQ(header->model()->headerData(c, Qt::Horizontal).toString().toStdString(),
                          control.columns[static_cast<std::size_t>(c)]);
            }
        }
    }
    EXPECT_EQ(textOf(widget("lblImporto")), "Importo");
    EXPECT_EQ(textOf(widget("lblMinuti")), "Minuti");
    EXPECT_EQ(textOf(widget("lblClienteContro")), "Rossi Mario / Bianchi SpA");
    EXPECT_EQ(textOf(widget("lblAdempimento")), "Atto di citazione");
    // The accelerator of "&Aggiungi" is Alt+A.
    EXPECT_EQ(widget<QPushButton>("cmdAggiungi")->shortcut(), QKeySequence(Qt::ALT | Qt::Key_A));
}

TEST_F(Window, TheGridHasItsFourteenCaptionedColumnsWithTheKeysAndFlagsHidden)
{
    openWindow(7, "15/03/2005");
    auto* grid = widget<QTableWidget>("GrigliaParcella");
    const std::vector<std::string> captions = {
        "IDAZIONE",   "",           "",           "Data",        "Azione",      "",
        "Diritti",    "Onorari  ",  "Spese Imp.", "Spese Esen.", "Eseguito da", "HH:MM",
        "IdEseguito", "IsNotaSpese"};
    ASSERT_EQ(grid->columnCount(), 14);
    std::vector<std::string> shownCaptions;
    std::vector<int> visible;
    for (int c = 0; c < 14; ++c) {
        shownCaptions.push_back(grid->horizontalHeaderItem(c)->text().toStdString());
        if (!grid->isColumnHidden(c))
            visible.push_back(c);
    }
    EXPECT_EQ(shownCaptions, captions);
    EXPECT_EQ(visible, (std::vector<int>{3, 4, 6, 7, 8, 9, 10, 11}));
}

TEST_F(Window, TheGridShowsTheDialogsTextArray)
{
    Action first;
    first.descr = "Esame della pratica";
    first.onorari = "1450.5";
    first.data = "10/03/2005";
    const std::int32_t id = addAction(first);
    Action second = first;
    second.nOrdine = 2;
    second.descr = "Udienza";
    second.onorari = "200";
    addAction(second);
    openWindow(7, "15/03/2005");
    EXPECT_EQ(gridShown(), form->control("GrigliaParcella").rows);
    ASSERT_EQ(gridShown().size(), 2u);
    EXPECT_EQ(gridShown()[0][0], std::to_string(id));
    EXPECT_EQ(gridShown()[0][4], "Esame della pratica");
    EXPECT_NE(gridShown()[0][7].find("1.450,50"), std::string::npos) << gridShown()[0][7];
}

TEST_F(Window, StartUpShowsTheWorkDateTheOrderNumberAndThePerformers)
{
    openWindow(7, "15/03/2005");
    EXPECT_EQ(widget<QDateEdit>("FData")->text(), "15/03/2005");
    EXPECT_EQ(shown("FNumOrdine"), form->control("FNumOrdine").text);
    EXPECT_EQ(shown("FQuantita"), "1");
    EXPECT_TRUE(widget<QRadioButton>("optDiritti")->isChecked());
    auto* performers = widget<QComboBox>("cmbEseguito");
    EXPECT_EQ(performers->count(), 2);
    EXPECT_EQ(performers->currentText(), "Avv. Rossi");
    // Tariff entry: the time and the performer are not on screen.
    EXPECT_FALSE(widget("fraTempo")->isVisible());
    EXPECT_FALSE(widget("fraEseguito")->isVisible());
    EXPECT_TRUE(widget("fraCodice")->isVisible());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Window, ClickingAKindOfFeeChoosesItsTable)
{
    openWindow(7, "15/03/2005");
    clickOn("optOnorari");
    EXPECT_TRUE(form->control("optOnorari").value);
    EXPECT_FALSE(widget<QRadioButton>("optDiritti")->isChecked());
    EXPECT_EQ(form->state().sTabella, "Onorari2004Euro");
    clickOn("optOraria");
    EXPECT_TRUE(widget("fraTempo")->isVisible());
    EXPECT_TRUE(widget("fraEseguito")->isVisible());
    EXPECT_FALSE(widget("fraCodice")->isVisible());
    EXPECT_EQ(widget<QTableWidget>("GrigliaParcella")->horizontalHeaderItem(7)->text(), "Importo  ");
}

TEST_F(Window, ChoosingAnItemShowsTheProposalWithItalianSeparators)
{
    openWindow(7, "15/03/2005");
    clickOn("optOnorari");
    pickFromList("cmbVoce", "Studio della controversia");
    EXPECT_EQ(form->state().idTariffa, 20);
    EXPECT_EQ(shown("cmbVoce"), "Studio della controversia");
    EXPECT_EQ(shown("cmbCodice"), "O20");
    EXPECT_EQ(shown("FImporto"), form->control("FImporto").text);
    EXPECT_EQ(shown("FDenMaxS"), "9.000,50");
    EXPECT_EQ(shown("FDenMinS"), "50,00");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Window, TheListsPopUpShowsEveryColumnOfTheRowsReadOnOpening)
{
    openWindow(7, "15/03/2005");
    auto* list = widget<QComboBox>("cmbVoce");
    EXPECT_EQ(list->count(), 0);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_F4);
    auto* popup = qobject_cast<QTreeView*>(list->view());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(popup->window()));
    EXPECT_EQ(list->count(), 1);
    EXPECT_FALSE(popup->header()->isHidden());
    EXPECT_EQ(list->model()->index(0, 0).data().toString(), "Sessione");
    EXPECT_EQ(list->model()->index(0, 1).data().toString(), "D391");
    QTest::keyClick(popup, Qt::Key_Escape);
    EXPECT_EQ(form->control("cmbVoce").rows.size(), 1u);
}

TEST_F(Window, TypingAnAmountShowsItInTheFieldsFormatOnLeaving)
{
    openWindow(7, "15/03/2005");
    typeInto("FImponibili", "1234,5");
    EXPECT_EQ(shown("FImponibili"), "1.234,50");
    EXPECT_EQ(form->amountOf("FImponibili"), Currency::fromText("1234.5"));
}

TEST_F(Window, TypingTheDateReachesTheDialog)
{
    openWindow(7, "15/03/2005");
    auto* date = widget<QDateEdit>("FData");
    date->setFocus();
    date->setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClicks(date, "20");
    EXPECT_EQ(form->control("FData").text, "20/03/2005");
}

TEST_F(Window, ADateBeforeTheTablesIsRefusedInARealMessageBox)
{
    openWindow(7, "15/03/2005");
    // Before the 1994 tables: choosing an item says so, and the list goes
    // back to what it showed.
    form->setText("FData", "01/01/1990");
    EXPECT_EQ(widget<QDateEdit>("FData")->text(), "01/01/1990");
    BoxAnswerer answers({"OK"});
    pickFromList("cmbVoce", "Sessione");
    EXPECT_EQ(form->state().idTariffa, 0);
    EXPECT_EQ(shown("cmbVoce"), "");
    ASSERT_EQ(answers.seen.size(), 1u);
    EXPECT_EQ(answers.seen[0].text, "ATTENZIONE : Il tariffario ante 94 non e' disponibile.");
    EXPECT_EQ(answers.seen[0].title, "AvlorLogic");
    EXPECT_EQ(answers.seen[0].icon, QMessageBox::Information);
    EXPECT_EQ(answers.seen[0].buttons, std::vector<std::string>{"OK"});
}

TEST_F(Window, AMessageOfSeveralLinesIsSplitAtItsCarriageReturns)
{
    openWindow(8, "15/03/2005");
    clickOn("optPenale");
    BoxAnswerer answers({"OK", "OK"});
    auto* list = widget<QComboBox>("cmbCodice");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_F4);
    QTest::keyClick(list->view(), Qt::Key_Escape);
    ASSERT_GE(answers.seen.size(), 1u);
    EXPECT_EQ(answers.seen[0].text,
              "ATTENZIONE : Non e' selezionata nessuna Autorita' per la Pratica. \nSara' impossibile calcolare in "
              "automatico l'importo degli Onorari di Tipo Penale.");
}

TEST_F(Window, ClickingAGridRowLoadsThatAction)
{
    Action a;
    a.descr = "Esame della pratica";
    a.onorari = "300";
    const std::int32_t first = addAction(a);
    a.nOrdine = 2;
    a.descr = "Udienza";
    a.onorari = "150";
    const std::int32_t second = addAction(a);
    openWindow(7, "15/03/2005");
    clickGridRowOf(second);
    EXPECT_EQ(form->state().idAzioneCorrente, second);
    EXPECT_TRUE(form->state().bModifica);
    EXPECT_EQ(shown("FImporto"), form->control("FImporto").text);
    clickGridRowOf(first);
    EXPECT_EQ(form->state().idAzioneCorrente, first);
}

// A description far longer than the grid is wide.
const std::string LongDescription =
    "Redazione dell'atto di citazione in opposizione al decreto ingiuntivo, con esame dei documenti prodotti "
    "dal ricorrente, ricerca della giurisprudenza di legittimita' e di merito, conferenza con il cliente e "
    "deposito telematico presso la cancelleria del Tribunale";

// Every column of the grid that shows something besides the description is
// wide enough for its caption and for each of its cells, by the grid's own
// fonts and margins; the columns together fit the grid's width, so there is
// no horizontal scroll bar.
void expectEveryColumnButTheDescriptionWhole(QTableWidget* grid)
{
    QHeaderView* header = grid->horizontalHeader();
    const QFontMetrics cells = grid->fontMetrics();
    const QFontMetrics captions = header->fontMetrics();
    auto* view = static_cast<QAbstractItemView*>(grid);
    int total = 0;
    for (int c = 0; c < grid->columnCount(); ++c) {
        if (grid->isColumnHidden(c))
            continue;
        total += grid->columnWidth(c);
        if (c == 4)
            continue;
        const QString caption = grid->horizontalHeaderItem(c)->text();
        EXPECT_GE(grid->columnWidth(c), captions.horizontalAdvance(caption)) << caption.toStdString();
        EXPECT_GE(grid->columnWidth(c), header->sectionSizeHint(c)) << caption.toStdString();
        EXPECT_GE(grid->columnWidth(c), view->sizeHintForColumn(c)) << caption.toStdString();
        for (int r = 0; r < grid->rowCount(); ++r) {
            const QString text = grid->item(r, c)->text();
            EXPECT_GE(grid->columnWidth(c), cells.horizontalAdvance(text))
                << caption.toStdString() << ": " << text.toStdString();
        }
    }
    EXPECT_LE(total, grid->viewport()->width());
    EXPECT_FALSE(grid->horizontalScrollBar()->isVisible());
    EXPECT_EQ(grid->horizontalScrollBar()->maximum(), 0);
}

TEST_F(Window, ALongDescriptionIsShortenedAndEveryAmountShownWhole)
{
    Action tariff;
    tariff.descr = LongDescription;
    tariff.diritti = "98765.43";
    tariff.onorari = "1234567.89";
    tariff.imponibili = "23456.78";
    tariff.esenti = "3456.12";
    tariff.eseguitoDa = 2;
    addAction(tariff);
    Action hourly = tariff;
    hourly.nOrdine = 1;
    hourly.tariffa = false;
    hourly.diritti = "0";
    hourly.onorari = "1500";
    hourly.ore = 12;
    hourly.minuti = 45;
    addAction(hourly);
    openWindow(7, "15/03/2005");
    // The window at the size it opens with.
    EXPECT_EQ(window->size(), QSize(1180, 740));
    auto* grid = widget<QTableWidget>("GrigliaParcella");
    ASSERT_EQ(grid->rowCount(), 1);
    ASSERT_EQ(grid->item(0, 4)->text().toStdString(), LongDescription);
    ASSERT_EQ(grid->item(0, 7)->text().toStdString(), "\u20AC  1.234.567,89");
    expectEveryColumnButTheDescriptionWhole(grid);

    // The description takes the room the other columns leave, one line
    // ending in an ellipsis, and its tip holds the whole text.
    const QString description = QString::fromStdString(LongDescription);
    EXPECT_EQ(grid->horizontalHeader()->length(), grid->viewport()->width());
    EXPECT_LT(grid->columnWidth(4), grid->fontMetrics().horizontalAdvance(description));
    EXPECT_GT(grid->columnWidth(4), 300);
    EXPECT_FALSE(grid->wordWrap());
    EXPECT_EQ(grid->textElideMode(), Qt::ElideRight);
    EXPECT_EQ(grid->model()->index(0, 4).data(Qt::ToolTipRole).toString(), description);

    // Time entry: the amount column under its own caption, the time whole.
    clickOn("optOraria");
    ASSERT_EQ(grid->rowCount(), 1);
    EXPECT_EQ(grid->horizontalHeaderItem(7)->text(), "Importo  ");
    EXPECT_EQ(grid->item(0, 11)->text(), "12:45''");
    expectEveryColumnButTheDescriptionWhole(grid);
    EXPECT_EQ(grid->model()->index(0, 4).data(Qt::ToolTipRole).toString(), description);
}

TEST_F(Window, NoRowIsHighlightedUntilOneIsChosen)
{
    Action a;
    a.descr = "Esame della pratica";
    a.onorari = "300";
    addAction(a);
    a.nOrdine = 2;
    a.descr = "Udienza";
    a.onorari = "150";
    const std::int32_t second = addAction(a);
    openWindow(7, "15/03/2005");
    auto* grid = widget<QTableWidget>("GrigliaParcella");
    ASSERT_EQ(grid->rowCount(), 2);
    const auto highlighted = [grid] {
        std::vector<int> rows;
        for (const QModelIndex& index : grid->selectionModel()->selectedRows())
            rows.push_back(index.row());
        return rows;
    };
    EXPECT_EQ(highlighted(), std::vector<int>{});
    EXPECT_FALSE(grid->currentIndex().isValid());
    EXPECT_EQ(form->state().idAzioneCorrente, 0);

    // Moving into the grid with the keyboard chooses nothing by itself.
    widget("cmdCancella")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), grid);
    EXPECT_EQ(highlighted(), std::vector<int>{});
    EXPECT_EQ(form->state().idAzioneCorrente, 0);

    // Choosing a row loads its action, and the row is highlighted.
    clickGridRowOf(second);
    EXPECT_EQ(form->state().idAzioneCorrente, second);
    EXPECT_EQ(shown("FImporto"), form->control("FImporto").text);
    EXPECT_EQ(highlighted(), std::vector<int>{1});
    EXPECT_EQ(grid->currentRow(), 1);

    // A change of kind lets go of the action: no row is highlighted.
    clickOn("optOnorari");
    EXPECT_EQ(form->state().idAzioneCorrente, 0);
    EXPECT_EQ(highlighted(), std::vector<int>{});
    EXPECT_FALSE(grid->currentIndex().isValid());

    // The first row can be chosen as any other.
    grid->setFocus();
    QTest::keyClick(grid, Qt::Key_Down);
    EXPECT_NE(form->state().idAzioneCorrente, 0);
    EXPECT_EQ(highlighted(), std::vector<int>{0});
}

TEST_F(Window, TheQuantityAndTheBandsSayWhatTheyHoldInTheirTips)
{
    openWindow(7, "15/03/2005");
    EXPECT_EQ(widget("FQuantita")->toolTip(), "Quantit\u00e0: quante volte si applica la voce di parcella scelta");
    EXPECT_EQ(widget("fraN")->toolTip(), "Quantit\u00e0: quante volte si applica la voce di parcella scelta");
    EXPECT_EQ(widget("fraMinMax")->toolTip(), "Tariffa minima e massima per la voce di parcella scelta");
    EXPECT_EQ(widget("fraStaord")->toolTip(),
              "Fascia straordinaria: tariffa minima e massima per la voce di parcella scelta");
    // The frames keep no caption of their own.
    for (const char* frame : {"fraN", "fraMinMax", "fraStaord"})
        EXPECT_EQ(widget<QGroupBox>(frame)->title(), "") << frame;
}

TEST_F(Window, TheKeyboardGoesThroughTheFieldsInTheOrderOfEntry)
{
    openWindow(7, "15/03/2005");
    const auto holds = [](QWidget* w) {
        QWidget* focused = QApplication::focusWidget();
        return focused == w || (focused != nullptr && w->isAncestorOf(focused));
    };
    widget("FImporto")->setFocus();
    for (const char* next : {"FImponibili", "FEsenti", "FDenMinT", "FDenMaxT", "FDenMinS", "FDenMaxS"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(holds(widget(next))) << next;
    }
    widget("cmbCodice")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(holds(widget("cmbVoce")));
    widget("chkIncludi")->setFocus();
    for (const char* next : {"chkMosTut", "cmdAggiungi", "cmdModifica", "cmdCancella", "GrigliaParcella"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(holds(widget(next))) << next;
    }
}

TEST_F(Window, CheckBoxesReachTheDialog)
{
    openWindow(7, "15/03/2005");
    clickOn("chkIncludi");
    EXPECT_TRUE(form->control("chkIncludi").value);
    EXPECT_TRUE(widget<QCheckBox>("chkIncludi")->isChecked());
    clickOn("chkMosTut");
    EXPECT_TRUE(form->control("chkMosTut").value);
}

TEST_F(Window, EachOpeningStartsAfresh)
{
    openWindow(7, "15/03/2005");
    clickOn("optOnorari");
    typeInto("FEsenti", "10");
    openWindow(7, "15/03/2005");
    EXPECT_TRUE(widget<QRadioButton>("optDiritti")->isChecked());
    EXPECT_EQ(shown("FEsenti"), "");
}

TEST_F(Window, AWindowInstallsQtMessageBoxesAndPutsBackTheOnesBefore)
{
    MessageBoxes* before = &messageBoxes();
    openWindow(7, "15/03/2005");
    EXPECT_NE(dynamic_cast<ui::QtMessageBoxes*>(&messageBoxes()), nullptr);
    window.reset();
    EXPECT_EQ(&messageBoxes(), before);
}

} // namespace
} // namespace avlor::test
