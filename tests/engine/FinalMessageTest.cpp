// The engine's message when nothing can be proposed.
#include <gtest/gtest.h>

#include "avlor/core/Messages.h"
#include "avlor/engine/FinalMessage.h"

namespace avlor {
namespace {

TEST(FinalMessage, TextWithKindAndCode)
{
    EXPECT_EQ(noProposalText("Diritto", "12a"),
              "Diritto codice <12a> non previsto per una pratica di questo valore.\rNessun valore proposto.");
}

TEST(FinalMessage, TextWithoutKindAndCodeBeginsWithABlank)
{
    EXPECT_EQ(noProposalText("", ""),
              " codice <> non previsto per una pratica di questo valore.\rNessun valore proposto.");
}

TEST(FinalMessage, ShownAsAnInformationBoxWithOneButton)
{
    ScopedMessageRecorder messages;
    showNoProposal("Onorario Penale", "P 1.1");
    ASSERT_EQ(messages.recorder().shown().size(), 1u);
    const auto& shown = messages.recorder().shown().front();
    EXPECT_EQ(shown.title, "Attenzione");
    EXPECT_EQ(shown.text,
              "Onorario Penale codice <P 1.1> non previsto per una pratica di questo valore.\rNessun valore proposto.");
    EXPECT_EQ(shown.icon, MsgIcon::Information);
    EXPECT_EQ(shown.buttons, MsgButtons::Ok);
    // A lone carriage return, no line feed.
    EXPECT_EQ(shown.text.find('\n'), std::string::npos);
}

} // namespace
} // namespace avlor
