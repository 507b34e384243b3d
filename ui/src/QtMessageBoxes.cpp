#include "avlor/ui/QtMessageBoxes.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace avlor::ui {

std::string messageLines(const std::string& text)
{
    std::string lines;
    lines.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r') {
            lines += '\n';
            if (i + 1 < text.size() && text[i + 1] == '\n') {
                ++i;
            }
        } else {
            lines += text[i];
        }
    }
    return lines;
}

MsgResult QtMessageBoxes::show(const std::string& text, const std::string& title, MsgIcon icon, MsgButtons buttons)
{
    QMessageBox::Icon shownIcon = QMessageBox::Information;
    switch (icon) {
    case MsgIcon::Information:
        shownIcon = QMessageBox::Information;
        break;
    case MsgIcon::Exclamation:
        shownIcon = QMessageBox::Warning;
        break;
    case MsgIcon::Question:
        shownIcon = QMessageBox::Question;
        break;
    case MsgIcon::Critical:
        shownIcon = QMessageBox::Critical;
        break;
    }
    // Over the window in use, so that it is centred on it and blocks it.
    QWidget* owner = QApplication::activeModalWidget();
    if (owner == nullptr) {
        owner = QApplication::activeWindow();
    }
    QMessageBox box(shownIcon, QString::fromStdString(title), QString::fromStdString(messageLines(text)),
                    QMessageBox::NoButton, owner);
    box.setTextFormat(Qt::PlainText);
    box.setWindowModality(Qt::ApplicationModal);

    // The buttons in the user's language; the first is the default, the
    // second (if any) what the Escape key means.
    QPushButton* first = nullptr;
    QPushButton* second = nullptr;
    switch (buttons) {
    case MsgButtons::Ok:
        first = box.addButton(QMessageBox::Ok);
        first->setText(QStringLiteral("OK"));
        box.setEscapeButton(first);
        break;
    case MsgButtons::OkCancel:
        first = box.addButton(QMessageBox::Ok);
        first->setText(QStringLiteral("OK"));
        second = box.addButton(QMessageBox::Cancel);
        second->setText(QStringLiteral("Annulla"));
        box.setEscapeButton(second);
        break;
    case MsgButtons::YesNo:
        first = box.addButton(QMessageBox::Yes);
        first->setText(QStringLiteral("Sì"));
        second = box.addButton(QMessageBox::No);
        second->setText(QStringLiteral("No"));
        box.setEscapeButton(second);
        break;
    }
    box.setDefaultButton(first);

    // A message that comes while the dialog works on the database is
    // answered with the ordinary pointer.
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    box.exec();
    QApplication::restoreOverrideCursor();

    const bool firstPressed = box.clickedButton() == first || (box.clickedButton() == nullptr && second == nullptr);
    switch (buttons) {
    case MsgButtons::Ok:
        return MsgResult::Ok;
    case MsgButtons::OkCancel:
        return firstPressed ? MsgResult::Ok : MsgResult::Cancel;
    case MsgButtons::YesNo:
        return firstPressed ? MsgResult::Yes : MsgResult::No;
    }
    return MsgResult::Ok;
}

ScopedQtMessageBoxes::ScopedQtMessageBoxes() : previous_(setMessageBoxes(std::make_shared<QtMessageBoxes>())) { }

ScopedQtMessageBoxes::~ScopedQtMessageBoxes() { setMessageBoxes(previous_); }

} // namespace avlor::ui
