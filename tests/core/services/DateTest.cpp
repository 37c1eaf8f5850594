// Dates: reading, arithmetic, the codes of the format, and numbers that are no day. The C library is the judge.
#include "core/services/Date.h"

#include <cstdlib>
#include <ctime>
#include <limits>

#include <gtest/gtest.h>

namespace {

using kzo::core::Date;
using kzo::core::Duration;

TEST(Date, AgreesWithTheCLibraryOnEveryDayOfThreeYears) {
    const char* const patterns[][2] = {{"%d", "d"}, {"%a", "D"}, {"%A", "l"}, {"%u", "N"}, {"%m", "m"},
                                       {"%b", "M"}, {"%B", "F"}, {"%Y", "Y"}, {"%y", "y"}, {"%Y-%m-%d", "Y-m-d"}};
    const auto number = [](const std::tm& day, const char* pattern) {
        char text[32];
        std::strftime(text, sizeof text, pattern, &day);
        return std::atoi(text);
    };
    Date date(2019, 1, 1);
    for (std::time_t time = 1546300800; date < Date(2022, 1, 1); time += 86400, date += Duration::Days(1)) {
        std::tm day{};
        gmtime_r(&time, &day);
        for (const auto& [theirs, ours] : patterns) {
            char text[32];
            std::strftime(text, sizeof text, theirs, &day);
            ASSERT_EQ(date.format(ours), text);
        }
        ASSERT_EQ(date.dayOfWeek(), day.tm_wday);
        ASSERT_EQ(date.dayOfYear(), number(day, "%j"));
        ASSERT_EQ(date.weekNumber(), number(day, "%V"));
        std::tm next{};
        next.tm_year = day.tm_year;
        next.tm_mon = day.tm_mon + 1; // its day 0 is the last of this month
        timegm(&next);
        ASSERT_EQ(date.endOfMonth(), next.tm_mday);
    }
}

TEST(Date, ReadsYearMonthDay) {
    const Date epoch(1970, 1, 1);
    EXPECT_EQ(Date("2017-03-09"), Date(2017, 3, 9));
    EXPECT_EQ(Date("2017-3-9"), Date(2017, 3, 9));
    EXPECT_EQ(Date("2020-02-29"), Date(2020, 2, 29));
    for (const char* text :
         {"", "2019-02-29", "2017-13-01", "2017-00-01", "17-03-09", "2017/03/09", "2017-Mar-09", "2017-03-09 ",
          " 2017-03-09", "2017-03", "2017-03-09-", "1399-12-31", "20170309", "2017--9", "-017-03-09", "x"})
        EXPECT_EQ(Date(text), epoch) << text;
}

TEST(Date, MovesByDaysAndStaysInTheCalendar) {
    EXPECT_EQ(Date(2018, 12, 28) + Duration::Days(7), Date(2019, 1, 4));
    EXPECT_EQ(Duration::Days(-7) + Date(2019, 1, 4), Date(2018, 12, 28));
    EXPECT_EQ(Date(2020, 3, 1) - Duration::Days(1), Date(2020, 2, 29));
    EXPECT_EQ((Date(2020, 3, 1) - Date(2019, 3, 1)).days(), 366);
    EXPECT_EQ(Date(2019, 3, 1) - Date(2020, 3, 1), Duration::Days(-366));
    EXPECT_EQ(Date("9999-12-25") + Duration::Days(90), Date(9999, 12, 31));
    EXPECT_EQ(Date(1400, 1, 2) - Duration::Days(90), Date(1400, 1, 1));
    for (const long far : {std::numeric_limits<long>::max(), std::numeric_limits<long>::min()}) {
        EXPECT_EQ(Date(2020, 1, 1) + Duration::Days(far), far > 0 ? Date(9999, 12, 31) : Date(1400, 1, 1));
        EXPECT_EQ(Date(2020, 1, 1) - Duration::Days(far), far < 0 ? Date(9999, 12, 31) : Date(1400, 1, 1));
    }
    EXPECT_LT(Date(2019, 12, 31), Date(2020, 1, 1));
    EXPECT_GE(Date(2020, 1, 1), Date(2020, 1, 1));
}

TEST(Date, HoldsNumbersThatAreNoDay) {
    const std::string pattern = "d j D l N W z m n M F t Y y";
    EXPECT_EQ(Date(2019, 2, 30).format(pattern), "30 30    0 0 02 2 Feb February 28 2019 19");
    EXPECT_EQ(Date(2019, 13, 1).format(pattern), "01 1    0 0 13 13   0 2019 19");
    EXPECT_EQ(Date(7, -1, 0).format(pattern), "00 0    0 0 -1 -1   0 7 ");
    const Date none(2019, 2, 30);
    EXPECT_EQ(none.dayOfWeek(), -1);
    EXPECT_EQ(none + Duration::Days(5), none);
    EXPECT_EQ(Date(2019, 1, 1) - none, Duration::Days(0));
    Date date(2019, 2, 30);
    date.setYear(2020);
    date.setMonth(3);
    date.setDay(31);
    EXPECT_EQ(date.format("j.n.Y, \\Y\\\\ x\\"), "31.3.2020, Y\\ x");
}

TEST(Date, TakesTodayFromLocalTime) {
    // Fourteen hours ahead and twelve behind are never the same day.
    const auto todayIn = [](const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
        return Date::Current();
    };
    const Date ahead = todayIn("XXX-14");
    const Date behind = todayIn("XXX+12");
    unsetenv("TZ");
    tzset();
    EXPECT_GT(ahead, behind);
    EXPECT_LE((ahead - behind).days(), 2);
}

} // namespace
