#include <gtest/gtest.h>

#include <memory>

#include "avlor/core/Messages.h"

namespace avlor {
namespace {

TEST(QuietLogMessageBoxes, LogsOneLineAndAnswersTheFirstButton)
{
    QuietLogMessageBoxes quiet;
    testing::internal::CaptureStderr();
    EXPECT_EQ(quiet.show("ATTENZIONE:\rE' necessario inserire la data.", "Parcellazione Adempimento",
                         MsgIcon::Exclamation, MsgButtons::Ok),
              MsgResult::Ok);
    EXPECT_EQ(quiet.show("Domanda", "Titolo", MsgIcon::Question, MsgButtons::OkCancel), MsgResult::Ok);
    EXPECT_EQ(quiet.show("Domanda", "Titolo", MsgIcon::Question, MsgButtons::YesNo), MsgResult::Yes);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Parcellazione Adempimento: ATTENZIONE: | E' necessario inserire la data.\n"
              "Titolo: Domanda\n"
              "Titolo: Domanda\n");
}

TEST(RecordingMessageBoxes, KeepsEveryMessageAndFollowsTheScript)
{
    RecordingMessageBoxes recorder;
    recorder.scriptReplies({MsgResult::Cancel, MsgResult::No});
    EXPECT_EQ(recorder.show("one", "t1", MsgIcon::Question, MsgButtons::OkCancel), MsgResult::Cancel);
    EXPECT_EQ(recorder.show("two", "t2", MsgIcon::Question, MsgButtons::YesNo), MsgResult::No);
    // Past the script: the first button of each box.
    EXPECT_EQ(recorder.show("three", "t3", MsgIcon::Question, MsgButtons::YesNo), MsgResult::Yes);
    EXPECT_EQ(recorder.show("four", "t4", MsgIcon::Critical, MsgButtons::OkCancel), MsgResult::Ok);

    ASSERT_EQ(recorder.shown().size(), 4U);
    EXPECT_EQ(recorder.shown()[0].text, "one");
    EXPECT_EQ(recorder.shown()[0].title, "t1");
    EXPECT_EQ(recorder.shown()[0].icon, MsgIcon::Question);
    EXPECT_EQ(recorder.shown()[0].buttons, MsgButtons::OkCancel);
    EXPECT_EQ(recorder.shown()[3].icon, MsgIcon::Critical);
    recorder.clear();
    EXPECT_TRUE(recorder.shown().empty());
}

TEST(MessageBoxes, ScopedRecorderIsInForceAndPutsBackThePrevious)
{
    auto before = setMessageBoxes(nullptr);
    MessageBoxes* quiet = &messageBoxes();
    EXPECT_NE(dynamic_cast<QuietLogMessageBoxes*>(quiet), nullptr);
    {
        ScopedMessageRecorder guard;
        EXPECT_EQ(&messageBoxes(), &guard.recorder());
        EXPECT_EQ(messageBoxes().show("x", "y", MsgIcon::Information, MsgButtons::Ok), MsgResult::Ok);
        ASSERT_EQ(guard.recorder().shown().size(), 1U);
        EXPECT_EQ(guard.recorder().shown()[0].text, "x");
    }
    EXPECT_EQ(&messageBoxes(), quiet);
    setMessageBoxes(before);
}

TEST(MessageBoxes, InstallingReturnsWhatWasInForce)
{
    auto recorder = std::make_shared<RecordingMessageBoxes>();
    auto previous = setMessageBoxes(recorder);
    EXPECT_EQ(&messageBoxes(), recorder.get());
    auto back = setMessageBoxes(previous);
    EXPECT_EQ(back, recorder);
    EXPECT_EQ(&messageBoxes(), previous.get());
}

} // namespace
} // namespace avlor
