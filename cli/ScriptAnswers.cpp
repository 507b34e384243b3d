#include "ScriptAnswers.h"

#include "Context.h"

namespace avlor::cli {

namespace {

bool fits(MsgResult answer, MsgButtons buttons) noexcept
{
    switch (buttons) {
    case MsgButtons::Ok:
        return answer == MsgResult::Ok;
    case MsgButtons::OkCancel:
        return answer == MsgResult::Ok || answer == MsgResult::Cancel;
    case MsgButtons::YesNo:
        return answer == MsgResult::Yes || answer == MsgResult::No;
    }
    return false;
}

std::string oneLine(const std::string& text)
{
    std::string line = text;
    for (char& c : line) {
        if (c == '\r' || c == '\n')
            c = ' ';
    }
    return line;
}

} // namespace

MsgResult ScriptAnswers::show(const std::string& text, const std::string& title, MsgIcon icon, MsgButtons buttons)
{
    MsgResult answer = MsgResult::Ok;
    if (buttons != MsgButtons::Ok) {
        if (answers_.empty())
            unanswered_(text);
        answer = answers_.front();
        answers_.pop_front();
        if (!fits(answer, buttons)) {
            // A wrong answer is as much a stop as a missing one: the script
            // expected another question here.
            unanswered_(text + " (the answer \"" + wordOf(answer) + "\" is not one of its buttons)");
        }
    }
    shown_.push_back({text, title, icon, buttons, answer});
    return answer;
}

std::vector<ScriptAnswers::Shown> ScriptAnswers::takeShown()
{
    std::vector<Shown> taken;
    taken.swap(shown_);
    return taken;
}

MsgResult answerFromWord(const std::string& word)
{
    if (word == "OK")
        return MsgResult::Ok;
    if (word == "Annulla")
        return MsgResult::Cancel;
    if (word == "Si")
        return MsgResult::Yes;
    if (word == "No")
        return MsgResult::No;
    throw CommandError("risposta sconosciuta \"" + oneLine(word) + "\" (le risposte sono OK, Annulla, Si, No)");
}

const char* wordOf(MsgResult answer) noexcept
{
    switch (answer) {
    case MsgResult::Ok:
        return "OK";
    case MsgResult::Cancel:
        return "Annulla";
    case MsgResult::Yes:
        return "Si";
    case MsgResult::No:
        return "No";
    }
    return "";
}

const char* wordOf(MsgIcon icon) noexcept
{
    switch (icon) {
    case MsgIcon::Information:
        return "informazione";
    case MsgIcon::Exclamation:
        return "esclamazione";
    case MsgIcon::Question:
        return "domanda";
    case MsgIcon::Critical:
        return "critico";
    }
    return "";
}

std::vector<std::string> wordsOf(MsgButtons buttons)
{
    switch (buttons) {
    case MsgButtons::Ok:
        return {"OK"};
    case MsgButtons::OkCancel:
        return {"OK", "Annulla"};
    case MsgButtons::YesNo:
        return {"Si", "No"};
    }
    return {};
}

} // namespace avlor::cli
