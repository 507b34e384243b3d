// The message boxes of a scripted dialog session: which boxes take an answer
// from the script, which are answered OK by themselves, and that a question
// without a fitting answer never reaches the dialog with a guessed one.
#include <gtest/gtest.h>

#include <string>

#include "../../cli/Context.h"
#include "../../cli/ScriptAnswers.h"

namespace {

using avlor::MsgButtons;
using avlor::MsgIcon;
using avlor::MsgResult;
using avlor::cli::ScriptAnswers;

// What the session's handler does is end the process; here it leaves the
// box by an exception the test catches, with the text it was given.
struct Stopped {
    std::string question;
};

ScriptAnswers answersThatStop()
{
    return ScriptAnswers([](const std::string& text) { throw Stopped{text}; });
}

TEST(ScriptAnswers, AMessageWithTheOkButtonAloneTakesNoAnswer)
{
    ScriptAnswers boxes = answersThatStop();
    boxes.setAnswers({MsgResult::No});
    EXPECT_EQ(boxes.show("ATTENZIONE : Il tariffario ante 94 non e' disponibile.", "AvlorLogic", MsgIcon::Information,
                         MsgButtons::Ok),
              MsgResult::Ok);
    // The script's answer is still there for the question that follows.
    EXPECT_EQ(boxes.show("Confermi ?", "AvlorLogic", MsgIcon::Question, MsgButtons::YesNo), MsgResult::No);
    const auto shown = boxes.takeShown();
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0].answer, MsgResult::Ok);
    EXPECT_EQ(shown[1].text, "Confermi ?");
    EXPECT_EQ(shown[1].answer, MsgResult::No);
    EXPECT_TRUE(boxes.takeShown().empty());
}

TEST(ScriptAnswers, QuestionsTakeTheAnswersInOrder)
{
    ScriptAnswers boxes = answersThatStop();
    boxes.setAnswers({MsgResult::Cancel, MsgResult::Yes});
    EXPECT_EQ(boxes.show("a", "t", MsgIcon::Exclamation, MsgButtons::OkCancel), MsgResult::Cancel);
    EXPECT_EQ(boxes.show("b", "t", MsgIcon::Question, MsgButtons::YesNo), MsgResult::Yes);
}

TEST(ScriptAnswers, AQuestionWithoutAnAnswerStopsWithItsText)
{
    ScriptAnswers boxes = answersThatStop();
    try {
        (void)boxes.show("ATTENZIONE : L'importo e' superiore al massimo tariffario.", "AvlorLogic",
                         MsgIcon::Exclamation, MsgButtons::OkCancel);
        FAIL() << "the question was answered";
    } catch (const Stopped& s) {
        EXPECT_EQ(s.question, "ATTENZIONE : L'importo e' superiore al massimo tariffario.");
    }
    EXPECT_TRUE(boxes.takeShown().empty());
}

TEST(ScriptAnswers, AnswersOfTheLineBeforeAreDropped)
{
    ScriptAnswers boxes = answersThatStop();
    boxes.setAnswers({MsgResult::Yes});
    boxes.setAnswers({});
    EXPECT_THROW((void)boxes.show("q", "t", MsgIcon::Question, MsgButtons::YesNo), Stopped);
}

TEST(ScriptAnswers, AnAnswerThatIsNotOneOfTheButtonsStops)
{
    ScriptAnswers boxes = answersThatStop();
    boxes.setAnswers({MsgResult::Yes});
    try {
        (void)boxes.show("Salvo ?", "t", MsgIcon::Question, MsgButtons::OkCancel);
        FAIL() << "the question was answered";
    } catch (const Stopped& s) {
        EXPECT_EQ(s.question, "Salvo ? (the answer \"Si\" is not one of its buttons)");
    }
}

TEST(ScriptAnswers, WordsOfAnswersIconsAndButtons)
{
    EXPECT_EQ(avlor::cli::answerFromWord("OK"), MsgResult::Ok);
    EXPECT_EQ(avlor::cli::answerFromWord("Annulla"), MsgResult::Cancel);
    EXPECT_EQ(avlor::cli::answerFromWord("Si"), MsgResult::Yes);
    EXPECT_EQ(avlor::cli::answerFromWord("No"), MsgResult::No);
    EXPECT_THROW((void)avlor::cli::answerFromWord("si"), avlor::cli::CommandError);
    EXPECT_THROW((void)avlor::cli::answerFromWord(""), avlor::cli::CommandError);
    EXPECT_STREQ(avlor::cli::wordOf(MsgIcon::Information), "informazione");
    EXPECT_STREQ(avlor::cli::wordOf(MsgIcon::Exclamation), "esclamazione");
    EXPECT_STREQ(avlor::cli::wordOf(MsgIcon::Question), "domanda");
    EXPECT_STREQ(avlor::cli::wordOf(MsgIcon::Critical), "critico");
    EXPECT_EQ(avlor::cli::wordsOf(MsgButtons::Ok), (std::vector<std::string>{"OK"}));
    EXPECT_EQ(avlor::cli::wordsOf(MsgButtons::OkCancel), (std::vector<std::string>{"OK", "Annulla"}));
    EXPECT_EQ(avlor::cli::wordsOf(MsgButtons::YesNo), (std::vector<std::string>{"Si", "No"}));
}

} // namespace
