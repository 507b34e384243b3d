// Amounts typed on the command line.
#include <gtest/gtest.h>

#include "avlor/core/Error.h"
#include "avlor/core/TypedAmount.h"

namespace avlor {
namespace {

Currency amount(const char* text) { return Currency::fromText(text); }

std::string refusal(const char* text)
{
    try {
        (void)readTypedAmount(text);
    } catch (const ValueError& e) {
        return e.what();
    }
    return "(accepted)";
}

TEST(TypedAmount, EachUsualWayIsReadAsMeant)
{
    EXPECT_EQ(readTypedAmount("30000"), amount("30000"));
    EXPECT_EQ(readTypedAmount("30000,50"), amount("30000.5"));
    EXPECT_EQ(readTypedAmount("30.000,50"), amount("30000.5"));
    EXPECT_EQ(readTypedAmount("30000.50"), amount("30000.5"));
    EXPECT_EQ(readTypedAmount("30,000.50"), amount("30000.5"));
    EXPECT_EQ(readTypedAmount("1.234.567"), amount("1234567"));
    EXPECT_EQ(readTypedAmount("1.234.567,8912"), amount("1234567.8912"));
    EXPECT_EQ(readTypedAmount(" 25900 "), amount("25900"));
    EXPECT_EQ(readTypedAmount("25,9"), amount("25.9"));
    EXPECT_EQ(readTypedAmount("25.90"), amount("25.9"));
    EXPECT_EQ(readTypedAmount("25900.0000"), amount("25900"));
    EXPECT_EQ(readTypedAmount("0,500"), amount("0.5"));
    EXPECT_EQ(readTypedAmount("0.125"), amount("0.125"));
    EXPECT_EQ(readTypedAmount("1234.567"), amount("1234.567"));
    EXPECT_EQ(readTypedAmount("-5,5"), amount("-5.5"));
    EXPECT_EQ(readTypedAmount("+7"), amount("7"));
    EXPECT_EQ(readTypedAmount("0"), Currency{});
}

TEST(TypedAmount, TextMeantTwoWaysShowsBothReadings)
{
    EXPECT_EQ(refusal("25.900"),
              "«25.900» si può leggere in due modi: 25900 oppure 25,9; scrivere 25900 per il primo, 25,9 per il "
              "secondo");
    EXPECT_EQ(refusal("1.234"),
              "«1.234» si può leggere in due modi: 1234 oppure 1,234; scrivere 1234 per il primo, 1,234 per il "
              "secondo");
    EXPECT_EQ(refusal("1,234"),
              "«1,234» si può leggere in due modi: 1234 oppure 1,234; scrivere 1234 per il primo, 1,234 per il "
              "secondo");
    EXPECT_EQ(refusal("30.000"),
              "«30.000» si può leggere in due modi: 30000 oppure 30; scrivere 30000 per il primo, 30 per il secondo");
}

TEST(TypedAmount, WhatIsNotAnAmountIsRefused)
{
    const std::string how = " non è un importo: scriverlo per esempio 30000, 30000,50 o 30.000,50";
    for (const char* text : {"abc", "12abc", "1.2.3", "12,34,5", "1.234,5,6", ",50", ".5", "-", "1 000", "1e5",
                             "30.000.50,1,2", "12.34,5"}) {
        EXPECT_EQ(refusal(text), "«" + std::string(text) + "»" + how) << text;
    }
    EXPECT_EQ(refusal(""), "«» non è un importo: manca la cifra");
    EXPECT_EQ(refusal("   "), "«   » non è un importo: manca la cifra");
}

TEST(TypedAmount, AtMostFourDecimalsAndWithinTheRange)
{
    EXPECT_EQ(readTypedAmount("0,0001"), amount("0.0001"));
    EXPECT_EQ(refusal("0,00001"),
              "«0,00001» ha più di quattro decimali: gli importi si tengono esatti al decimillesimo");
    EXPECT_EQ(readTypedAmount("922337203685477,5807"), amount("922337203685477.5807"));
    EXPECT_EQ(refusal("922337203685477,5808"), "«922337203685477,5808» è un importo troppo grande");
    try {
        (void)readTypedAmount("99999999999999999999");
        FAIL();
    } catch (const ValueError& e) {
        EXPECT_EQ(e.kind(), ValueError::Kind::Overflow);
    }
}

} // namespace
} // namespace avlor
