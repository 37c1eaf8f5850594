// Forwards every operation of the date to its implementation.
#include "core/services/Date.h"

#include <limits>

#include "plugin/services/Date.h"

namespace kzo::core {

Date::Date(std::int16_t year, std::int16_t month, std::int16_t day)
    : Date(plugin::Date{.year = year, .month = month, .day = day}) {}
Date::Date(const std::string& text) : Date(plugin::Date::parsed(text)) {}
Date::Date(const plugin::Date& impl) : impl_(impl) {}
Date Date::Current() { return Date(plugin::Date::current()); }

std::int16_t Date::year() const { return impl_->year; }
std::int16_t Date::month() const { return impl_->month; }
std::int16_t Date::day() const { return impl_->day; }
void Date::setYear(std::int16_t year) { impl_->year = year; }
void Date::setMonth(std::int16_t month) { impl_->month = month; }
void Date::setDay(std::int16_t day) { impl_->day = day; }

std::int16_t Date::dayOfWeek() const { return impl_->dayOfWeek(); }
std::int16_t Date::weekNumber() const { return impl_->weekNumber(); }
std::int16_t Date::endOfMonth() const { return impl_->endOfMonth(); }
std::int16_t Date::dayOfYear() const { return impl_->dayOfYear(); }

bool Date::operator==(const Date& other) const { return impl_.get() == other.impl_.get(); }
std::strong_ordering Date::operator<=>(const Date& other) const { return impl_.get() <=> other.impl_.get(); }

Duration Date::operator-(const Date& other) const { return Duration::Days(impl_->daysSince(other.impl_.get())); }

Date& Date::operator+=(const Duration& duration) {
    impl_.get() = impl_->plusDays(duration.days());
    return *this;
}

Date& Date::operator-=(const Duration& duration) {
    // The most negative span has no opposite; both ends lie beyond the calendar.
    const long days = duration.days();
    return *this += Duration::Days(days == std::numeric_limits<long>::min() ? std::numeric_limits<long>::max() : -days);
}

std::string Date::format(const std::string& pattern) const { return impl_->format(pattern); }

} // namespace kzo::core
