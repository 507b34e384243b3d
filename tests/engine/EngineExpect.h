#pragma once
// Checks shared by the engine tests: a call on a value, outputs left as they
// were or cleared, and the one message shown when nothing is proposed.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "EngineCall.h"
#include "avlor/core/Messages.h"

namespace avlor::test {

// A call on item `id` of `table` for the value given as decimal text.
inline EngineCall valueCall(const char* table, std::int32_t id, const char* value, std::int16_t bInd, std::int16_t vRil)
{
    EngineCall c;
    c.sTabella = table;
    c.idTariffa = id;
    c.cValore = amount(value);
    c.bInd = bInd;
    c.vRil = vRil;
    return c;
}

// None of the four outputs was written.
inline void expectUntouched(const EngineCall& c)
{
    EXPECT_EQ(c.MinTar, MinTarBefore);
    EXPECT_EQ(c.MaxTar, MaxTarBefore);
    EXPECT_EQ(c.MinS, MinSBefore);
    EXPECT_EQ(c.MaxS, MaxSBefore);
}

// All four outputs were set to 0.
inline void expectCleared(const EngineCall& c)
{
    EXPECT_EQ(c.MinTar, Currency{});
    EXPECT_EQ(c.MaxTar, Currency{});
    EXPECT_EQ(c.MinS, Currency{});
    EXPECT_EQ(c.MaxS, Currency{});
}

// Exactly one message was shown, with this text. A caller that goes on to
// read the message wraps the call in ASSERT_NO_FATAL_FAILURE.
inline void expectOneMessage(ScopedMessageRecorder& messages, const std::string& text)
{
    ASSERT_EQ(messages.recorder().shown().size(), 1u);
    EXPECT_EQ(messages.recorder().shown()[0].text, text);
}

} // namespace avlor::test
