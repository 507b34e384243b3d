// Choosing the section from the table name, and the final step.
#include <gtest/gtest.h>

#include "EngineCall.h"
#include "EngineExpect.h"
#include "avlor/core/Messages.h"

namespace avlor {
namespace {

using test::amount;
using test::EngineCall;
using test::expectCleared;
using test::expectOneMessage;
using test::expectUntouched;
using test::noProposal;

TEST(Dispatch, TheNameIsTrimmedAndComparedWithoutCase)
{
    ScopedMessageRecorder messages;
    EngineCall call;
    call.sTabella = "  diritti94euro ";
    call.idTariffa = 132;
    call.vRil = 0;
    EXPECT_EQ(call.run().toFixed4(), "7.7500");
    EXPECT_EQ(call.MaxTar.toFixed4(), "25.8200");
    EXPECT_TRUE(messages.recorder().shown().empty());
}

TEST(Dispatch, AnUnknownTableProposesNothingAndTouchesNothing)
{
    for (const char* name : {"Diritti95", "", "   ", "\tDiritti94", "Diritti 94", "OnorariPenali"}) {
        ScopedMessageRecorder messages;
        EngineCall call;
        call.sTabella = name;
        call.idTariffa = 132;
        call.cValore = amount("1000");
        call.vRil = 50;
        EXPECT_EQ(call.run(), Currency{}) << name;
        expectUntouched(call);
        ASSERT_EQ(messages.recorder().shown().size(), 1u) << name;
        EXPECT_EQ(messages.recorder().shown()[0].text, noProposal("", ""));
        EXPECT_EQ(messages.recorder().shown()[0].title, "Attenzione");
        EXPECT_EQ(messages.recorder().shown()[0].icon, MsgIcon::Information);
        EXPECT_EQ(messages.recorder().shown()[0].buttons, MsgButtons::Ok);
    }
}

TEST(Dispatch, TheInputsAreNotChanged)
{
    ScopedMessageRecorder messages;
    EngineCall call;
    call.sTabella = " onorari2004euro ";
    call.idTariffa = 62;
    call.vRil = 37;
    call.bInd = -1;
    call.cValore = amount("1234.5");
    call.Autorita = "Tribunale";
    static_cast<void>(call.run());
    EXPECT_EQ(call.sTabella, " onorari2004euro ");
    EXPECT_EQ(call.idTariffa, 62);
    EXPECT_EQ(call.vRil, 37);
    EXPECT_EQ(call.bInd, -1);
    EXPECT_EQ(call.cValore.toFixed4(), "1234.5000");
    EXPECT_EQ(call.Autorita, "Tribunale");
}

TEST(Dispatch, ANegativeProposalIsStillAProposal)
{
    // Only a result of exactly 0 shows the message.
    ScopedMessageRecorder messages;
    EngineCall call;
    call.sTabella = "Onorari2004Euro";
    call.idTariffa = 62;
    call.vRil = -32768;
    EXPECT_EQ(call.run().toFixed4(), "-6543.6000");
    EXPECT_TRUE(messages.recorder().shown().empty());
}

class UnknownAuthorityTest : public testing::TestWithParam<const char*> { };

// An authority the criminal tables do not know clears the band, reads no
// row and proposes nothing, in every edition.
TEST_P(UnknownAuthorityTest, ClearsTheBandAndProposesNothing)
{
    for (const char* autorita : {"", "tribunale", "Tribunale ", "Corte d'appello"}) {
        ScopedMessageRecorder messages;
        EngineCall call;
        call.sTabella = GetParam();
        call.idTariffa = 1;
        call.vRil = 50;
        call.Autorita = autorita;
        EXPECT_EQ(call.run(), Currency{});
        expectCleared(call);
        expectOneMessage(messages, noProposal("", ""));
    }
}

INSTANTIATE_TEST_SUITE_P(EveryEdition, UnknownAuthorityTest,
                         testing::Values("OnorariPenali94", "OnorariPenali94Euro", "OnorariPenali2004Euro",
                                         " onoraripenali2004euro "));

} // namespace
} // namespace avlor
