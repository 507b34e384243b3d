// The component's message boxes as Qt message boxes: icon, title, buttons in
// Italian, lines, and the answer given by the button pressed.
#include <cctype>

#include "WindowFixture.h"
#include "avlor/ui/QtMessageBoxes.h"

namespace avlor::test {
namespace {

TEST(QtMessageBoxes, LinesAreSplitAtCarriageReturns)
{
    EXPECT_EQ(ui::messageLines("ATTENZIONE:\rriga due\r\nriga tre"), "ATTENZIONE:\nriga due\nriga tre");
    EXPECT_EQ(ui::messageLines("una riga"), "una riga");
}

struct Case {
    MsgIcon icon;
    MsgButtons buttons;
    std::string press;
    QMessageBox::Icon shownIcon;
    std::vector<std::string> shownButtons;
    MsgResult result;
};

class QtMessageBoxesAnswer : public testing::TestWithParam<Case> { };

TEST_P(QtMessageBoxesAnswer, WithTheButtonPressed)
{
    const Case& c = GetParam();
    ui::QtMessageBoxes boxes;
    BoxAnswerer answers({c.press});
    EXPECT_EQ(boxes.show("ATTENZIONE:\rImporto superiore al massimo", "AvlorLogic", c.icon, c.buttons), c.result);
    ASSERT_EQ(answers.seen.size(), 1u);
    EXPECT_EQ(answers.seen[0].text, "ATTENZIONE:\nImporto superiore al massimo");
    EXPECT_EQ(answers.seen[0].title, "AvlorLogic");
    EXPECT_EQ(answers.seen[0].icon, c.shownIcon);
    EXPECT_EQ(answers.seen[0].buttons, c.shownButtons);
}

INSTANTIATE_TEST_SUITE_P(
    EachKind, QtMessageBoxesAnswer,
    testing::Values(
        Case{MsgIcon::Exclamation, MsgButtons::Ok, "OK", QMessageBox::Warning, {"OK"}, MsgResult::Ok},
        Case{MsgIcon::Information, MsgButtons::Ok, "OK", QMessageBox::Information, {"OK"}, MsgResult::Ok},
        Case{MsgIcon::Question, MsgButtons::OkCancel, "OK", QMessageBox::Question, {"OK", "Annulla"}, MsgResult::Ok},
        Case{MsgIcon::Question,
             MsgButtons::OkCancel,
             "Annulla",
             QMessageBox::Question,
             {"OK", "Annulla"},
             MsgResult::Cancel},
        Case{MsgIcon::Question, MsgButtons::YesNo, "Sì", QMessageBox::Question, {"Sì", "No"}, MsgResult::Yes},
        Case{MsgIcon::Critical, MsgButtons::YesNo, "No", QMessageBox::Critical, {"Sì", "No"}, MsgResult::No}),
    [](const testing::TestParamInfo<Case>& param) {
        std::string name = std::to_string(param.index) + "_";
        for (char c : param.param.press)
            name += std::isalnum(static_cast<unsigned char>(c)) ? c : 'i';
        return name;
    });

TEST(QtMessageBoxes, EscapeMeansCancelOrNo)
{
    ui::QtMessageBoxes boxes;
    QTimer::singleShot(50, [] {
        if (QWidget* box = QApplication::activeModalWidget())
            QTest::keyClick(box, Qt::Key_Escape);
    });
    EXPECT_EQ(boxes.show("Cancellare l'azione?", "AvlorLogic", MsgIcon::Question, MsgButtons::YesNo), MsgResult::No);
    QTimer::singleShot(50, [] {
        if (QWidget* box = QApplication::activeModalWidget())
            QTest::keyClick(box, Qt::Key_Escape);
    });
    EXPECT_EQ(boxes.show("Procedere?", "AvlorLogic", MsgIcon::Question, MsgButtons::OkCancel), MsgResult::Cancel);
}

} // namespace
} // namespace avlor::test
