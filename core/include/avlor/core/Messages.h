#pragma once
// How the component talks to the person in front of the screen: modal
// message boxes only. The host supplies the implementation: a modal box in a
// window, a recorder in tests and in the avlor command, or the quiet log that
// is in force until a host installs anything (hosts without a user interface).
#include <memory>
#include <string>
#include <vector>

namespace avlor {

enum class MsgIcon { Information, Exclamation, Question, Critical };
enum class MsgButtons { Ok, OkCancel, YesNo };
enum class MsgResult { Ok, Cancel, Yes, No };

class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    // Shows `text` (lines joined by a lone carriage return) under `title` and
    // returns the button the person pressed.
    virtual MsgResult show(const std::string& text, const std::string& title, MsgIcon icon, MsgButtons buttons) = 0;
};

// The implementation in force for this process. Installing nullptr restores
// the quiet log. Returns the one that was in force.
std::shared_ptr<MessageBoxes> setMessageBoxes(std::shared_ptr<MessageBoxes> boxes);
[[nodiscard]] MessageBoxes& messageBoxes();

// Shows nothing; each message goes to standard error as one line (carriage
// returns shown as " | ") and is answered with the first button (OK or Yes).
class QuietLogMessageBoxes : public MessageBoxes {
public:
    MsgResult show(const std::string& text, const std::string& title, MsgIcon icon, MsgButtons buttons) override;
};

// Keeps every message shown and answers from a script of replies (then the
// first button of each box).
class RecordingMessageBoxes : public MessageBoxes {
public:
    struct Shown {
        std::string text;
        std::string title;
        MsgIcon icon;
        MsgButtons buttons;
    };

    MsgResult show(const std::string& text, const std::string& title, MsgIcon icon, MsgButtons buttons) override;
    void scriptReplies(std::vector<MsgResult> replies)
    {
        replies_ = std::move(replies);
        next_ = 0;
    }

    [[nodiscard]] const std::vector<Shown>& shown() const noexcept { return shown_; }
    void clear() { shown_.clear(); }

private:
    std::vector<Shown> shown_;
    std::vector<MsgResult> replies_;
    std::size_t next_ = 0;
};

// Installs a recorder for the life of the guard and puts back what was in
// force before (tests, the avlor command).
class ScopedMessageRecorder {
public:
    ScopedMessageRecorder();
    ~ScopedMessageRecorder();
    ScopedMessageRecorder(const ScopedMessageRecorder&) = delete;
    ScopedMessageRecorder& operator=(const ScopedMessageRecorder&) = delete;
    [[nodiscard]] RecordingMessageBoxes& recorder() noexcept { return *recorder_; }

private:
    std::shared_ptr<RecordingMessageBoxes> recorder_;
    std::shared_ptr<MessageBoxes> previous_;
};

} // namespace avlor
