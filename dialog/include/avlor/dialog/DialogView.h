#pragma once
// DialogView: how a front end learns what the fee-entry dialog changed. The
// dialog holds every control's state itself (Controls.h); the view is told
// only which part to show again. Every notification comes on the caller's
// thread, during the event that caused it. Message boxes do not go through
// the view but through messageBoxes() (avlor/core/Messages.h).
#include <string>

namespace avlor::dialog {

class DialogView {
public:
    virtual ~DialogView() = default;
    // A control's caption, text, value, enabled or visible state, list
    // columns, rows, keys or current row changed.
    virtual void controlChanged(const std::string& name) { static_cast<void>(name); }
    // The grid's columns captions or its text array were replaced.
    virtual void gridChanged() { }
    // The dialog asks for the keyboard focus to go to a control.
    virtual void focus(const std::string& name) { static_cast<void>(name); }
    // Database work starts (true: busy pointer) or ends (false).
    virtual void busy(bool on) { static_cast<void>(on); }
    // The dialog wants to be closed (its start-up could not read the case).
    virtual void closeRequested() { }
};

// The view in force until a front end gives one: it shows nothing.
class NullDialogView final : public DialogView { };

} // namespace avlor::dialog
