#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>

#include "avlor/core/Date.h"
#include "avlor/core/Error.h"

namespace avlor {
namespace {

TEST(Date, DayZeroIsThirtiethDecember1899)
{
    const Date zero = Date::fromDayCount(0);
    EXPECT_EQ(zero.year(), 1899);
    EXPECT_EQ(zero.month(), 12);
    EXPECT_EQ(zero.day(), 30);
    EXPECT_EQ(Date::fromYmd(1899, 12, 30).dayCount(), 0);
    EXPECT_EQ(Date().dayCount(), 0);
}

TEST(Date, KnownDayCounts)
{
    EXPECT_EQ(Date::fromYmd(1899, 12, 31).dayCount(), 1);
    EXPECT_EQ(Date::fromYmd(1900, 1, 1).dayCount(), 2);
    // 1900 has no 29 February: 1 March follows 28 February directly.
    EXPECT_EQ(Date::fromYmd(1900, 2, 28).dayCount(), 60);
    EXPECT_EQ(Date::fromYmd(1900, 3, 1).dayCount(), 61);
    EXPECT_EQ(Date::fromYmd(1994, 10, 1).dayCount(), 34608);
    EXPECT_EQ(Date::fromYmd(2000, 2, 29).dayCount(), 36585);
    EXPECT_EQ(Date::fromYmd(2004, 6, 2).dayCount(), 38140);
    EXPECT_EQ(Date::fromYmd(1899, 12, 29).dayCount(), -1);
    EXPECT_EQ(Date::fromYmd(1, 1, 1).dayCount(), -693593);
    EXPECT_EQ(Date::fromYmd(9999, 12, 31).dayCount(), 2958465);
}

TEST(Date, DayCountsRoundTripThroughTheCalendar)
{
    for (std::int32_t days = -693593; days <= 2958465; days += 997) {
        const Date d = Date::fromDayCount(days);
        EXPECT_EQ(Date::fromYmd(d.year(), d.month(), d.day()).dayCount(), days);
    }
}

TEST(Date, DayCountsOutsideYearsOneTo9999AreRefusedWithOverflow)
{
    EXPECT_EQ(Date::fromDayCount(-693593).toDayFirst(), "01/01/0001");
    EXPECT_EQ(Date::fromDayCount(2958465).toDayFirst(), "31/12/9999");
    for (const std::int32_t days : {-693594, -700000, 2958466, INT32_MIN, INT32_MAX}) {
        try {
            static_cast<void>(Date::fromDayCount(days));
            ADD_FAILURE() << days << " made a date";
        } catch (const ValueError& error) {
            EXPECT_EQ(error.kind(), ValueError::Kind::Overflow) << days;
        }
    }
}

TEST(Date, ReadsDayFirstWhateverTheProcessLocale)
{
    EXPECT_EQ(Date::fromDayFirst("02/06/2004").dayCount(), 38140);
    EXPECT_EQ(Date::fromDayFirst("2/6/2004").dayCount(), 38140);
    EXPECT_EQ(Date::fromDayFirst("  02/06/2004 ").dayCount(), 38140);
    EXPECT_EQ(Date::fromDayFirst("01/10/1994"), Date::fromYmd(1994, 10, 1));
    EXPECT_EQ(Date::fromDayFirst("31/12/9999"), Date::fromYmd(9999, 12, 31));
    ASSERT_TRUE(Date::parseDayFirst("12/01/2004"));
    EXPECT_EQ(Date::parseDayFirst("12/01/2004")->month(), 1);
}

TEST(Date, LeapDays)
{
    EXPECT_TRUE(Date::parseDayFirst("29/02/2004"));
    EXPECT_TRUE(Date::parseDayFirst("29/02/2000"));
    EXPECT_FALSE(Date::parseDayFirst("29/02/1900"));
    EXPECT_FALSE(Date::parseDayFirst("29/02/2003"));
    EXPECT_TRUE(isLeapYear(2004));
    EXPECT_TRUE(isLeapYear(2000));
    EXPECT_FALSE(isLeapYear(1900));
    EXPECT_FALSE(isLeapYear(2003));
}

TEST(Date, RefusesTextThatIsNotADate)
{
    for (const char* text : {"31/02/2004", "", "   ", "abc", "29/02/2003", "00/01/2004", "32/01/2004", "01/13/2004",
                             "01/00/2004", "31/04/2004", "02/06/04", "02/06/20045", "002/06/2004", "02-06-2004",
                             "02/06/2004x", "2004-06-02", "02/06/0000"}) {
        EXPECT_FALSE(Date::parseDayFirst(text)) << text;
        try {
            (void)Date::fromDayFirst(text);
            ADD_FAILURE() << "accepted " << text;
        } catch (const ValueError& e) {
            EXPECT_EQ(e.kind(), ValueError::Kind::InvalidDate) << text;
        }
    }
}

TEST(Date, FromYmdRefusesDaysThatDoNotExist)
{
    EXPECT_THROW((void)Date::fromYmd(2004, 2, 30), ValueError);
    EXPECT_THROW((void)Date::fromYmd(2004, 0, 1), ValueError);
    EXPECT_THROW((void)Date::fromYmd(2004, 13, 1), ValueError);
    EXPECT_THROW((void)Date::fromYmd(2004, 1, 0), ValueError);
    EXPECT_THROW((void)Date::fromYmd(0, 1, 1), ValueError);
    EXPECT_THROW((void)Date::fromYmd(10000, 1, 1), ValueError);
}

TEST(Date, WritesDayFirstAndIso)
{
    EXPECT_EQ(Date::fromDayCount(38140).toDayFirst(), "02/06/2004");
    EXPECT_EQ(Date::fromDayCount(38140).toIso(), "2004-06-02");
    EXPECT_EQ(Date::fromDayCount(0).toDayFirst(), "30/12/1899");
    EXPECT_EQ(Date::fromYmd(1, 1, 1).toIso(), "0001-01-01");
    EXPECT_EQ(Date::fromYmd(2000, 2, 29).toDayFirst(), "29/02/2000");
}

TEST(Date, ReadsIso)
{
    ASSERT_TRUE(Date::parseIso("2004-06-02"));
    EXPECT_EQ(Date::parseIso("2004-06-02")->dayCount(), 38140);
    EXPECT_EQ(Date::parseIso(" 1900-01-01 ")->dayCount(), 2);
    for (const char* text : {"", "2004-6-2", "2004-02-30", "02/06/2004", "2004-06-02T00:00", "abcd-ef-gh"})
        EXPECT_FALSE(Date::parseIso(text)) << text;
}

TEST(Date, Comparison)
{
    EXPECT_LT(Date::fromDayFirst("01/06/2004"), Date::fromDayFirst("02/06/2004"));
    EXPECT_GE(Date::fromDayFirst("02/06/2004"), Date::fromDayFirst("02/06/2004"));
    EXPECT_GT(Date::fromDayFirst("01/01/2005"), Date::fromDayFirst("31/12/2004"));
}

TEST(Date, TodayIsTheLocalCalendarDay)
{
    std::tm before{};
    std::time_t now = std::time(nullptr);
    localtime_r(&now, &before);
    const Date today = Date::today();
    now = std::time(nullptr);
    std::tm after{};
    localtime_r(&now, &after);
    const Date expectedBefore = Date::fromYmd(before.tm_year + 1900, before.tm_mon + 1, before.tm_mday);
    const Date expectedAfter = Date::fromYmd(after.tm_year + 1900, after.tm_mon + 1, after.tm_mday);
    EXPECT_TRUE(today == expectedBefore || today == expectedAfter);
}

} // namespace
} // namespace avlor
