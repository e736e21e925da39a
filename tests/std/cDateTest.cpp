#include "nel_core/std/cDate.h"

#include <string>

#include <gtest/gtest.h>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cTime.h"
#include "tests/support/expectRefusal.h"

namespace {

using nstd::cDate;

std::string text(cDate const& date)
{
    return std::to_string(date.year()) + "-" + std::to_string(date.month()) + "-"
           + std::to_string(date.day());
}

TEST(cDateTest, knownDays)
{
    struct {
        cDate date;
        unsigned int daysPast;
        char const* nameOfDay;
    } const rows[] = {
        {cDate(1, 1, 1), 0, "Sat"},
        {cDate(15, 10, 1582), 577737, "Fri"},
        {cDate(18, 1, 11759222), 4294967295, "The"},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(row.date.daysPast(), row.daysPast);
        EXPECT_EQ(ntest::text(row.date.nameOfDay()), row.nameOfDay);
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

struct cError {
    void (*call)(cDate&);
    char const* operation;
    long long value = 0, max = 0; ///< without them it is one of bounds
};

// Every call is made on 31 January 2000.
cError const kErrors[] = {
    {[](cDate&) { cDate(1, 13, 2000); }, "cDate::cDate(..)", 13, 12},
    {[](cDate&) { cDate(0, 1, 2000); }, "cDate::cDate(..)", 0, 31},
    {[](cDate&) { cDate(29, 2, 1900); }, "cDate::cDate(..)", 29, 28},
    {[](cDate& date) { date.setDay(32); }, "setDay(..)", 32, 31},
    {[](cDate& date) { date.setMonth(2); }, "setMonth(..)", 31, 29},
    {[](cDate& date) { date = cDate(29, 2, 2000), date.setYear(2001); }, "setYear(..)", 29, 28},
    {[](cDate&) { cDate(10, 10, 1582); }, "cDate::cDate(..)"},
    {[](cDate& date) { date = cDate(4, 10, 1582), date.setDay(5); }, "setDay(..)"},
    {[](cDate& date) { date = cDate(14, 10, 1500), date.setYear(1582); }, "setYear(..)"},
    {[](cDate&) { cDate::calcDaysPast(1, 1, 4294967295u); }, "calcDaysPast(..)"},
    {[](cDate&) { cDate(4294967296ULL); }, "calcDate(..)"},
    {[](cDate&) { cDate(4294967295ULL) + 1; }, "operator+(..)"},
    {[](cDate&) { cDate(5ULL) - 6; }, "operator-(..)"},
    {[](cDate&) { cDate::beginOfCalendarWeek(1, 0); }, "beginOfCalendarWeek(..)"},
};

TEST(cDateTest, rangesAndBoundsAreChecked)
{
    for (auto const& row : kErrors) {
        SCOPED_TRACE(row.operation);
        cDate date(31, 1, 2000);
        auto const call = [&] { row.call(date); };
        if (row.max == 0) {
            ntest::expectRefusal(call, {"cDate", row.operation, ntest::kOutOfBounds});
        } else if (auto const error = ntest::raisedBy<nstd::cOutOfRangeException>(call)) {
            EXPECT_EQ(error->operation(), row.operation);
            EXPECT_EQ(error->rangeType(), cSTDExceptions::ortValue);
            EXPECT_EQ(error->value(), row.value);
            EXPECT_EQ(error->min(), 1);
            EXPECT_EQ(error->max(), row.max);
        }
        EXPECT_EQ(cDate::calcDaysPast(date.day(), date.month(), date.year()), date.daysPast());
    }
}

TEST(cDateTest, impossibleDatesAreBugs)
{
    struct {
        void (*call)();
        char const* message;
    } const rows[] = {
        {[] { cDate::calcDaysPast(30, 2, 2000); }, "Invalid date 2/30/2000!"},
        {[] { cDate::calcDaysPast(14, 10, 1582); }, "Invalid date 10/14/1582!"},
        {[] { cDate::calcEasterSunday(0); }, "Invalid date 4/11/0!"},
        {[] { cDate::daysPerMonth(13, 2000); }, "Month 13 is out of range!"},
        {[] { cDate::age(cDate() + 1); }, "Invalid date!"},
    };
    for (auto const& row : rows) {
        auto const error = ntest::raisedBy<nstd::cBugException>(row.call);
        ASSERT_TRUE(error.has_value()) << row.message;
        EXPECT_EQ(ntest::messageOf(*error), row.message);
    }
    ntest::expectAssertion([] { cDate::nameOfMonth(13); }, "(iMonth < 13) && (iMonth > 0)",
                           "nel_core/std/cDate");
    ntest::expectAssertion([] { cDate::nameOfDay(7); }, "iDayOfWeek < 7", "nel_core/std/cDate");
}

TEST(cDateTest, calendarWeeks)
{
    struct {
        cDate date;
        unsigned int week;
    } const rows[] = {
        {cDate(1, 1, 2021), 53},   {cDate(4, 1, 2021), 1},  {cDate(30, 12, 2019), 1},
        {cDate(29, 12, 2019), 52}, {cDate(1, 1, 2023), 52}, {cDate(15, 6, 2000), 24},
        {cDate(1, 1, 1), 53},      {cDate(3, 1, 1), 1},     {cDate(4294967295ULL), 3},
    };
    for (auto const& row : rows)
        EXPECT_EQ(row.date.calendarWeek(), row.week) << text(row.date);
    EXPECT_EQ(cDate::calenderWeeksPerYear(2020), 53u);
    EXPECT_EQ(text(cDate::beginOfCalendarWeek(2020, 53)), "2020-12-28");
}

TEST(cDateTest, feasts)
{
    struct {
        cDate (*feast)(unsigned int);
        unsigned int year;
        char const* date;
    } const rows[] = {
        {cDate::calcEasterSunday, 1582, "1582-4-15"}, // the last Julian one
        {cDate::calcEasterSunday, 1583, "1583-4-10"}, // the first Gregorian one
        {cDate::calcWeiberfastnacht, 2024, "2024-2-8"},
        {cDate::calcAshWednesday, 2024, "2024-2-14"},
        {cDate::calcAscensionDay, 2024, "2024-5-9"},
        {cDate::calcWhitsun, 2024, "2024-5-19"},
        {cDate::calcCorpusChristi, 2024, "2024-5-30"},
        {cDate::calcMothersDay, 2008, "2008-5-4"}, // a week early because of Whitsun
        {cDate::calcMothersDay, 2022, "2022-5-8"}, // the first of May is a Sunday
    };
    for (auto const& row : rows)
        EXPECT_EQ(text(row.feast(row.year)), row.date);
}

TEST(cDateTest, arithmetic)
{
    EXPECT_EQ(cDate(4, 10, 1582) + 1, cDate(15, 10, 1582));
    EXPECT_EQ(cDate(1, 1, 2000) - cDate(31, 12, 2000), 365u);
    EXPECT_EQ(text(cDate(nstd::cTime(0) - 1)), "1969-12-31");
}

TEST(cDateTest, ages)
{
    cDate const today;
    EXPECT_EQ(cDate(1, today.month(), today.year() - 20).age(), 20u);
    unsigned int const age = today.month() == 12 && today.day() == 31 ? 20 : 19;
    EXPECT_EQ(cDate(31, 12, today.year() - 20).age(), age);
}

} // namespace
