#pragma once
// Date: a calendar date held as a count of days (day 0 is 30 December 1899,
// so that day counts match those of the practice database's original
// platform). Dates are read and written day first, "DD/MM/YYYY", whatever the
// process locale.
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace avlor {

class Date {
public:
    constexpr Date() noexcept = default;

    // The first and last day of the calendar range, 01/01/0001 and 31/12/9999.
    static constexpr std::int32_t FirstDayCount = -693593;
    static constexpr std::int32_t LastDayCount = 2958465;

    // The date `days` after day 0. A count outside FirstDayCount to
    // LastDayCount names no date of years 1 to 9999 and raises
    // ValueError(Overflow).
    [[nodiscard]] static Date fromDayCount(std::int32_t days);
    // Raises ValueError(InvalidDate) for a day that does not exist.
    [[nodiscard]] static Date fromYmd(int year, int month, int day);
    // "DD/MM/YYYY" (one or two digits for day and month, four for the year,
    // surrounding blanks ignored). Empty text or text that is not a valid
    // calendar date gives no value.
    [[nodiscard]] static std::optional<Date> parseDayFirst(std::string_view text);
    // As parseDayFirst, but raises ValueError(InvalidDate) naming the text.
    [[nodiscard]] static Date fromDayFirst(std::string_view text);
    // "YYYY-MM-DD", the form dates take inside the databases.
    [[nodiscard]] static std::optional<Date> parseIso(std::string_view text);
    // The local calendar day of the machine's clock.
    [[nodiscard]] static Date today();

    [[nodiscard]] constexpr std::int32_t dayCount() const noexcept { return days_; }
    [[nodiscard]] int year() const noexcept;
    [[nodiscard]] int month() const noexcept;
    [[nodiscard]] int day() const noexcept;

    // "02/06/2004".
    [[nodiscard]] std::string toDayFirst() const;
    // "2004-06-02".
    [[nodiscard]] std::string toIso() const;

    constexpr auto operator<=>(const Date&) const noexcept = default;
    constexpr bool operator==(const Date&) const noexcept = default;

private:
    explicit constexpr Date(std::int32_t days) noexcept : days_(days) { }
    std::int32_t days_ = 0;
};

[[nodiscard]] bool isLeapYear(int year) noexcept;

} // namespace avlor
