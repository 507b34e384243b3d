#pragma once
// The fee-entry window for one test, on Qt's offscreen platform: a practice
// database and the dialog as tests/dialog/DialogFixture.h gives them, the
// window shown over them, and helpers that work the real widgets as a user
// does (mouse clicks, typed keys) and answer the real message boxes.
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "../dialog/DialogFixture.h"
#include "avlor/ui/FeeEntryWindow.h"

namespace avlor::test {

// One QApplication for the whole program, on the offscreen platform.
class QtEnvironment : public testing::Environment {
public:
    void SetUp() override
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QApplication>(argc_, argv_);
    }
    void TearDown() override { application_.reset(); }

private:
    static inline int argc_ = 1;
    static inline char name_[] = "avlor_ui_tests";
    static inline char* argv_[] = {name_, nullptr};
    std::unique_ptr<QApplication> application_;
};

// A message box as the user saw it.
struct SeenBox {
    QMessageBox::Icon icon;
    std::string title;
    std::string text;
    std::vector<std::string> buttons; // their texts, left to right as added
};

// Answers the message boxes that come while it lives, in order: for each one
// the button whose text `answer` gives, pressed with the mouse. A box that
// comes when no answer is left is closed with its Escape button and noted.
class BoxAnswerer {
public:
    using Answer = std::function<std::string(const SeenBox&)>;

    explicit BoxAnswerer(Answer answer) : answer_(std::move(answer))
    {
        QObject::connect(&timer_, &QTimer::timeout, [this] { poll(); });
        timer_.start(10);
    }
    explicit BoxAnswerer(std::vector<std::string> answers)
        : BoxAnswerer([answers, next = std::size_t{0}](const SeenBox&) mutable {
              return next < answers.size() ? answers[next++] : std::string();
          })
    {
    }

    std::vector<SeenBox> seen;

private:
    void poll()
    {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isVisible()) {
            return;
        }
        SeenBox shown{box->icon(), box->windowTitle().toStdString(), box->text().toStdString(), {}};
        for (QAbstractButton* button : box->buttons()) {
            shown.buttons.push_back(button->text().toStdString());
        }
        seen.push_back(shown);
        const std::string wanted = answer_(shown);
        for (QAbstractButton* button : box->buttons()) {
            if (button->text().toStdString() == wanted) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        ADD_FAILURE() << "no answer \"" << wanted << "\" for the message \"" << shown.text << "\"";
        box->escapeButton()->click();
    }

    Answer answer_;
    QTimer timer_;
};

class WindowTest : public DialogTest {
protected:
    void TearDown() override
    {
        window.reset();
        form.reset();
        DialogTest::TearDown();
    }

    // Opens the window on case `id` as the component does (Setta, the load),
    // with the dialog in an Italian locale, and shows it.
    void openWindow(std::int32_t id, const std::string& data, const std::string& parti = "Rossi Mario / Bianchi SpA",
                    const std::string& adempimento = "Atto di citazione")
    {
        window.reset();
        form = std::make_unique<dialog::frmOKParcella>(clock, Locale::italian());
        window = std::make_unique<ui::FeeEntryWindow>(*form);
        ASSERT_TRUE(window->start(id, parti, adempimento, data));
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    template <typename W = QWidget>
    W* widget(const std::string& name) const
    {
        auto* found = qobject_cast<W*>(window->widgetOf(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    [[nodiscard]] std::string shown(const std::string& name) const
    {
        if (auto* edit = qobject_cast<QLineEdit*>(window->widgetOf(name))) {
            return edit->text().toStdString();
        }
        if (auto* list = qobject_cast<QComboBox*>(window->widgetOf(name))) {
            return list->currentText().toStdString();
        }
        ADD_FAILURE() << name << " shows no text";
        return {};
    }

    void clickOn(const std::string& name) const { QTest::mouseClick(widget(name), Qt::LeftButton); }

    // Replaces what a field shows by typing `text`, then leaves it with Tab.
    void typeInto(const std::string& name, const std::string& text) const
    {
        auto* field = widget<QLineEdit>(name);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(field, Qt::Key_Backspace);
        QTest::keyClicks(field, QString::fromStdString(text));
        QTest::keyClick(field, Qt::Key_Tab);
    }

    // Opens a list with the keyboard (its refill), then picks the row that
    // shows `text` in its first column with the mouse.
    void pickFromList(const std::string& name, const std::string& text) const
    {
        auto* list = widget<QComboBox>(name);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_F4);
        auto* popup = qobject_cast<QTreeView*>(list->view());
        ASSERT_NE(popup, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(popup->window()));
        const int row = list->findText(QString::fromStdString(text));
        ASSERT_GE(row, 0) << text << " is not in " << name;
        const QRect cell = popup->visualRect(list->model()->index(row, 0));
        QTest::mouseClick(popup->viewport(), Qt::LeftButton, {}, cell.center());
    }

    // Clicks the row of the grid that holds action `idAzione`.
    void clickGridRowOf(std::int32_t idAzione) const
    {
        auto* grid = widget<QTableWidget>("GrigliaParcella");
        for (int row = 0; row < grid->rowCount(); ++row) {
            if (grid->item(row, 0)->text() == QString::number(idAzione)) {
                const QRect cell = grid->visualRect(grid->model()->index(row, 4));
                QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
                return;
            }
        }
        ADD_FAILURE() << "no grid row for action " << idAzione;
    }

    // The grid as it is on screen: its text, row by row.
    [[nodiscard]] std::vector<std::vector<std::string>> gridShown() const
    {
        auto* grid = widget<QTableWidget>("GrigliaParcella");
        std::vector<std::vector<std::string>> rows;
        for (int r = 0; r < grid->rowCount(); ++r) {
            std::vector<std::string> row;
            for (int c = 0; c < grid->columnCount(); ++c) {
                row.push_back(grid->item(r, c)->text().toStdString());
            }
            rows.push_back(row);
        }
        return rows;
    }

    std::unique_ptr<dialog::frmOKParcella> form;
    std::unique_ptr<ui::FeeEntryWindow> window;
};

} // namespace avlor::test
