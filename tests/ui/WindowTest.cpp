// The fee-entry window on Qt's offscreen platform: every control as a widget
// of its kind with its caption, the keyboard order, and the user's actions
// on real widgets reaching the dialog, whose changes come back on screen.
#include <QCheckBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>

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
