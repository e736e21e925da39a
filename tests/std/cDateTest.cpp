#include "nel_core/std/cDate.h"

#include <string>

#include <gtest/gtest.h>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cOutOfBoundsException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_core/std/cTime.h"
#include "tests/support/raisedBy.h"

namespace {

using nstd::cDate;

std::string text(cDate const& date)
{
    return std::to_string(date.year()) + "-" + std::to_string(date.month()) + "-"
           + std::to_string(date.day());
}

struct cKnownDay {
    unsigned int day, month, year;
    unsigned int daysPast;
    char const* nameOfDay;
};

cKnownDay const kKnownDays[] = {
    {1, 1, 1, 0, "Sat"},           {29, 2, 1500, 547568, "Sat"},         {4, 10, 1582, 577736, "Thu"},
    {15, 10, 1582, 577737, "Fri"}, {1, 3, 1700, 620608, "Mon"},          {1, 1, 1970, 719164, "Thu"},
    {29, 2, 2000, 730180, "The"},  {18, 1, 11759222, 4294967295, "The"},
};

TEST(cDateTest, knownDays)
{
    for (auto const& row : kKnownDays) {
        cDate const date(row.day, row.month, row.year);
        SCOPED_TRACE(text(date));
        EXPECT_EQ(date.daysPast(), row.daysPast);
        EXPECT_EQ(cDate::calcDaysPast(row.day, row.month, row.year), row.daysPast);
        EXPECT_EQ(ntest::text(date.nameOfDay()), row.nameOfDay);
        EXPECT_EQ(text(cDate(0ULL + row.daysPast)), text(date));
    }
}

// Steps through the calendar day by day, by the rules and not by formulas.
TEST(cDateTest, everyDayFollowsThePreviousOne)
{
    unsigned int day = 1, month = 1, year = 1;
    for (unsigned long long daysPast = 0; year < 2501; ++daysPast) {
        cDate const date(daysPast);
        ASSERT_TRUE(date.day() == day && date.month() == month && date.year() == year) << daysPast;
        ASSERT_EQ(date.daysPast(), daysPast);
        ASSERT_EQ(date.dayOfWeek(), (daysPast + 5) % 7);
        if (++day > cDate::daysPerMonth(month, year))
            day = 1, ++month;
        if (month > 12)
            month = 1, ++year;
        if (year == 1582 && month == 10 && day == 5)
            day = 15;
    }
    for (year = 2501; year < 11759222; year += 1009) {
        ASSERT_EQ(text(cDate(0ULL + cDate::calcDaysPast(1, 1, year))), std::to_string(year) + "-1-1");
        ASSERT_EQ(text(cDate(cDate::calcDaysPast(1, 1, year) - 1ULL)), std::to_string(year - 1) + "-12-31");
    }
}

TEST(cDateTest, leapYears)
{
    EXPECT_TRUE(cDate::isLeapYear(1500) && cDate::isLeapYear(2000) && cDate::isLeapYear(2004));
    EXPECT_FALSE(cDate::isLeapYear(1700) || cDate::isLeapYear(1582) || cDate::isLeapYear(2001));
    EXPECT_EQ(cDate::daysPerMonth(2, 1900), 28u);
    EXPECT_EQ(cDate::daysPerMonth(2, 2000), 29u);
}

// Errors
// ---------------------------------------------------------------------------------------------

struct cRangeError {
    char const* name;
    void (*call)(cDate&);
    char const* operation;
    long long value, max;
};

// Every call is made on 31 January 2000.
cRangeError const kRangeErrors[] = {
    {"month 0", [](cDate&) { cDate(1, 0, 2000); }, "cDate::cDate(..)", 0, 12},
    {"month 13", [](cDate&) { cDate(1, 13, 2000); }, "cDate::cDate(..)", 13, 12},
    {"day 0", [](cDate&) { cDate(0, 1, 2000); }, "cDate::cDate(..)", 0, 31},
    {"day 29 of a short February", [](cDate&) { cDate(29, 2, 1900); }, "cDate::cDate(..)", 29, 28},
    {"setDay", [](cDate& date) { date.setDay(32); }, "setDay(..)", 32, 31},
    {"setMonth to a shorter one", [](cDate& date) { date.setMonth(2); }, "setMonth(..)", 31, 29},
    {"setYear", [](cDate& date) { date = cDate(29, 2, 2000), date.setYear(2001); }, "setYear(..)", 29, 28},
};

TEST(cDateTest, rangesAreChecked)
{
    for (auto const& row : kRangeErrors) {
        SCOPED_TRACE(row.name);
        cDate date(31, 1, 2000);
        auto const error = ntest::raisedBy<nstd::cOutOfRangeException>([&] { row.call(date); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->rangeType(), cSTDExceptions::ortValue);
        EXPECT_EQ(ntest::text(error->container()), "cDate");
        EXPECT_EQ(ntest::text(error->operation()), row.operation);
        EXPECT_EQ(error->value(), row.value);
        EXPECT_EQ(error->min(), 1);
        EXPECT_EQ(error->max(), row.max);
        EXPECT_EQ(cDate::calcDaysPast(date.day(), date.month(), date.year()), date.daysPast());
        EXPECT_EQ(date.year(), 2000u);
    }
}

struct cBoundsError {
    char const* name;
    void (*call)(cDate&);
    char const* operation;
};

cBoundsError const kBoundsErrors[] = {
    {"dropped day", [](cDate&) { cDate(10, 10, 1582); }, "cDate::cDate(..)"},
    {"setDay to a dropped one", [](cDate& d) { d = cDate(4, 10, 1582), d.setDay(5); }, "setDay(..)"},
    {"setYear to a dropped day", [](cDate& d) { d = cDate(14, 10, 1500), d.setYear(1582); }, "setYear(..)"},
    {"too far ahead", [](cDate&) { cDate(19, 1, 11759222); }, "cDate::cDate(..)"},
    {"too far ahead to count", [](cDate&) { cDate::calcDaysPast(1, 1, 4294967295u); }, "calcDaysPast(..)"},
    {"too many days", [](cDate&) { cDate(4294967296ULL); }, "calcDate(..)"},
    {"one day after the last one", [](cDate&) { cDate(4294967295ULL) + 1; }, "operator+(..)"},
    {"one day before the first one", [](cDate&) { cDate(5ULL) - 6; }, "operator-(..)"},
    {"a week before the first one", [](cDate&) { cDate::beginOfCalendarWeek(1, 0); },
     "beginOfCalendarWeek(..)"},
};

TEST(cDateTest, boundsAreChecked)
{
    for (auto const& row : kBoundsErrors) {
        SCOPED_TRACE(row.name);
        cDate date;
        auto const error = ntest::raisedBy<nstd::cOutOfBoundsException>([&] { row.call(date); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::text(error->container()), "cDate");
        EXPECT_EQ(ntest::text(error->operation()), row.operation);
        EXPECT_EQ(cDate::calcDaysPast(date.day(), date.month(), date.year()), date.daysPast());
    }
}

struct cBug {
    void (*call)();
    char const* message;
};

cBug const kBugs[] = {
    {[] { cDate::calcDaysPast(1, 13, 2000); }, "Invalid date 13/1/2000!"},
    {[] { cDate::calcDaysPast(30, 2, 2000); }, "Invalid date 2/30/2000!"},
    {[] { cDate::calcDaysPast(14, 10, 1582); }, "Invalid date 10/14/1582!"},
    {[] { cDate::calcDaysPast(0, 1, 2000); }, "Invalid date 1/0/2000!"},
    {[] { cDate::calcDaysPast(1, 0, 2000); }, "Invalid date 0/1/2000!"},
    {[] { cDate(2, 1, 0); }, "Invalid date 1/2/0!"},
    {[] { cDate::calcEasterSunday(0); }, "Invalid date 4/11/0!"},
    {[] { cDate::daysPerMonth(13, 2000); }, "Month 13 is out of range!"},
    {[] { cDate::age(cDate() + 1); }, "Invalid date!"},
};

TEST(cDateTest, impossibleDatesAreBugs)
{
    for (auto const& row : kBugs) {
        SCOPED_TRACE(row.message);
        auto const error = ntest::raisedBy<nstd::cBugException>(row.call);
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::messageOf(*error), row.message);
    }
    auto const month = ntest::raisedBy<nstd::cBugException>([] { cDate::nameOfMonth(13); });
    ASSERT_TRUE(month.has_value());
    EXPECT_NE(ntest::messageOf(*month).find("((iMonth < 13) && (iMonth > 0))"), std::string::npos);
    auto const day = ntest::raisedBy<nstd::cBugException>([] { cDate::nameOfDay(7); });
    ASSERT_TRUE(day.has_value());
    EXPECT_NE(ntest::messageOf(*day).find("(iDayOfWeek < 7)"), std::string::npos);
}

// Weeks, feasts, ages
// ---------------------------------------------------------------------------------------------

struct cWeek {
    cDate date;
    unsigned int week;
};

TEST(cDateTest, calendarWeeks)
{
    cWeek const weeks[] = {
        {cDate(1, 1, 2021), 53},   {cDate(4, 1, 2021), 1},   {cDate(30, 12, 2019), 1},
        {cDate(29, 12, 2019), 52}, {cDate(1, 1, 2016), 53},  {cDate(31, 12, 2020), 53},
        {cDate(1, 1, 2023), 52},   {cDate(31, 12, 2024), 1}, {cDate(15, 6, 2000), 24},
        {cDate(1, 1, 1), 53},      {cDate(3, 1, 1), 1},      {cDate(4294967295ULL), 3},
    };
    for (auto const& row : weeks)
        EXPECT_EQ(row.date.calendarWeek(), row.week) << text(row.date);
    EXPECT_EQ(cDate::calenderWeeksPerYear(2020), 53u);
    EXPECT_EQ(cDate::calenderWeeksPerYear(2021), 52u);
    EXPECT_EQ(cDate::calenderWeeksPerYear(2015), 53u);
    EXPECT_EQ(text(cDate::beginOfCalendarWeek(2021, 1)), "2021-1-4");
    EXPECT_EQ(text(cDate::beginOfCalendarWeek(2020, 1)), "2019-12-30");
    EXPECT_EQ(text(cDate::beginOfCalendarWeek(2020, 53)), "2020-12-28");
}

struct cFeast {
    char const* name;
    cDate (*feast)(unsigned int);
    unsigned int year;
    char const* date;
};

cFeast const kFeasts[] = {
    {"Easter, Julian", cDate::calcEasterSunday, 1492, "1492-4-22"},
    {"Easter, the last Julian one", cDate::calcEasterSunday, 1582, "1582-4-15"},
    {"Easter, the first Gregorian one", cDate::calcEasterSunday, 1583, "1583-4-10"},
    {"Easter, the earliest", cDate::calcEasterSunday, 1818, "1818-3-22"},
    {"Easter, the latest", cDate::calcEasterSunday, 1943, "1943-4-25"},
    {"Easter", cDate::calcEasterSunday, 2024, "2024-3-31"},
    {"Weiberfastnacht", cDate::calcWeiberfastnacht, 2024, "2024-2-8"},
    {"Ash Wednesday", cDate::calcAshWednesday, 2024, "2024-2-14"},
    {"Ascension Day", cDate::calcAscensionDay, 2024, "2024-5-9"},
    {"Whitsun", cDate::calcWhitsun, 2024, "2024-5-19"},
    {"Corpus Christi", cDate::calcCorpusChristi, 2024, "2024-5-30"},
    {"Mother's Day", cDate::calcMothersDay, 2024, "2024-5-12"},
    {"Mother's Day, from Whitsun", cDate::calcMothersDay, 2008, "2008-5-4"},
    {"Mother's Day, after a Sunday", cDate::calcMothersDay, 2022, "2022-5-8"},
};

TEST(cDateTest, feasts)
{
    for (auto const& row : kFeasts)
        EXPECT_EQ(text(row.feast(row.year)), row.date) << row.name;
}

TEST(cDateTest, arithmetic)
{
    EXPECT_EQ(cDate(4, 10, 1582) + 1, cDate(15, 10, 1582));
    EXPECT_EQ(cDate(15, 10, 1582) - 1, cDate(4, 10, 1582));
    EXPECT_EQ(cDate(1, 1, 2000) - cDate(31, 12, 2000), 365u);
    EXPECT_LT(cDate(31, 12, 1999), cDate(1, 1, 2000));
    cDate date(31, 12, 1999);
    date.setDay(1), date.setMonth(2), date.setYear(2004);
    EXPECT_EQ(date, cDate(1, 2, 2004));
    EXPECT_EQ(date.daysPast(), cDate::calcDaysPast(1, 2, 2004));
}

TEST(cDateTest, timesBefore1970HaveTheirDay)
{
    EXPECT_EQ(text(cDate(nstd::cTime(0))), "1970-1-1");
    EXPECT_EQ(text(cDate(nstd::cTime(0) - 1)), "1969-12-31");
    EXPECT_EQ(text(cDate(nstd::cTime(86400u, 0u) - 1)), "1970-1-1");
}

TEST(cDateTest, ages)
{
    cDate const today;
    EXPECT_EQ(today.age(), 0u);
    cDate const birth(1, today.month(), today.year() - 20);
    EXPECT_EQ(birth.age(), 20u);
    EXPECT_EQ(cDate::age(cDate(28, 12, today.year() - 20) + 3),
              20u - (today.month() == 12 && today.day() == 31 ? 0u : 1u));
}

} // namespace
