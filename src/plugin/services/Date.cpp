// Days of the Gregorian calendar, by Boost.
#include "plugin/services/Date.h"

#include <algorithm>
#include <boost/date_time/gregorian/gregorian.hpp>
#include <cctype>
#include <string_view>

namespace kzo::plugin {

namespace {

namespace calendar = boost::gregorian;

constexpr std::int16_t kFirstYear = 1400;
constexpr std::int16_t kLastYear = 9999;

constexpr std::string_view kWeekdays[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
constexpr std::string_view kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                        "July",    "August",   "September", "October", "November", "December"};

bool isMonth(const Date& date) {
    return date.year >= kFirstYear && date.year <= kLastYear && date.month >= 1 && date.month <= 12;
}

// The library's own types are unsigned and throw when they are handed what they do not hold.
template <class To> To part(std::int16_t value) { return To(static_cast<unsigned short>(value)); }

calendar::date toCalendar(const Date& date) {
    return {part<calendar::greg_year>(date.year), part<calendar::greg_month>(date.month),
            part<calendar::greg_day>(date.day)};
}

Date fromCalendar(const calendar::date& date) {
    const auto number = [](auto value) { return static_cast<std::int16_t>(value); };
    return {.year = number(static_cast<unsigned short>(date.year())),
            .month = number(date.month().as_number()),
            .day = number(date.day().as_number())};
}

std::string twoDigits(int value) { return (value >= 0 && value < 10 ? "0" : "") + std::to_string(value); }

/// The name at the index, cut to `length`; empty where there is none.
template <std::size_t Count>
std::string name(const std::string_view (&names)[Count], int index, std::size_t length = std::string_view::npos) {
    return index >= 0 && static_cast<std::size_t>(index) < Count ? std::string(names[index].substr(0, length)) : "";
}

constexpr std::size_t kShortName = 3;

/// What a code of the pattern stands for; any other character for itself.
std::string formatted(const Date& date, char code) {
    switch (code) {
    case 'd': return twoDigits(date.day);
    case 'j': return std::to_string(date.day);
    case 'D': return name(kWeekdays, date.dayOfWeek(), kShortName);
    case 'l': return name(kWeekdays, date.dayOfWeek());
    case 'N': {
        const int weekday = date.dayOfWeek();
        return weekday < 0 ? "" : std::to_string(weekday == 0 ? 7 : weekday);
    }
    case 'W': return std::to_string(date.weekNumber());
    case 'z': return std::to_string(date.dayOfYear());
    case 'm': return twoDigits(date.month);
    case 'n': return std::to_string(date.month);
    case 'M': return name(kMonths, date.month - 1, kShortName);
    case 'F': return name(kMonths, date.month - 1);
    case 't': return std::to_string(date.endOfMonth());
    case 'Y': return std::to_string(date.year);
    case 'y': {
        const std::string year = std::to_string(date.year);
        return year.substr(std::min<std::size_t>(2, year.size()));
    }
    default: return {code};
    }
}

/// Four digits, a hyphen, one or two digits, and the same again. The library would take other separators and names too.
bool isYearMonthDay(const std::string& text) {
    const auto digits = [&](std::size_t from, std::size_t to) {
        return to > from && std::all_of(text.begin() + static_cast<std::ptrdiff_t>(from),
                                        text.begin() + static_cast<std::ptrdiff_t>(to),
                                        [](unsigned char c) { return std::isdigit(c) != 0; });
    };
    const std::size_t month = text.find('-');
    const std::size_t day = month == std::string::npos ? month : text.find('-', month + 1);
    return day != std::string::npos && month == 4 && day - month <= 3 && text.size() - day <= 3 && digits(0, month) &&
           digits(month + 1, day) && digits(day + 1, text.size());
}

} // namespace

Date Date::current() {
    try {
        return fromCalendar(calendar::day_clock::local_day());
    } catch (const std::exception&) {
        return {}; // a clock beyond the calendar
    }
}

Date Date::parsed(const std::string& text) {
    if (!isYearMonthDay(text)) return {};
    try {
        return fromCalendar(calendar::from_simple_string(text));
    } catch (const std::exception&) {
        return {}; // no such day
    }
}

bool Date::valid() const { return isMonth(*this) && day >= 1 && day <= endOfMonth(); }

std::int16_t Date::dayOfWeek() const {
    return valid() ? static_cast<std::int16_t>(toCalendar(*this).day_of_week().as_number()) : std::int16_t{-1};
}

std::int16_t Date::weekNumber() const {
    return valid() ? static_cast<std::int16_t>(toCalendar(*this).week_number()) : std::int16_t{0};
}

std::int16_t Date::dayOfYear() const {
    return valid() ? static_cast<std::int16_t>(toCalendar(*this).day_of_year()) : std::int16_t{0};
}

std::int16_t Date::endOfMonth() const {
    if (!isMonth(*this)) return 0;
    const auto last = calendar::gregorian_calendar::end_of_month_day(part<calendar::greg_year>(year),
                                                                     part<calendar::greg_month>(month));
    return static_cast<std::int16_t>(last);
}

std::string Date::format(const std::string& pattern) const {
    std::string text;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        if (pattern[at] != '\\')
            text += formatted(*this, pattern[at]);
        else if (++at < pattern.size())
            text += pattern[at];
    }
    return text;
}

Date Date::plusDays(long days) const {
    if (!valid()) return *this;
    const calendar::date first(kFirstYear, 1, 1);
    const long whole = (calendar::date(kLastYear, 12, 31) - first).days();
    const long here = (toCalendar(*this) - first).days();
    return fromCalendar(first + calendar::days(here + std::clamp(days, -here, whole - here)));
}

long Date::daysSince(const Date& other) const {
    return valid() && other.valid() ? (toCalendar(*this) - toCalendar(other)).days() : 0;
}

} // namespace kzo::plugin
