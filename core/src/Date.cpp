#include "avlor/core/Date.h"

#include <ctime>
#include <string>

#include "NumberText.h"
#include "avlor/core/Error.h"

namespace avlor {

namespace {

// Proleptic Gregorian calendar arithmetic on days counted from 1 March of
// year 0 in 400-year eras (after H. Hinnant's civil-date algorithms), shifted
// so that day 0 is 30 December 1899.
constexpr std::int64_t DaysFromCivilOfDayZero = 693899; // days from 0000-03-01 to 1899-12-30

struct Ymd {
    int year;
    int month;
    int day;
};

constexpr std::int64_t daysFromCivil(std::int64_t y, int m, int d) noexcept
{
    y -= m <= 2 ? 1 : 0;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const std::int64_t yoe = y - era * 400;
    const std::int64_t mp = (m + 9) % 12;
    const std::int64_t doy = (153 * mp + 2) / 5 + d - 1;
    const std::int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe;
}

static_assert(daysFromCivil(1899, 12, 30) == DaysFromCivilOfDayZero);

constexpr Ymd civilFromDays(std::int64_t days) noexcept
{
    const std::int64_t z = days + DaysFromCivilOfDayZero;
    const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const std::int64_t doe = z - era * 146097;
    const std::int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const std::int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const std::int64_t mp = (5 * doy + 2) / 153;
    const std::int64_t d = doy - (153 * mp + 2) / 5 + 1;
    const std::int64_t m = mp < 10 ? mp + 3 : mp - 9;
    const std::int64_t y = yoe + era * 400 + (m <= 2 ? 1 : 0);
    return Ymd{static_cast<int>(y), static_cast<int>(m), static_cast<int>(d)};
}

int daysInMonth(int year, int month) noexcept
{
    static constexpr int Lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month == 2 && isLeapYear(year))
        return 29;
    return Lengths[month - 1];
}

// Years 1 to 9999: the calendar range of the practice database's dates.
bool isValidYmd(int year, int month, int day) noexcept
{
    return year >= 1 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 && day <= daysInMonth(year, month);
}

Date dateOf(int year, int month, int day)
{
    return Date::fromDayCount(static_cast<std::int32_t>(daysFromCivil(year, month, day) - DaysFromCivilOfDayZero));
}

// Reads a field of `minDigits` to `maxDigits` digits at `pos` and moves past it.
std::optional<int> readField(std::string_view text, std::size_t& pos, std::size_t minDigits, std::size_t maxDigits)
{
    std::size_t n = 0;
    int value = 0;
    while (pos + n < text.size() && n < maxDigits && detail::isDigit(text[pos + n])) {
        value = value * 10 + (text[pos + n] - '0');
        ++n;
    }
    if (n < minDigits)
        return std::nullopt;
    pos += n;
    return value;
}

bool expect(std::string_view text, std::size_t& pos, char c)
{
    if (pos < text.size() && text[pos] == c) {
        ++pos;
        return true;
    }
    return false;
}

std::optional<Date> validDate(std::optional<int> year, std::optional<int> month, std::optional<int> day)
{
    if (!year || !month || !day || !isValidYmd(*year, *month, *day))
        return std::nullopt;
    return dateOf(*year, *month, *day);
}

std::string twoDigits(int n)
{
    std::string text = std::to_string(n);
    if (text.size() < 2)
        text.insert(text.begin(), '0');
    return text;
}

std::string fourDigits(int n)
{
    std::string text = std::to_string(n);
    if (text.size() < 4)
        text.insert(0, 4 - text.size(), '0');
    return text;
}

} // namespace

bool isLeapYear(int year) noexcept { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

Date Date::fromDayCount(std::int32_t days)
{
    // Outside years 1 to 9999 a date would have no four-digit year to be
    // shown or stored with.
    if (days < FirstDayCount || days > LastDayCount)
        throw ValueError(ValueError::Kind::Overflow,
                         "Overflow: il giorno " + std::to_string(days) +
                             " è fuori dalle date dal 01/01/0001 al 31/12/9999");
    return Date(days);
}

Date Date::fromYmd(int year, int month, int day)
{
    if (!isValidYmd(year, month, day))
        throw ValueError(ValueError::Kind::InvalidDate,
                         "Invalid date: anno " + std::to_string(year) + ", mese " + std::to_string(month) +
                             ", giorno " + std::to_string(day));
    return dateOf(year, month, day);
}

std::optional<Date> Date::parseDayFirst(std::string_view text)
{
    text = trimBlanks(text);
    std::size_t pos = 0;
    const auto day = readField(text, pos, 1, 2);
    if (!day || !expect(text, pos, '/'))
        return std::nullopt;
    const auto month = readField(text, pos, 1, 2);
    if (!month || !expect(text, pos, '/'))
        return std::nullopt;
    const auto year = readField(text, pos, 4, 4);
    if (pos != text.size())
        return std::nullopt;
    return validDate(year, month, day);
}

Date Date::fromDayFirst(std::string_view text)
{
    if (auto date = parseDayFirst(text))
        return *date;
    throw ValueError(ValueError::Kind::InvalidDate, "Invalid date: \"" + std::string(text) + "\"");
}

std::optional<Date> Date::parseIso(std::string_view text)
{
    text = trimBlanks(text);
    std::size_t pos = 0;
    const auto year = readField(text, pos, 4, 4);
    if (!year || !expect(text, pos, '-'))
        return std::nullopt;
    const auto month = readField(text, pos, 2, 2);
    if (!month || !expect(text, pos, '-'))
        return std::nullopt;
    const auto day = readField(text, pos, 2, 2);
    if (pos != text.size())
        return std::nullopt;
    return validDate(year, month, day);
}

Date Date::today()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return dateOf(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

int Date::year() const noexcept { return civilFromDays(days_).year; }
int Date::month() const noexcept { return civilFromDays(days_).month; }
int Date::day() const noexcept { return civilFromDays(days_).day; }

std::string Date::toDayFirst() const
{
    const Ymd ymd = civilFromDays(days_);
    return twoDigits(ymd.day) + "/" + twoDigits(ymd.month) + "/" + fourDigits(ymd.year);
}

std::string Date::toIso() const
{
    const Ymd ymd = civilFromDays(days_);
    return fourDigits(ymd.year) + "-" + twoDigits(ymd.month) + "-" + twoDigits(ymd.day);
}

} // namespace avlor
