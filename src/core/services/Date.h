// A calendar day, without a time.
#pragma once

#include <compare>
#include <cstdint>
#include <string>

#include "core/services/Duration.h"
#include "utils/ValueImpl.h"

namespace kzo::plugin {
struct Date;
}

namespace kzo::core {

/// A day of the Gregorian calendar from 1400 to 9999, or three numbers that are no such day: these compare as they
/// stand, do not move by durations, have no weekday (-1), and every other query about the calendar returns 0.
class Date {
  public:
    Date(std::int16_t year, std::int16_t month, std::int16_t day);
    /// Reads a text such as 2017-03-09. What does not parse is 1 January 1970.
    explicit Date(const std::string& text);
    explicit Date(const plugin::Date& impl);
    [[nodiscard]] static Date Current(); ///< today, by local time

    [[nodiscard]] std::int16_t year() const;
    [[nodiscard]] std::int16_t month() const;
    [[nodiscard]] std::int16_t day() const;
    void setYear(std::int16_t year);
    void setMonth(std::int16_t month);
    void setDay(std::int16_t day);

    // The calendar
    [[nodiscard]] std::int16_t dayOfWeek() const;  ///< 0 for Sunday ... 6 for Saturday
    [[nodiscard]] std::int16_t weekNumber() const; ///< by ISO 8601
    [[nodiscard]] std::int16_t endOfMonth() const; ///< the month's last day
    [[nodiscard]] std::int16_t dayOfYear() const;  ///< from 1

    [[nodiscard]] bool operator==(const Date& other) const;
    [[nodiscard]] std::strong_ordering operator<=>(const Date& other) const;

    /// Days between them, negative when the other one is later.
    [[nodiscard]] Duration operator-(const Date& other) const;
    /// Stays at the calendar's last or first day instead of leaving it.
    Date& operator+=(const Duration& duration);
    Date& operator-=(const Duration& duration);
    friend Date operator+(Date date, const Duration& duration) { return date += duration; }
    friend Date operator+(const Duration& duration, Date date) { return date += duration; }
    friend Date operator-(Date date, const Duration& duration) { return date -= duration; }

    /// Each letter of the pattern that is a code is replaced, others stay, as does what follows a backslash:
    /// day d (two digits) j; weekday D (Sun) l (Sunday) N (1 Monday ... 7 Sunday); week W; day of the year z;
    /// month m (two digits) n M (Jan) F (January); its last day t; year Y y (without its first two characters).
    /// The name of a month or weekday that does not exist is left out.
    [[nodiscard]] std::string format(const std::string& pattern) const;

  private:
    utils::ValueImpl<plugin::Date, 3 * sizeof(std::int16_t)> impl_;
};

} // namespace kzo::core
