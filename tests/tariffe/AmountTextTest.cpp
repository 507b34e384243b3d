// Reading amount cells in Italian notation or with a decimal point.
#include <gtest/gtest.h>

#include "avlor/core/Error.h"
#include "avlor/tariffe/AmountText.h"

namespace avlor {
namespace {

Currency amount(const char* text) { return Currency::fromText(text); }

TEST(AmountText, WholeNumbersReadTheSameInBothNotations)
{
    const AmountText cell = readAmountText("85000");
    EXPECT_EQ(cell.form, AmountText::Form::Whole);
    EXPECT_EQ(cell.amount, amount("85000"));
    EXPECT_EQ(readAmountText(" 0 ").amount, Currency());
    EXPECT_EQ(styleShownBy(cell), DecimalStyle::Unknown);
}

TEST(AmountText, ItalianNotation)
{
    struct Case {
        const char* text;
        const char* expected;
    };
    for (const Case& c : {Case{"1.234,56", "1234.56"}, Case{"1301,47", "1301.47"}, Case{"0,0001", "0.0001"},
                          Case{"1.549.370,70", "1549370.7"}, Case{"85.000.000", "85000000"}, Case{"43,9", "43.9"},
                          Case{"0,5", "0.5"}, Case{"1.000,00", "1000"}}) {
        SCOPED_TRACE(c.text);
        const AmountText cell = readAmountText(c.text);
        EXPECT_EQ(cell.form, AmountText::Form::Italian);
        EXPECT_EQ(cell.amount, amount(c.expected));
        EXPECT_EQ(styleShownBy(cell), DecimalStyle::Italian);
    }
}

TEST(AmountText, PointNotation)
{
    struct Case {
        const char* text;
        const char* expected;
    };
    for (const Case& c : {Case{"1234.56", "1234.56"}, Case{"12.5", "12.5"}, Case{"0.500", "0.5"},
                          Case{"1234.567", "1234.567"}, Case{"1.0550", "1.055"}, Case{"27950.0000", "27950"}}) {
        SCOPED_TRACE(c.text);
        const AmountText cell = readAmountText(c.text);
        EXPECT_EQ(cell.form, AmountText::Form::Point);
        EXPECT_EQ(cell.amount, amount(c.expected));
        EXPECT_EQ(styleShownBy(cell), DecimalStyle::Point);
    }
}

TEST(AmountText, OnePointAndThreeDigitsIsAmbiguousUntilTheFileDecides)
{
    const AmountText cell = readAmountText("1.055");
    EXPECT_EQ(cell.form, AmountText::Form::Ambiguous);
    EXPECT_EQ(styleShownBy(cell), DecimalStyle::Unknown);
    EXPECT_EQ(amountInStyle(cell, "1.055", DecimalStyle::Italian), amount("1055"));
    EXPECT_EQ(amountInStyle(cell, "1.055", DecimalStyle::Point), amount("1.055"));
    try {
        (void)amountInStyle(cell, "1.055", DecimalStyle::Unknown);
        FAIL() << "no error";
    } catch (const ValueError& e) {
        EXPECT_STREQ(e.what(),
                     "\"1.055\" si può leggere in due modi: nient'altro nel file dice se il punto separa le "
                     "migliaia (1055) o i decimali (1.055); scrivere 1055 o 1.055,00 per il primo, "
                     "1.0550 per il secondo");
    }
}

TEST(AmountText, AtMostFourDecimals)
{
    EXPECT_EQ(readAmountText("0.0001").amount, Currency::fromRaw(1));
    EXPECT_EQ(readAmountText("0,0001").amount, Currency::fromRaw(1));
    try {
        (void)readAmountText("12.34567");
        FAIL() << "no error";
    } catch (const ValueError& e) {
        EXPECT_STREQ(e.what(), "\"12.34567\" ha più di quattro decimali e non si può tenere esatto");
    }
    EXPECT_THROW((void)readAmountText("12,34567"), ValueError);
}

TEST(AmountText, RefusesWhatIsNoAmount)
{
    for (const char* text : {"", "   ", "abc", "12a", "1 234", "1,2,3", ",5", "5,", "5.", ".5", "1.2345,00", "12.345.6",
                             "1..2", "+5", "1e3", "0.000.000", "1.23,4.5"}) {
        SCOPED_TRACE(text);
        EXPECT_THROW((void)readAmountText(text), ValueError);
    }
}

TEST(AmountText, RefusesNegativeAmounts)
{
    try {
        (void)readAmountText("-5");
        FAIL() << "no error";
    } catch (const ValueError& e) {
        EXPECT_STREQ(e.what(), "\"-5\" è negativo: gli importi delle tariffe non sono mai sotto lo 0");
    }
}

TEST(AmountText, RefusesAmountsBeyondCurrency)
{
    EXPECT_EQ(readAmountText("922337203685477").amount, Currency::fromWhole(922337203685477));
    try {
        (void)readAmountText("922337203685478");
        FAIL() << "no error";
    } catch (const ValueError& e) {
        EXPECT_STREQ(e.what(), "\"922337203685478\" è troppo grande per un importo");
    }
}

} // namespace
} // namespace avlor
