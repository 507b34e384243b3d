#pragma once
// The message boxes of a scripted dialog session: every message the dialog
// shows is kept for the answer line, and each question (a box with OK and
// Annulla, or Si and No) takes the next answer the script gave for the line
// ("OK", "Annulla", "Si", "No"). A box with the OK button alone is answered
// "OK" without taking an answer.
//
// A question the script left unanswered stops the session where it stands:
// the unanswered-question handler is called (it reports the question and
// ends the process), so that no guessed answer ever reaches the dialog.
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "avlor/core/Messages.h"

namespace avlor::cli {

class ScriptAnswers : public MessageBoxes {
public:
    struct Shown {
        std::string text;
        std::string title;
        MsgIcon icon;
        MsgButtons buttons;
        MsgResult answer;
    };
    // Called with the text of a question that has no answer; must not return.
    using Unanswered = std::function<void(const std::string& text)>;

    explicit ScriptAnswers(Unanswered unanswered) : unanswered_(std::move(unanswered)) { }

    MsgResult show(const std::string& text, const std::string& title, MsgIcon icon, MsgButtons buttons) override;

    // The answers for the next line, in order; answers left from the line
    // before are dropped.
    void setAnswers(std::deque<MsgResult> answers) { answers_ = std::move(answers); }
    // The messages shown since the last call, in order.
    [[nodiscard]] std::vector<Shown> takeShown();

private:
    Unanswered unanswered_;
    std::deque<MsgResult> answers_;
    std::vector<Shown> shown_;
};

// "OK", "Annulla", "Si", "No"; anything else raises CommandError naming it.
[[nodiscard]] MsgResult answerFromWord(const std::string& word);
[[nodiscard]] const char* wordOf(MsgResult answer) noexcept;
// "informazione", "esclamazione", "domanda", "critico".
[[nodiscard]] const char* wordOf(MsgIcon icon) noexcept;
// ["OK"], ["OK", "Annulla"], ["Si", "No"].
[[nodiscard]] std::vector<std::string> wordsOf(MsgButtons buttons);

} // namespace avlor::cli
