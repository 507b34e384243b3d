#pragma once
// The component's message boxes as real modal Qt message boxes: the icon
// asked for, the buttons OK, OK/Annulla or Sì/No, the text's lines split at
// its carriage returns. Needs a running QApplication.
#include <memory>
#include <string>

#include "avlor/core/Messages.h"

namespace avlor::ui {

class QtMessageBoxes final : public MessageBoxes {
public:
    MsgResult show(const std::string& text, const std::string& title, MsgIcon icon, MsgButtons buttons) override;
};

// The lines of a message as a message box shows them: each carriage return
// (alone or followed by a line feed) starts a new line.
[[nodiscard]] std::string messageLines(const std::string& text);

// Installs Qt message boxes for its lifetime and then puts back the ones that
// were in force before.
class ScopedQtMessageBoxes {
public:
    ScopedQtMessageBoxes();
    ~ScopedQtMessageBoxes();
    ScopedQtMessageBoxes(const ScopedQtMessageBoxes&) = delete;
    ScopedQtMessageBoxes& operator=(const ScopedQtMessageBoxes&) = delete;

private:
    std::shared_ptr<MessageBoxes> previous_;
};

} // namespace avlor::ui
