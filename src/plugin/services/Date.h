// Calendar days: the plain numbers, and what the calendar library says of them.
#pragma once

#include <cstdint>
#include <string>

namespace kzo::plugin {

/// A day of the Gregorian calendar, or numbers that are none. The calendar runs from 1400 to 9999; of anything else its
/// queries return 0, and sums of days end with it.
struct Date {
    std::int16_t year = 1970;
    std::int16_t month = 1;
    std::int16_t day = 1;

    [[nodiscard]] static Date current(); ///< by local time
    [[nodiscard]] static Date parsed(const std::string& text);

    auto operator<=>(const Date&) const = default;

    [[nodiscard]] bool valid() const;
    [[nodiscard]] std::int16_t dayOfWeek() const; ///< 0 is Sunday; -1 where there is none
    [[nodiscard]] std::int16_t weekNumber() const;
    [[nodiscard]] std::int16_t dayOfYear() const;
    [[nodiscard]] std::int16_t endOfMonth() const; ///< whichever the day
    [[nodiscard]] std::string format(const std::string& pattern) const;

    [[nodiscard]] Date plusDays(long days) const;          ///< unchanged when it is no day
    [[nodiscard]] long daysSince(const Date& other) const; ///< 0 unless both are days
};

} // namespace kzo::plugin
