#pragma once

#include "nel_core/export.h"
#include "nel_core/std/fwd.h"

namespace nstd {

/// A day of the historical calendar: Julian up to 4 October 1582, Gregorian from the next day on, which is
/// 15 October 1582.
///
/// Days, months and years count from 1, days of the week from Monday = 0. Invalid dates are bugs: months and
/// days that do not exist raise out-of-range 1, the ten dropped days raise out-of-bounds, and so does a day
/// that a 32-bit count of days does not reach; the year 0 raises nstd::cBugException.
class NEL_EXPORT cDate {
public:
    /// Today in local time.
    cDate();
    /// A day by its date.
    cDate(unsigned int day, unsigned int month, unsigned int year);
    /// The day that many days after 0001-01-01.
    explicit cDate(unsigned long long daysPast);
    /// The day of an absolute UTC time. Counts near 2^64 are times before 1970.
    explicit cDate(cTime const& utc);

    /// The parts of the date, each from 1 on.
    unsigned int day() const noexcept { return miDay; }
    unsigned int month() const noexcept { return miMonth; }
    unsigned int year() const noexcept { return miYear; }
    /// The number of days since 0001-01-01.
    unsigned int daysPast() const noexcept { return miDaysPast; }

    /// Change one part. The date as a whole must be valid, or nothing changes.
    void setDay(unsigned int day);
    void setMonth(unsigned int month);
    void setYear(unsigned int year);

    /// Monday = 0 to Sunday = 6.
    unsigned int dayOfWeek() const noexcept;
    /// Their names, three letters each.
    cAsciiString nameOfDay() const;
    cAsciiString nameOfMonth() const;

    /// The date that many days later or earlier.
    cDate operator+(unsigned int days) const;
    cDate operator-(unsigned int days) const;
    /// The number of days between the two, whichever is the later one.
    unsigned int operator-(cDate const& other) const noexcept;
    /// Compare the days.
    bool operator==(cDate const& other) const noexcept { return miDaysPast == other.miDaysPast; }
    bool operator!=(cDate const& other) const noexcept { return miDaysPast != other.miDaysPast; }
    bool operator<(cDate const& other) const noexcept { return miDaysPast < other.miDaysPast; }
    bool operator>(cDate const& other) const noexcept { return miDaysPast > other.miDaysPast; }

    /// Full years from this date to today; a date in the future raises nstd::cBugException.
    unsigned int age() const;
    static unsigned int age(cDate const& birth);

    /// The number of the week that holds this date, by ISO 8601.
    unsigned int calendarWeek() const;
    /// The Monday of a week; the first week of a year is the one with 4 January.
    static cDate beginOfCalendarWeek(unsigned int year, unsigned int week);
    /// 53 when the year begins or ends on a Thursday, else 52.
    static unsigned int calenderWeeksPerYear(unsigned int year) noexcept;

    /// Whether the year has 366 days: up to 1582 every fourth one has, then all centuries but every fourth
    /// are left out.
    static bool isLeapYear(unsigned int year) noexcept;
    /// 28 to 31, also for October 1582. Raises nstd::cBugException for a month outside of 1 to 12.
    static unsigned int daysPerMonth(unsigned int month, unsigned int year);
    /// The number of days from 0001-01-01 to the date. Raises nstd::cBugException for a date that does not
    /// exist, and out-of-bounds when the count does not fit.
    static unsigned int calcDaysPast(unsigned int day, unsigned int month, unsigned int year);
    /// Three letters. Assert that the month lies in 1 to 12 and the day in 0 to 6.
    static cAsciiString nameOfMonth(unsigned int month);
    static cAsciiString nameOfDay(unsigned int dayOfWeek);

    /// The movable feasts of a year. Easter Sunday is that of the Julian calendar up to 1582.
    static cDate calcEasterSunday(unsigned int year);
    static cDate calcWeiberfastnacht(unsigned int year);
    static cDate calcAshWednesday(unsigned int year);
    static cDate calcAscensionDay(unsigned int year);
    static cDate calcWhitsun(unsigned int year);
    static cDate calcCorpusChristi(unsigned int year);
    /// The second Sunday of May, or the first when the second one is Whitsun.
    static cDate calcMothersDay(unsigned int year);

private:
    static void checkRanges(unsigned int day, unsigned int month, unsigned int year, char const* operation);
    void set(unsigned int day, unsigned int month, unsigned int year, char const* operation);
    void calcDate(unsigned long long daysPast);

    unsigned int miDay = 1;
    unsigned int miMonth = 1;
    unsigned int miYear = 1;
    unsigned int miDaysPast = 0;
};

} // namespace nstd
