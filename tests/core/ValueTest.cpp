#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "ValueErrorKind.h"
#include "avlor/core/Error.h"
#include "avlor/core/Value.h"

namespace avlor {
namespace {

using test::kindOf;

Value i16(int i) { return Value::integer(static_cast<std::int16_t>(i)); }
Value i32(std::int32_t l) { return Value::longValue(l); }

TEST(Value, Kinds)
{
    EXPECT_EQ(Value().kind(), ValueKind::Empty);
    EXPECT_EQ(Value::null().kind(), ValueKind::Null);
    EXPECT_EQ(Value(true).kind(), ValueKind::Boolean);
    EXPECT_EQ(Value(std::int16_t{3}).kind(), ValueKind::Integer);
    EXPECT_EQ(Value(std::int32_t{3}).kind(), ValueKind::Long);
    EXPECT_EQ(Value(3.0).kind(), ValueKind::Double);
    EXPECT_EQ(Value(Currency::fromWhole(3)).kind(), ValueKind::Currency);
    EXPECT_EQ(Value(Date::fromDayCount(3)).kind(), ValueKind::Date);
    EXPECT_EQ(Value("3").kind(), ValueKind::Text);
    EXPECT_EQ(Value(std::string("3")).kind(), ValueKind::Text);
    EXPECT_TRUE(Value().isEmpty());
    EXPECT_TRUE(Value::null().isNull());
    EXPECT_TRUE(Value(true).isNumeric());
    EXPECT_TRUE(Value(Currency()).isNumeric());
    EXPECT_FALSE(Value("3").isNumeric());
    EXPECT_FALSE(Value(Date()).isNumeric());
    EXPECT_FALSE(Value::null().isNumeric());
}

TEST(Value, RawAccessOfTheWrongKindIsATypeMismatch)
{
    EXPECT_EQ(Value("x").asText(), "x");
    EXPECT_EQ(i16(5).asInteger(), 5);
    EXPECT_EQ(kindOf([] { (void)i16(5).asLong(); }), ValueError::Kind::TypeMismatch);
    EXPECT_EQ(kindOf([] { (void)Value().asText(); }), ValueError::Kind::TypeMismatch);
}

// 16-bit conversion -------------------------------------------------------

TEST(ValueToInteger, Bounds)
{
    EXPECT_EQ(i32(32767).toInteger(), 32767);
    EXPECT_EQ(i32(-32768).toInteger(), -32768);
    EXPECT_EQ(kindOf([] { (void)i32(32768).toInteger(); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)i32(-32769).toInteger(); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)add(i16(32767), i16(1)).toInteger(); }), ValueError::Kind::Overflow);
}

TEST(ValueToInteger, DoublesRoundHalvesToEven)
{
    EXPECT_EQ(Value(2.5).toInteger(), 2);
    EXPECT_EQ(Value(3.5).toInteger(), 4);
    EXPECT_EQ(Value(-2.5).toInteger(), -2);
    EXPECT_EQ(Value(-3.5).toInteger(), -4);
    EXPECT_EQ(Value(2.4).toInteger(), 2);
    EXPECT_EQ(Value(32766.5).toInteger(), 32766);
    EXPECT_EQ(Value(32767.4).toInteger(), 32767);
    EXPECT_EQ(Value(-32768.5).toInteger(), -32768);
    EXPECT_EQ(kindOf([] { (void)Value(32767.5).toInteger(); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Value(-32769.5).toInteger(); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Value(std::nan("")).toInteger(); }), ValueError::Kind::Overflow);
}

TEST(ValueToInteger, CurrencyRoundsExactly)
{
    EXPECT_EQ(Value(Currency::fromRaw(25000)).toInteger(), 2);
    EXPECT_EQ(Value(Currency::fromRaw(35000)).toInteger(), 4);
    EXPECT_EQ(Value(Currency::fromRaw(-25000)).toInteger(), -2);
    EXPECT_EQ(Value(Currency::fromRaw(25001)).toInteger(), 3);
    EXPECT_EQ(kindOf([] { (void)Value(Currency::fromRaw(327675000)).toInteger(); }), ValueError::Kind::Overflow);
}

TEST(ValueToInteger, OtherKinds)
{
    EXPECT_EQ(Value().toInteger(), 0);
    EXPECT_EQ(Value(true).toInteger(), -1);
    EXPECT_EQ(Value(false).toInteger(), 0);
    EXPECT_EQ(Value(Date::fromDayCount(123)).toInteger(), 123);
    EXPECT_EQ(kindOf([] { (void)Value(Date::fromDayCount(38140)).toInteger(); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Value::null().toInteger(); }), ValueError::Kind::InvalidUseOfNull);
}

TEST(ValueToInteger, TextIsStrict)
{
    EXPECT_EQ(Value("12").toInteger(), 12);
    EXPECT_EQ(Value(" 7 ").toInteger(), 7);
    EXPECT_EQ(Value("-3.5").toInteger(), -4);
    EXPECT_EQ(Value("2.5").toInteger(), 2);
    EXPECT_EQ(Value("32767").toInteger(), 32767);
    EXPECT_EQ(Value("-32768").toInteger(), -32768);
    EXPECT_EQ(kindOf([] { (void)Value("32768").toInteger(); }), ValueError::Kind::Overflow);
    for (const char* text : {"", "  ", "abc", "12abc", "1,5", "-", "True"})
        EXPECT_EQ(kindOf([text] { (void)Value(text).toInteger(); }), ValueError::Kind::TypeMismatch) << text;
}

// 32-bit conversion -------------------------------------------------------

TEST(ValueToLong, Bounds)
{
    EXPECT_EQ(Value(2147483647.0).toLong(), 2147483647);
    EXPECT_EQ(Value(-2147483648.0).toLong(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(Value(2147483646.5).toLong(), 2147483646);
    EXPECT_EQ(kindOf([] { (void)Value(2147483647.5).toLong(); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Value(2147483648.0).toLong(); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Value(-2147483649.0).toLong(); }), ValueError::Kind::Overflow);
    EXPECT_EQ(Value("2147483647").toLong(), 2147483647);
    EXPECT_EQ(kindOf([] { (void)Value("2147483648").toLong(); }), ValueError::Kind::Overflow);
    EXPECT_EQ(Value(Currency::fromWhole(2147483647)).toLong(), 2147483647);
    EXPECT_EQ(kindOf([] { (void)Value(Currency::fromWhole(2147483648)).toLong(); }), ValueError::Kind::Overflow);
    EXPECT_EQ(i16(-5).toLong(), -5);
    EXPECT_EQ(Value(Date::fromDayCount(38140)).toLong(), 38140);
    EXPECT_EQ(Value(true).toLong(), -1);
    EXPECT_EQ(Value().toLong(), 0);
    EXPECT_EQ(kindOf([] { (void)Value::null().toLong(); }), ValueError::Kind::InvalidUseOfNull);
    EXPECT_EQ(kindOf([] { (void)Value("").toLong(); }), ValueError::Kind::TypeMismatch);
}

// Double and Currency conversions ------------------------------------------

TEST(ValueToDouble, AllKinds)
{
    EXPECT_EQ(Value().toDouble(), 0.0);
    EXPECT_EQ(Value(true).toDouble(), -1.0);
    EXPECT_EQ(Value(false).toDouble(), 0.0);
    EXPECT_EQ(i16(-7).toDouble(), -7.0);
    EXPECT_EQ(i32(70000).toDouble(), 70000.0);
    EXPECT_EQ(Value(0.25).toDouble(), 0.25);
    EXPECT_EQ(Value(Currency::fromRaw(-32500)).toDouble(), -3.25);
    EXPECT_EQ(Value(Date::fromDayCount(38140)).toDouble(), 38140.0);
    EXPECT_EQ(Value("-3.5").toDouble(), -3.5);
    EXPECT_EQ(Value(" 7").toDouble(), 7.0);
    EXPECT_EQ(Value("1.5e2").toDouble(), 150.0);
    EXPECT_EQ(kindOf([] { (void)Value::null().toDouble(); }), ValueError::Kind::InvalidUseOfNull);
    EXPECT_EQ(kindOf([] { (void)Value("").toDouble(); }), ValueError::Kind::TypeMismatch);
    EXPECT_EQ(kindOf([] { (void)Value("abc").toDouble(); }), ValueError::Kind::TypeMismatch);
    EXPECT_EQ(kindOf([] { (void)Value("12abc").toDouble(); }), ValueError::Kind::TypeMismatch);
    EXPECT_EQ(kindOf([] { (void)Value("1e999").toDouble(); }), ValueError::Kind::Overflow);
}

TEST(ValueToCurrency, AllKinds)
{
    EXPECT_EQ(Value().toCurrency().raw(), 0);
    EXPECT_EQ(Value(true).toCurrency().raw(), -10000);
    EXPECT_EQ(i16(12).toCurrency().raw(), 120000);
    EXPECT_EQ(i32(-70000).toCurrency().raw(), -700000000);
    EXPECT_EQ(Value(1234.5).toCurrency().raw(), 12345000);
    EXPECT_EQ(Value(Currency::fromRaw(7)).toCurrency().raw(), 7);
    EXPECT_EQ(Value(Date::fromDayCount(2)).toCurrency().raw(), 20000);
    // Text is read exactly on its decimal digits.
    EXPECT_EQ(Value("0.00015").toCurrency().raw(), 2);
    EXPECT_EQ(Value(" 27950 ").toCurrency().raw(), 279500000);
    EXPECT_EQ(kindOf([] { (void)Value::null().toCurrency(); }), ValueError::Kind::InvalidUseOfNull);
    EXPECT_EQ(kindOf([] { (void)Value("").toCurrency(); }), ValueError::Kind::TypeMismatch);
    EXPECT_EQ(kindOf([] { (void)Value("12abc").toCurrency(); }), ValueError::Kind::TypeMismatch);
    EXPECT_EQ(kindOf([] { (void)Value(1e20).toCurrency(); }), ValueError::Kind::Overflow);
}

// Booleans -----------------------------------------------------------------

TEST(ValueToBool, AllKinds)
{
    EXPECT_FALSE(Value().toBool());
    EXPECT_TRUE(Value(true).toBool());
    EXPECT_FALSE(Value(false).toBool());
    EXPECT_TRUE(i16(-1).toBool());
    EXPECT_TRUE(i16(5).toBool());
    EXPECT_FALSE(i16(0).toBool());
    EXPECT_FALSE(i32(0).toBool());
    EXPECT_TRUE(Value(0.5).toBool());
    EXPECT_FALSE(Value(0.0).toBool());
    EXPECT_TRUE(Value(Currency::fromRaw(1)).toBool());
    EXPECT_FALSE(Value(Currency()).toBool());
    EXPECT_TRUE(Value("True").toBool());
    EXPECT_TRUE(Value("TRUE").toBool());
    EXPECT_TRUE(Value(" true ").toBool());
    EXPECT_FALSE(Value("False").toBool());
    EXPECT_FALSE(Value("fAlSe").toBool());
    EXPECT_TRUE(Value("-1").toBool());
    EXPECT_TRUE(Value("2.5").toBool());
    EXPECT_FALSE(Value("0").toBool());
    EXPECT_EQ(kindOf([] { (void)Value::null().toBool(); }), ValueError::Kind::InvalidUseOfNull);
    EXPECT_EQ(kindOf([] { (void)Value("").toBool(); }), ValueError::Kind::TypeMismatch);
    EXPECT_EQ(kindOf([] { (void)Value("yes").toBool(); }), ValueError::Kind::TypeMismatch);
}

// Dates --------------------------------------------------------------------

TEST(ValueToDate, AllKinds)
{
    EXPECT_EQ(Value(Date::fromDayCount(38140)).toDate().dayCount(), 38140);
    EXPECT_EQ(Value("02/06/2004").toDate().dayCount(), 38140);
    EXPECT_EQ(Value("2/6/2004").toDate().dayCount(), 38140);
    EXPECT_EQ(i32(38140).toDate().dayCount(), 38140);
    EXPECT_EQ(i16(2).toDate().dayCount(), 2);
    EXPECT_EQ(Value(38140.75).toDate().dayCount(), 38140);
    EXPECT_EQ(Value(-1.5).toDate().dayCount(), -1);
    EXPECT_EQ(Value(Currency::fromText("38140.5")).toDate().dayCount(), 38140);
    EXPECT_EQ(Value().toDate().dayCount(), 0);
    EXPECT_EQ(kindOf([] { (void)Value::null().toDate(); }), ValueError::Kind::InvalidUseOfNull);
    EXPECT_EQ(kindOf([] { (void)Value("31/02/2004").toDate(); }), ValueError::Kind::InvalidDate);
    EXPECT_EQ(kindOf([] { (void)Value("").toDate(); }), ValueError::Kind::InvalidDate);
    EXPECT_EQ(kindOf([] { (void)Value("abc").toDate(); }), ValueError::Kind::InvalidDate);
    EXPECT_EQ(kindOf([] { (void)Value(1e12).toDate(); }), ValueError::Kind::Overflow);
}

// Joining to text ----------------------------------------------------------

TEST(ValueToText, NumbersAsPlainText)
{
    const Locale italian = Locale::italian();
    EXPECT_EQ(i16(12).toText(italian), "12");
    EXPECT_EQ(i16(-32768).toText(italian), "-32768");
    EXPECT_EQ(i32(1234567).toText(italian), "1234567");
    EXPECT_EQ(Value(0.5).toText(italian), "0.5");
    EXPECT_EQ(Value(-3.25).toText(italian), "-3.25");
    EXPECT_EQ(Value(7.0).toText(italian), "7");
    EXPECT_EQ(Value(0.0).toText(italian), "0");
    EXPECT_EQ(Value(-0.0).toText(italian), "0");
    EXPECT_EQ(Value(1234.5).toText(italian), "1234.5");
    EXPECT_EQ(Value(Currency::fromWhole(27950)).toText(italian), "27950");
    EXPECT_EQ(Value(Currency::fromRaw(5000)).toText(italian), "0.5");
    EXPECT_EQ(Value(Currency::fromRaw(-32500)).toText(italian), "-3.25");
}

TEST(ValueToText, DoublesWithFifteenSignificantDigits)
{
    const Locale neutral = Locale::neutral();
    EXPECT_EQ(Value(0.1 + 0.2).toText(neutral), "0.3");
    EXPECT_EQ(Value(1.0 / 3.0).toText(neutral), "0.333333333333333");
    EXPECT_EQ(Value(2.0 / 3.0).toText(neutral), "0.666666666666667");
    EXPECT_EQ(Value(1e20).toText(neutral), "100000000000000000000");
    EXPECT_EQ(Value(-1e20).toText(neutral), "-100000000000000000000");
    EXPECT_EQ(Value(123456789012345678.0).toText(neutral), "123456789012346000");
    EXPECT_EQ(Value(1e21).toText(neutral), "1E+21");
    EXPECT_EQ(Value(1.5e-7).toText(neutral), "1.5E-07");
    EXPECT_EQ(Value(0.000001).toText(neutral), "0.000001");
    EXPECT_EQ(Value(0.00012).toText(neutral), "0.00012");
    EXPECT_EQ(Value(1.5e300).toText(neutral), "1.5E+300");
}

TEST(ValueToText, BooleansDatesNullAndEmpty)
{
    EXPECT_EQ(Value(true).toText(Locale::neutral()), "True");
    EXPECT_EQ(Value(false).toText(Locale::neutral()), "False");
    EXPECT_EQ(Value(Date::fromDayCount(38140)).toText(Locale::italian()), "02/06/2004");
    EXPECT_EQ(Value(Date::fromDayCount(38140)).toText(Locale::unitedStates()), "6/2/2004");
    EXPECT_EQ(Value(Date::fromDayCount(38140)).toText(Locale::neutral()), "02/06/2004");
    EXPECT_EQ(Value::null().toText(Locale::neutral()), "");
    EXPECT_EQ(Value().toText(Locale::neutral()), "");
    EXPECT_EQ(Value(" a b ").toText(Locale::neutral()), " a b ");
}

// Lenient reading ----------------------------------------------------------

TEST(NumberLenient, LeadingNumberOfTheText)
{
    EXPECT_EQ(numberLenient(" 7"), 7.0);
    EXPECT_EQ(numberLenient("12abc"), 12.0);
    EXPECT_EQ(numberLenient("abc"), 0.0);
    EXPECT_EQ(numberLenient(""), 0.0);
    EXPECT_EQ(numberLenient("   "), 0.0);
    EXPECT_EQ(numberLenient("1.5e2"), 150.0);
    EXPECT_EQ(numberLenient("-3.5"), -3.5);
    EXPECT_EQ(numberLenient("+4"), 4.0);
    EXPECT_EQ(numberLenient(".5"), 0.5);
    EXPECT_EQ(numberLenient("-.5x"), -0.5);
    EXPECT_EQ(numberLenient("1,5"), 1.0);
    EXPECT_EQ(numberLenient("1.2.3"), 1.2);
    EXPECT_EQ(numberLenient("12e"), 12.0);
    EXPECT_EQ(numberLenient("12e+"), 12.0);
    EXPECT_EQ(numberLenient("12e-1z"), 1.2);
    EXPECT_EQ(numberLenient("-"), 0.0);
    EXPECT_EQ(numberLenient("."), 0.0);
    EXPECT_EQ(numberLenient("x12"), 0.0);
    EXPECT_EQ(numberLenient("\t 42 "), 42.0);
    EXPECT_EQ(numberLenient("-1"), -1.0);
    EXPECT_EQ(numberLenient("1e999"), HUGE_VAL);
    EXPECT_EQ(numberLenient("1e-999"), 0.0);
}

TEST(NumberLenient, OfAValueReadsItsText)
{
    EXPECT_EQ(Value("12abc").numberLenient(), 12.0);
    EXPECT_EQ(Value::null().numberLenient(), 0.0);
    EXPECT_EQ(Value().numberLenient(), 0.0);
    EXPECT_EQ(i32(-5).numberLenient(), -5.0);
    EXPECT_EQ(Value(2.5).numberLenient(), 2.5);
    EXPECT_EQ(Value(Currency::fromRaw(12345)).numberLenient(), 1.2345);
    // The text of a boolean is "True", which holds no number.
    EXPECT_EQ(Value(true).numberLenient(), 0.0);
    // The text of a date begins with its day.
    EXPECT_EQ(Value(Date::fromDayCount(38140)).numberLenient(), 2.0);
}

// Logical negation ---------------------------------------------------------

TEST(LogicalNot, NumbersAreComplementedBitByBit)
{
    EXPECT_TRUE(logicalNot(i16(0)).identicalTo(i16(-1)));
    EXPECT_TRUE(logicalNot(i16(-1)).identicalTo(i16(0)));
    EXPECT_TRUE(logicalNot(i16(5)).identicalTo(i16(-6)));
    EXPECT_TRUE(logicalNot(i32(0)).identicalTo(i32(-1)));
    EXPECT_TRUE(logicalNot(i32(-1)).identicalTo(i32(0)));
    EXPECT_TRUE(logicalNot(i32(5)).identicalTo(i32(-6)));
    EXPECT_TRUE(logicalNot(Value(2.5)).identicalTo(i32(-3)));
    EXPECT_TRUE(logicalNot(Value(0.0)).identicalTo(i32(-1)));
    EXPECT_TRUE(logicalNot(Value(Currency::fromWhole(-1))).identicalTo(i32(0)));
    EXPECT_TRUE(logicalNot(Value("5")).identicalTo(i32(-6)));
}

TEST(LogicalNot, BooleansNullAndEmpty)
{
    EXPECT_TRUE(logicalNot(Value(true)).identicalTo(Value(false)));
    EXPECT_TRUE(logicalNot(Value(false)).identicalTo(Value(true)));
    EXPECT_TRUE(logicalNot(Value::null()).isNull());
    EXPECT_TRUE(logicalNot(Value()).identicalTo(i16(-1)));
    EXPECT_TRUE(logicalNot(Value("True")).identicalTo(Value(false)));
    EXPECT_TRUE(logicalNot(Value("false")).identicalTo(Value(true)));
    EXPECT_EQ(kindOf([] { (void)logicalNot(Value("abc")); }), ValueError::Kind::TypeMismatch);
}

// Sums ---------------------------------------------------------------------

TEST(Add, NullPropagates)
{
    EXPECT_TRUE(add(Value::null(), i16(1)).isNull());
    EXPECT_TRUE(add(i32(1), Value::null()).isNull());
    EXPECT_TRUE(add(Value::null(), Value("abc")).isNull());
    // null + 1 converted to a number is the error the counts raise.
    EXPECT_EQ(kindOf([] { (void)add(Value::null(), i32(1)).toLong(); }), ValueError::Kind::InvalidUseOfNull);
}

TEST(Add, WholeNumbersWidenOnOverflow)
{
    EXPECT_TRUE(add(i16(2), i16(3)).identicalTo(i16(5)));
    EXPECT_TRUE(add(i16(32767), i16(1)).identicalTo(i32(32768)));
    EXPECT_TRUE(add(i16(-32768), i16(-1)).identicalTo(i32(-32769)));
    EXPECT_TRUE(add(i16(2), i32(3)).identicalTo(i32(5)));
    EXPECT_TRUE(add(i32(2147483647), i32(1)).identicalTo(Value(2147483648.0)));
    EXPECT_TRUE(add(i32(2), i16(1)).identicalTo(i32(3)));
}

TEST(Add, EmptyBooleansAndText)
{
    EXPECT_TRUE(add(Value(), Value()).identicalTo(i16(0)));
    EXPECT_TRUE(add(Value(), i32(1)).identicalTo(i32(1)));
    EXPECT_TRUE(add(Value(true), i16(1)).identicalTo(i16(0)));
    EXPECT_TRUE(add(Value(true), Value(true)).identicalTo(i16(-2)));
    EXPECT_TRUE(add(Value("2"), i32(1)).identicalTo(Value(3.0)));
    EXPECT_TRUE(add(Value(" 2.5 "), Value("1")).identicalTo(Value(3.5)));
    EXPECT_EQ(kindOf([] { (void)add(Value("abc"), i32(1)); }), ValueError::Kind::TypeMismatch);
    EXPECT_EQ(kindOf([] { (void)add(Value(""), i32(1)); }), ValueError::Kind::TypeMismatch);
}

TEST(Add, DoublesCurrencyAndDates)
{
    EXPECT_TRUE(add(Value(0.5), i16(1)).identicalTo(Value(1.5)));
    EXPECT_TRUE(add(Value(Currency::fromRaw(1)), i32(1)).identicalTo(Value(Currency::fromRaw(10001))));
    EXPECT_TRUE(add(Value(Currency::fromRaw(1)), Value(0.5)).identicalTo(Value(Currency::fromRaw(5001))));
    EXPECT_EQ(kindOf([] { (void)add(Value(Currency::max()), Value(Currency::fromRaw(1))); }),
              ValueError::Kind::Overflow);
    EXPECT_TRUE(add(Value(Date::fromDayCount(38140)), i16(1)).identicalTo(Value(Date::fromDayCount(38141))));
    EXPECT_TRUE(add(i32(-1), Value(Date::fromDayCount(38140))).identicalTo(Value(Date::fromDayCount(38139))));
    EXPECT_TRUE(add(Value(Date::fromDayCount(10)), Value(0.5)).identicalTo(Value(10.5)));
}

// Identity -----------------------------------------------------------------

TEST(Value, IdenticalToComparesKindAndContent)
{
    EXPECT_TRUE(Value::null().identicalTo(Value::null()));
    EXPECT_TRUE(Value().identicalTo(Value()));
    EXPECT_FALSE(Value().identicalTo(Value::null()));
    EXPECT_FALSE(i16(1).identicalTo(i32(1)));
    EXPECT_FALSE(i32(1).identicalTo(Value(1.0)));
    EXPECT_FALSE(Value("1").identicalTo(i32(1)));
    EXPECT_TRUE(Value("a").identicalTo(Value(std::string("a"))));
    EXPECT_FALSE(Value("a").identicalTo(Value("A")));
    EXPECT_FALSE(Value(true).identicalTo(i16(-1)));
    EXPECT_TRUE(Value(Currency::fromRaw(5)).identicalTo(Value(Currency::fromRaw(5))));
    EXPECT_FALSE(Value(Date::fromDayCount(5)).identicalTo(Value(Date::fromDayCount(6))));
}

} // namespace
} // namespace avlor
