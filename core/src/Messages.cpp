#include "avlor/core/Messages.h"

#include <iostream>

namespace avlor {

namespace {

std::shared_ptr<MessageBoxes>& installed()
{
    static std::shared_ptr<MessageBoxes> boxes = std::make_shared<QuietLogMessageBoxes>();
    return boxes;
}

MsgResult firstButton(MsgButtons buttons)
{
    switch (buttons) {
    case MsgButtons::YesNo:
        return MsgResult::Yes;
    case MsgButtons::Ok:
    case MsgButtons::OkCancel:
        break;
    }
    return MsgResult::Ok;
}

} // namespace

std::shared_ptr<MessageBoxes> setMessageBoxes(std::shared_ptr<MessageBoxes> boxes)
{
    auto previous = installed();
    installed() = boxes ? std::move(boxes) : std::make_shared<QuietLogMessageBoxes>();
    return previous;
}

MessageBoxes& messageBoxes() { return *installed(); }

MsgResult QuietLogMessageBoxes::show(const std::string& text, const std::string& title, MsgIcon, MsgButtons buttons)
{
    std::string line;
    for (char c : text) {
        if (c == '\r')
            line += " | ";
        else if (c != '\n')
            line += c;
    }
    std::cerr << title << ": " << line << '\n';
    return firstButton(buttons);
}

MsgResult RecordingMessageBoxes::show(const std::string& text, const std::string& title, MsgIcon icon,
                                      MsgButtons buttons)
{
    shown_.push_back(Shown{text, title, icon, buttons});
    if (next_ < replies_.size())
        return replies_[next_++];
    return firstButton(buttons);
}

ScopedMessageRecorder::ScopedMessageRecorder()
    : recorder_(std::make_shared<RecordingMessageBoxes>()), previous_(setMessageBoxes(recorder_))
{
}

ScopedMessageRecorder::~ScopedMessageRecorder() { setMessageBoxes(previous_); }

} // namespace avlor
