#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "ValueErrorKind.h"
#include "avlor/core/Currency.h"
#include "avlor/core/Error.h"

namespace avlor {
namespace {

using test::kindOf;

constexpr std::int64_t Max = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t Min = std::numeric_limits<std::int64_t>::min();

TEST(RoundHalfEven, HalvesGoToTheEvenNeighbour)
{
    EXPECT_EQ(roundHalfEven(2.5), 2.0);
    EXPECT_EQ(roundHalfEven(3.5), 4.0);
    EXPECT_EQ(roundHalfEven(0.5), 0.0);
    EXPECT_EQ(roundHalfEven(1.5), 2.0);
    EXPECT_EQ(roundHalfEven(-0.5), 0.0);
    EXPECT_EQ(roundHalfEven(-1.5), -2.0);
    EXPECT_EQ(roundHalfEven(-2.5), -2.0);
    EXPECT_EQ(roundHalfEven(-3.5), -4.0);
    EXPECT_EQ(roundHalfEven(32767.5), 32768.0);
}

TEST(RoundHalfEven, NonHalvesGoToTheNearest)
{
    EXPECT_EQ(roundHalfEven(2.4999999), 2.0);
    EXPECT_EQ(roundHalfEven(2.5000001), 3.0);
    EXPECT_EQ(roundHalfEven(-2.5000001), -3.0);
    EXPECT_EQ(roundHalfEven(7.0), 7.0);
    EXPECT_EQ(roundHalfEven(0.0), 0.0);
    // Beyond 2^52 every double is whole already.
    EXPECT_EQ(roundHalfEven(4503599627370497.0), 4503599627370497.0);
    EXPECT_TRUE(std::isnan(roundHalfEven(std::nan(""))));
}

TEST(Currency, WholeAmounts)
{
    EXPECT_EQ(Currency::fromWhole(12).raw(), 120000);
    EXPECT_EQ(Currency::fromWhole(-3).raw(), -30000);
    EXPECT_EQ(Currency::fromWhole(0).raw(), 0);
    EXPECT_EQ(Currency::fromWhole(922337203685477).raw(), 9223372036854770000);
    EXPECT_EQ(Currency::fromWhole(-922337203685477).raw(), -9223372036854770000);
}

TEST(Currency, WholeAmountsPastTheRangeOverflow)
{
    EXPECT_EQ(kindOf([] { (void)Currency::fromWhole(922337203685478); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Currency::fromWhole(-922337203685478); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Currency::fromWhole(Max); }), ValueError::Kind::Overflow);
}

TEST(Currency, FromDoubleRoundsToTenThousandthsHalvesToEven)
{
    EXPECT_EQ(Currency::fromDouble(1234.5).raw(), 12345000);
    EXPECT_EQ(Currency::fromDouble(-3.25).raw(), -32500);
    EXPECT_EQ(Currency::fromDouble(0.0).raw(), 0);
    // 0.00125 * 10000 is 12.5 exactly in binary: a true half, to even.
    EXPECT_EQ(Currency::fromDouble(0.00125).raw(), 12);
    EXPECT_EQ(Currency::fromDouble(0.00375).raw(), 38);
    EXPECT_EQ(Currency::fromDouble(-0.00125).raw(), -12);
    EXPECT_EQ(Currency::fromDouble(0.12344).raw(), 1234);
    EXPECT_EQ(Currency::fromDouble(0.12346).raw(), 1235);
}

TEST(Currency, FromDoubleDecidesDecimalTiesByTheBinaryValueHeld)
{
    // The double nearest to 0.00005, times 10000 in double arithmetic, is
    // exactly 0.5: a half, to even (0). 0.00015 * 10000 lands at
    // 1.4999999999999998, just below the half.
    EXPECT_EQ(0.00005 * 10000.0, 0.5);
    EXPECT_EQ(Currency::fromDouble(0.00005).raw(), 0);
    EXPECT_LT(0.00015 * 10000.0, 1.5);
    EXPECT_EQ(Currency::fromDouble(0.00015).raw(), 1);
}

TEST(Currency, FromDoubleOutOfRangeOrNotFinite)
{
    EXPECT_EQ(kindOf([] { (void)Currency::fromDouble(1e20); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Currency::fromDouble(-1e20); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Currency::fromDouble(922337203685477.6); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Currency::fromDouble(std::nan("")); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Currency::fromDouble(HUGE_VAL); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Currency::fromDouble(-HUGE_VAL); }), ValueError::Kind::Overflow);
    // -2^63 ten-thousandths is the bottom of the range and fits.
    EXPECT_EQ(Currency::fromDouble(-922337203685477.5808).raw(), Min);
}

TEST(Currency, FromTextIsExact)
{
    EXPECT_EQ(Currency::fromText("1234.5").raw(), 12345000);
    EXPECT_EQ(Currency::fromText("-0.25").raw(), -2500);
    EXPECT_EQ(Currency::fromText(" 7 ").raw(), 70000);
    EXPECT_EQ(Currency::fromText("+3").raw(), 30000);
    EXPECT_EQ(Currency::fromText(".5").raw(), 5000);
    EXPECT_EQ(Currency::fromText("5.").raw(), 50000);
    EXPECT_EQ(Currency::fromText("0").raw(), 0);
    EXPECT_EQ(Currency::fromText("-0").raw(), 0);
    EXPECT_EQ(Currency::fromText("000123.4500").raw(), 1234500);
    EXPECT_EQ(Currency::fromText("1.5e2").raw(), 1500000);
    EXPECT_EQ(Currency::fromText("25E-2").raw(), 2500);
}

TEST(Currency, FromTextRoundsBeyondTheFourthDecimalHalvesToEven)
{
    EXPECT_EQ(Currency::fromText("0.00005").raw(), 0);
    EXPECT_EQ(Currency::fromText("0.00015").raw(), 2);
    EXPECT_EQ(Currency::fromText("0.00025").raw(), 2);
    EXPECT_EQ(Currency::fromText("0.000250001").raw(), 3);
    EXPECT_EQ(Currency::fromText("0.00024999").raw(), 2);
    EXPECT_EQ(Currency::fromText("-0.00015").raw(), -2);
    EXPECT_EQ(Currency::fromText("0.000005").raw(), 0);
    EXPECT_EQ(Currency::fromText("0.0000000009").raw(), 0);
    EXPECT_EQ(Currency::fromText("1.23456").raw(), 12346);
}

TEST(Currency, FromTextAtTheBoundsOfTheRange)
{
    EXPECT_EQ(Currency::fromText("922337203685477.5807").raw(), Max);
    EXPECT_EQ(Currency::fromText("-922337203685477.5808").raw(), Min);
    EXPECT_EQ(kindOf([] { (void)Currency::fromText("922337203685477.5808"); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Currency::fromText("-922337203685477.5809"); }), ValueError::Kind::Overflow);
    // Rounding up past the top is an overflow too.
    EXPECT_EQ(kindOf([] { (void)Currency::fromText("922337203685477.58075"); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Currency::fromText("1e20"); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Currency::fromText("99999999999999999999999"); }), ValueError::Kind::Overflow);
}

TEST(Currency, FromTextRefusesWhatIsNotAnAmount)
{
    for (const char* text : {"", "   ", "abc", "12abc", "1,5", "-", ".", "1.2.3", "e5", "1e", "--1", "1 2"}) {
        EXPECT_EQ(kindOf([text] { (void)Currency::fromText(text); }), ValueError::Kind::TypeMismatch) << text;
    }
}

TEST(Currency, Text)
{
    EXPECT_EQ(Currency::fromWhole(27950).toText(), "27950");
    EXPECT_EQ(Currency::fromRaw(5000).toText(), "0.5");
    EXPECT_EQ(Currency::fromRaw(-32500).toText(), "-3.25");
    EXPECT_EQ(Currency::fromRaw(0).toText(), "0");
    EXPECT_EQ(Currency::fromRaw(1).toText(), "0.0001");
    EXPECT_EQ(Currency::fromRaw(-1).toText(), "-0.0001");
    EXPECT_EQ(Currency::fromRaw(100000).toText(), "10");
    EXPECT_EQ(Currency::max().toText(), "922337203685477.5807");
    EXPECT_EQ(Currency::min().toText(), "-922337203685477.5808");
}

TEST(Currency, FixedFourDecimals)
{
    EXPECT_EQ(Currency::fromWhole(27950).toFixed4(), "27950.0000");
    EXPECT_EQ(Currency::fromRaw(-5000).toFixed4(), "-0.5000");
    EXPECT_EQ(Currency::fromRaw(0).toFixed4(), "0.0000");
    EXPECT_EQ(Currency::fromRaw(12).toFixed4(), "0.0012");
    EXPECT_EQ(Currency::min().toFixed4(), "-922337203685477.5808");
}

TEST(Currency, ToDouble)
{
    EXPECT_EQ(Currency::fromRaw(12345000).toDouble(), 1234.5);
    EXPECT_EQ(Currency::fromRaw(-2500).toDouble(), -0.25);
}

TEST(Currency, ExactSumsAndDifferences)
{
    EXPECT_EQ((Currency::fromRaw(1) + Currency::fromRaw(2)).raw(), 3);
    EXPECT_EQ((Currency::fromRaw(1) - Currency::fromRaw(2)).raw(), -1);
    EXPECT_EQ((Currency::max() + Currency::fromRaw(-1)).raw(), Max - 1);
    EXPECT_EQ((Currency::min() - Currency::fromRaw(-1)).raw(), Min + 1);
    EXPECT_EQ((-Currency::max()).raw(), -Max);
}

TEST(Currency, SumsPastTheRangeOverflow)
{
    EXPECT_EQ(kindOf([] { (void)(Currency::max() + Currency::fromRaw(1)); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)(Currency::min() + Currency::fromRaw(-1)); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)(Currency::min() - Currency::fromRaw(1)); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)(Currency::max() - Currency::fromRaw(-1)); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)(-Currency::min()); }), ValueError::Kind::Overflow);
}

TEST(Currency, ExactProductsByWholeNumbers)
{
    EXPECT_EQ(Currency::fromRaw(12345).times(3).raw(), 37035);
    EXPECT_EQ(Currency::fromRaw(12345).times(-2).raw(), -24690);
    EXPECT_EQ(Currency::fromRaw(Max / 2).times(2).raw(), Max - 1);
    EXPECT_EQ(Currency::fromRaw(Min).times(1).raw(), Min);
    EXPECT_EQ(kindOf([] { (void)Currency::max().times(2); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Currency::min().times(-1); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Currency::fromRaw(Max / 2 + 1).times(2); }), ValueError::Kind::Overflow);
}

TEST(Currency, ProductsByNonWholeNumbersRoundHalvesToEven)
{
    // 0.0003 x 0.5 is the double just below 0.00015: 1, not 2.
    EXPECT_EQ(Currency::fromRaw(3).timesDouble(0.5).raw(), 1);
    EXPECT_EQ(Currency::fromRaw(5).timesDouble(0.5).raw(), 2); // 2.5 -> 2
    EXPECT_EQ(Currency::fromRaw(7).timesDouble(0.5).raw(), 4); // 3.5 -> 4
    EXPECT_EQ(Currency::fromRaw(-5).timesDouble(0.5).raw(), -2);
    EXPECT_EQ(Currency::fromWhole(100).timesDouble(1.5).raw(), 1500000);
    EXPECT_EQ(kindOf([] { (void)Currency::max().timesDouble(1.5); }), ValueError::Kind::Overflow);
    EXPECT_EQ(kindOf([] { (void)Currency::fromWhole(1).timesDouble(std::nan("")); }), ValueError::Kind::Overflow);
}

TEST(Currency, QuotientsRoundHalvesToEven)
{
    EXPECT_EQ(Currency::fromRaw(50).dividedBy(100.0).raw(), 0); // 0.5 -> 0
    // 0.015 / 100 is the double just below 0.00015: 1, not 2.
    EXPECT_EQ(Currency::fromRaw(150).dividedBy(100.0).raw(), 1);
    EXPECT_EQ(Currency::fromRaw(450).dividedBy(100.0).raw(), 4); // 4.5 -> 4
    EXPECT_EQ(Currency::fromRaw(650).dividedBy(100.0).raw(), 6); // 6.5 -> 6
    EXPECT_EQ(Currency::fromRaw(250).dividedBy(100.0).raw(), 2); // 2.5 -> 2
    EXPECT_EQ(Currency::fromRaw(-250).dividedBy(100.0).raw(), -2);
    EXPECT_EQ(Currency::fromRaw(251).dividedBy(100.0).raw(), 3);
    EXPECT_EQ(Currency::fromWhole(10).dividedBy(3.0).raw(), 33333);
    EXPECT_EQ(Currency::fromWhole(20).dividedBy(3.0).raw(), 66667);
    EXPECT_EQ(Currency::fromWhole(1).dividedBy(-4.0).raw(), -2500);
    EXPECT_EQ(kindOf([] { (void)Currency::max().dividedBy(0.5); }), ValueError::Kind::Overflow);
}

// Quotients and non-whole products go to a double and back: the amount as a
// double, the operation, then the nearest ten-thousandth with halves to even.
// Rounding the raw count directly differs on amounts such as -1.9450 / 100,
// whose double lies just beyond the half.
TEST(Currency, QuotientsGoThroughADoubleAndBack)
{
    EXPECT_EQ(Currency::fromText("-1.945").dividedBy(100.0), Currency::fromText("-0.0195"));
    EXPECT_EQ(Currency::fromText("1.945").dividedBy(100.0), Currency::fromText("0.0195"));
    int differing = 0;
    for (std::int64_t raw = -80002; raw < 80002; ++raw) {
        const Currency amount = Currency::fromRaw(raw);
        if (amount.dividedBy(100.0) != Currency::fromDouble(amount.toDouble() / 100.0))
            ++differing;
        if (amount.dividedBy(60.0) != Currency::fromDouble(amount.toDouble() / 60.0))
            ++differing;
        if (amount.timesDouble(0.35) != Currency::fromDouble(amount.toDouble() * 0.35))
            ++differing;
    }
    EXPECT_EQ(differing, 0);
}

TEST(Currency, DivisionByZero)
{
    EXPECT_EQ(kindOf([] { (void)Currency::fromWhole(1).dividedBy(0.0); }), ValueError::Kind::DivisionByZero);
    EXPECT_EQ(kindOf([] { (void)Currency::fromWhole(0).dividedBy(-0.0); }), ValueError::Kind::DivisionByZero);
}

TEST(Currency, Comparison)
{
    EXPECT_LT(Currency::fromRaw(-1), Currency::fromRaw(0));
    EXPECT_GT(Currency::fromWhole(2), Currency::fromRaw(19999));
    EXPECT_EQ(Currency::fromText("1.50"), Currency::fromRaw(15000));
    EXPECT_EQ(Currency(), Currency::fromRaw(0));
}

// The one exact change of scale and the one rounding to a step, each with
// its rounding named.
TEST(Currency, ScaledIsExactAndRoundsOnceByTheNamedMode)
{
    const Currency a = Currency::fromText("437.5");
    EXPECT_EQ(a.scaled(15, 100), Currency::fromText("65.625"));
    EXPECT_EQ(Currency::fromRaw(5).scaled(1, 10), Currency::fromRaw(0)); // 0.5 -> 0, even
    EXPECT_EQ(Currency::fromRaw(15).scaled(1, 10), Currency::fromRaw(2)); // 1.5 -> 2, even
    EXPECT_EQ(Currency::fromRaw(5).scaled(1, 10, Rounding::HalfUp), Currency::fromRaw(1));
    EXPECT_EQ(Currency::fromRaw(-5).scaled(1, 10, Rounding::HalfUp), Currency::fromRaw(-1));
    EXPECT_EQ(Currency::fromRaw(-15).scaled(1, 10), Currency::fromRaw(-2));
    EXPECT_EQ(Currency::fromRaw(7).scaled(1, -2), Currency::fromRaw(-4)); // -3.5 -> -4, even
    // The product is held in 128 bits: no overflow on the way.
    EXPECT_EQ(Currency::max().scaled(3, 3), Currency::max());
    EXPECT_EQ(Currency::max().scaled(1'000'000, 1'000'001), Currency::fromRaw(9223362813491962315));
    EXPECT_THROW((void)Currency::max().scaled(2, 1), ValueError);
    EXPECT_THROW((void)a.scaled(1, 0), ValueError);
}

TEST(Currency, MultiplesOfAStepAndRoundingToIt)
{
    const Currency cent = Currency::fromRaw(100);
    const Currency unit = Currency::fromWhole(1);
    EXPECT_EQ(Currency::fromText("18976.165").multiplesOf(cent, Rounding::HalfUp), 1897617);
    EXPECT_EQ(Currency::fromText("18976.165").multiplesOf(cent, Rounding::HalfEven), 1897616);
    EXPECT_EQ(Currency::fromText("18976.175").multiplesOf(cent, Rounding::HalfEven), 1897618);
    EXPECT_EQ(Currency::fromText("-0.005").multiplesOf(cent, Rounding::HalfUp), -1);
    EXPECT_EQ(Currency::fromText("-0.0049").multiplesOf(cent, Rounding::HalfUp), 0);
    EXPECT_EQ(Currency::fromText("12345.5").roundedTo(unit, Rounding::HalfEven), Currency::fromWhole(12346));
    EXPECT_EQ(Currency::fromText("12344.5").roundedTo(unit, Rounding::HalfEven), Currency::fromWhole(12344));
    EXPECT_EQ(Currency::fromText("12344.5").roundedTo(unit, Rounding::HalfUp), Currency::fromWhole(12345));
    EXPECT_EQ(Currency::fromText("-2.5").roundedTo(unit, Rounding::HalfEven), Currency::fromWhole(-2));
    EXPECT_EQ(Currency::min().multiplesOf(Currency::fromRaw(1), Rounding::HalfUp), INT64_MIN);
    EXPECT_EQ(Currency::max().multiplesOf(unit, Rounding::HalfEven), 922337203685478);
    EXPECT_THROW((void)Currency::max().roundedTo(unit, Rounding::HalfEven), ValueError);
}

} // namespace
} // namespace avlor
