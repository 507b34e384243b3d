#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "avlor/core/Error.h"
#include "avlor/core/Format.h"

namespace avlor {
namespace {

std::string euro(std::int64_t raw, const Locale& locale)
{
    return formatAmount(Currency::fromRaw(raw), FormatoEuro, locale);
}
std::string lire(std::int64_t raw, const Locale& locale)
{
    return formatAmount(Currency::fromRaw(raw), FormatoLire, locale);
}

TEST(FormatAmount, ItalianTwoDecimals)
{
    const Locale it = Locale::italian();
    EXPECT_EQ(euro(0, it), ",00");
    EXPECT_EQ(euro(5000, it), ",50");
    EXPECT_EQ(euro(12345000, it), "1.234,50");
    EXPECT_EQ(euro(10000, it), "1,00");
    EXPECT_EQ(euro(9999000, it), "999,90");
    EXPECT_EQ(euro(10000000, it), "1.000,00");
    EXPECT_EQ(euro(12345671250, it), "1.234.567,12"); // 1234567.125: the half goes to the even 2
    EXPECT_EQ(euro(12345671350, it), "1.234.567,14"); // 1234567.135: the half goes to the even 4
    EXPECT_EQ(euro(-12345000, it), "-1.234,50");
    EXPECT_EQ(euro(-5000, it), "-,50");
}

TEST(FormatAmount, LastDecimalRoundsHalvesToEvenExactly)
{
    const Locale us = Locale::unitedStates();
    EXPECT_EQ(euro(1250, us), ".12"); // 0.125
    EXPECT_EQ(euro(1350, us), ".14"); // 0.135
    EXPECT_EQ(euro(1251, us), ".13"); // 0.1251
    EXPECT_EQ(euro(1249, us), ".12"); // 0.1249
    EXPECT_EQ(euro(50, us), ".00"); // 0.005
    EXPECT_EQ(euro(150, us), ".02"); // 0.015
    EXPECT_EQ(euro(-1250, us), "-.12");
    EXPECT_EQ(euro(-1350, us), "-.14");
    EXPECT_EQ(euro(99950, us), "10.00"); // 9.995 carries into the units
    EXPECT_EQ(euro(9999950, us), "1,000.00");
}

TEST(FormatAmount, AmountsThatRoundToZeroShowNoSign)
{
    EXPECT_EQ(euro(-10, Locale::neutral()), ".00");
    EXPECT_EQ(euro(-50, Locale::neutral()), ".00");
    EXPECT_EQ(lire(-5000, Locale::neutral()), "");
}

TEST(FormatAmount, UnitedStatesAndNeutral)
{
    for (const Locale& locale : {Locale::unitedStates(), Locale::neutral()}) {
        EXPECT_EQ(euro(0, locale), ".00");
        EXPECT_EQ(euro(5000, locale), ".50");
        EXPECT_EQ(euro(12345000, locale), "1,234.50");
        EXPECT_EQ(euro(12345671250, locale), "1,234,567.12");
        EXPECT_EQ(euro(-12345000, locale), "-1,234.50");
    }
}

TEST(FormatAmount, LirePatterns)
{
    const Locale it = Locale::italian();
    EXPECT_EQ(lire(0, it), "");
    EXPECT_EQ(lire(5000, it), ""); // 0.5 -> 0
    EXPECT_EQ(lire(15000, it), "2"); // 1.5 -> 2
    EXPECT_EQ(lire(25000, it), "2"); // 2.5 -> 2
    EXPECT_EQ(lire(25001, it), "3");
    EXPECT_EQ(lire(12345000, it), "1.234"); // 1234.5 -> 1234
    EXPECT_EQ(lire(12355000, it), "1.236"); // 1235.5 -> 1236
    EXPECT_EQ(lire(12345670000, it), "1.234.567");
    EXPECT_EQ(lire(-50000000, it), "-5.000");
    EXPECT_EQ(lire(9990000, it), "999");
    EXPECT_EQ(lire(10000000, it), "1.000");
    EXPECT_EQ(lire(12345000, Locale::unitedStates()), "1,234");
}

TEST(FormatAmount, GridPatterns)
{
    const Locale it = Locale::italian();
    const Currency amount = Currency::fromRaw(12345000);
    EXPECT_EQ(formatAmount(amount, FormatoGrigliaEuro, it), "1.234,50");
    EXPECT_EQ(formatAmount(amount, FormatoGrigliaLire, it), "1.234");
    EXPECT_EQ(formatAmount(Currency(), FormatoGrigliaEuro, it), ",00");
    EXPECT_EQ(formatAmount(Currency(), FormatoGrigliaLire, it), "");
}

TEST(FormatAmount, AmountsLongerThanThePatternShowAllTheirDigits)
{
    const Locale it = Locale::italian();
    EXPECT_EQ(formatAmount(Currency::fromText("1234567890.5"), FormatoGrigliaEuro, it), "1.234.567.890,50");
    EXPECT_EQ(formatAmount(Currency::fromWhole(1234567890123), FormatoLire, it), "1.234.567.890.123");
    EXPECT_EQ(formatAmount(Currency::max(), FormatoEuro, it), "922.337.203.685.477,58");
    EXPECT_EQ(formatAmount(Currency::min(), FormatoEuro, it), "-922.337.203.685.477,58");
    EXPECT_EQ(formatAmount(Currency::max(), FormatoLire, it), "922.337.203.685.478");
    EXPECT_EQ(formatAmount(Currency::min(), FormatoLire, it), "-922.337.203.685.478");
}

TEST(FormatAmount, UnknownPatternsAreRefused)
{
    for (const char* pattern : {"", "#,##0.00", "###,###,###,###.000", "###.00", "0.00"})
        EXPECT_THROW((void)formatAmount(Currency(), pattern, Locale::neutral()), UsageError) << pattern;
}

TEST(FormatMoney, EuroToTheCentHalvesUp)
{
    const Locale it = Locale::italian();
    EXPECT_EQ(formatMoney(Currency::fromText("958.5"), false, it), "958,50 \u20AC");
    EXPECT_EQ(formatMoney(Currency::fromText("18976.165"), false, it), "18.976,17 \u20AC");
    EXPECT_EQ(formatMoney(Currency::fromText("65.625"), false, it), "65,63 \u20AC");
    EXPECT_EQ(formatMoney(Currency::fromText("65.6249"), false, it), "65,62 \u20AC");
    EXPECT_EQ(formatMoney(Currency::fromText("0.005"), false, it), "0,01 \u20AC");
    EXPECT_EQ(formatMoney(Currency::fromText("0.0049"), false, it), "0,00 \u20AC");
    EXPECT_EQ(formatMoney(Currency{}, false, it), "0,00 \u20AC");
    EXPECT_EQ(formatMoney(Currency::fromText("-1234.565"), false, it), "-1.234,57 \u20AC");
    EXPECT_EQ(formatMoney(Currency::fromText("-0.004"), false, it), "0,00 \u20AC");
    EXPECT_EQ(formatMoney(Currency::max(), false, it), "922.337.203.685.477,58 \u20AC");
    EXPECT_EQ(formatMoney(Currency::min(), false, it), "-922.337.203.685.477,58 \u20AC");
    EXPECT_EQ(formatMoney(Currency::fromText("1234.5"), false, Locale::unitedStates()), "1,234.50 \u20AC");
}

TEST(FormatMoney, LireToTheLiraHalvesUp)
{
    const Locale it = Locale::italian();
    EXPECT_EQ(formatMoney(Currency::fromText("30000"), true, it), "30.000 lire");
    EXPECT_EQ(formatMoney(Currency::fromText("12345.5"), true, it), "12.346 lire");
    EXPECT_EQ(formatMoney(Currency::fromText("12344.4999"), true, it), "12.344 lire");
    EXPECT_EQ(formatMoney(Currency{}, true, it), "0 lire");
    EXPECT_EQ(formatMoney(Currency::fromText("1500000"), true, it), "1.500.000 lire");
}

TEST(FormatShortDate, LocalePatterns)
{
    const Date june2 = Date::fromYmd(2004, 6, 2);
    EXPECT_EQ(formatShortDate(june2, Locale::italian()), "02/06/2004");
    EXPECT_EQ(formatShortDate(june2, Locale::unitedStates()), "6/2/2004");
    EXPECT_EQ(formatShortDate(june2, Locale::neutral()), "02/06/2004");
    const Date december31 = Date::fromYmd(1999, 12, 31);
    EXPECT_EQ(formatShortDate(december31, Locale::italian()), "31/12/1999");
    EXPECT_EQ(formatShortDate(december31, Locale::unitedStates()), "12/31/1999");
}

TEST(FormatShortDate, FieldsOfAnyPattern)
{
    Locale locale;
    const Date date = Date::fromYmd(2004, 6, 2);
    locale.shortDatePattern = "yyyy-mm-dd";
    EXPECT_EQ(formatShortDate(date, locale), "2004-06-02");
    locale.shortDatePattern = "d.m.yy";
    EXPECT_EQ(formatShortDate(date, locale), "2.6.04");
    locale.shortDatePattern = "dd/mm/yyyy";
    EXPECT_EQ(formatShortDate(Date::fromYmd(5, 1, 9), locale), "09/01/0005");
}

} // namespace
} // namespace avlor
