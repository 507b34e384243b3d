// Reading an amount back from the text of a money field.
#include <gtest/gtest.h>

#include "avlor/dialog/MoneyText.h"

namespace avlor::dialog {
namespace {

Currency amount(const char* text) { return Currency::fromText(text); }

TEST(MoneyText, ItalianSeparators)
{
    const Locale italian = Locale::italian();
    EXPECT_EQ(readAmount("1.234,50", italian), amount("1234.5"));
    EXPECT_EQ(readAmount("30.000", italian), amount("30000"));
    EXPECT_EQ(readAmount(" 1.000.000,25 ", italian), amount("1000000.25"));
    EXPECT_EQ(readAmount("-7,5", italian), amount("-7.5"));
    EXPECT_EQ(readAmount(",50", italian), amount("0.5"));
}

TEST(MoneyText, NeutralSeparators)
{
    const Locale neutral = Locale::neutral();
    EXPECT_EQ(readAmount("1,234.50", neutral), amount("1234.5"));
    EXPECT_EQ(readAmount("12345", neutral), amount("12345"));
}

// A separator that cannot group thousands marks the decimals, in either
// locale: an amount is never read a hundred times too large.
TEST(MoneyText, TheOtherNotationsDecimalsAreNotReadAsThousands)
{
    const Locale italian = Locale::italian();
    EXPECT_EQ(readAmount("10.00", italian), amount("10"));
    EXPECT_EQ(readAmount("120.5", italian), amount("120.5"));
    EXPECT_EQ(readAmount("0.1234", italian), amount("0.1234"));
    EXPECT_EQ(readAmount("1.234", italian), amount("1234"));
    EXPECT_EQ(readAmount("1.234.56", italian), amount("123456"));
    EXPECT_EQ(readAmount("1.234,5", italian), amount("1234.5"));
    const Locale english = Locale::unitedStates();
    EXPECT_EQ(readAmount("120,00", english), amount("120"));
    EXPECT_EQ(readAmount("16,5", english), amount("16.5"));
    EXPECT_EQ(readAmount("12,000", english), amount("12000"));
    EXPECT_EQ(readAmount("12,000.25", english), amount("12000.25"));
}

TEST(MoneyText, TheLeadingNumberIsTakenAndTheRestIgnored)
{
    const Locale italian = Locale::italian();
    EXPECT_EQ(readAmount("12abc", italian), amount("12"));
    EXPECT_EQ(readAmount("12,5 euro", italian), amount("12.5"));
}

TEST(MoneyText, NoNumberReadsZero)
{
    const Locale italian = Locale::italian();
    EXPECT_EQ(readAmount("", italian), Currency{});
    EXPECT_EQ(readAmount("abc", italian), Currency{});
    EXPECT_EQ(readAmount(",00", italian), Currency{});
    EXPECT_EQ(readAmount("-", italian), Currency{});
    EXPECT_EQ(readAmount("\u20AC  1.234,50", italian), Currency{});
}

TEST(MoneyText, DigitsBeyondTheFourthDecimalRoundHalvesToEven)
{
    const Locale italian = Locale::italian();
    EXPECT_EQ(readAmount("0,12345", italian), amount("0.1234"));
    EXPECT_EQ(readAmount("0,12355", italian), amount("0.1236"));
}

} // namespace
} // namespace avlor::dialog
