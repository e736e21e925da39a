#include "nel_core/std/cDate.h"

#include "nel_core/pi/cSysTime.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/cTime.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/raise.h"

namespace nstd {
namespace {

constexpr unsigned long long kMaxDays = 0xFFFFFFFF;
constexpr unsigned long long kDay = 86400000000;          // microseconds
constexpr unsigned long long kEpoch = 719164 * kDay;      // 1970-01-01 counted from 0001-01-01
constexpr unsigned int kFirstGregorianYear = 1583;        // the first one that is Gregorian from its start
constexpr unsigned int kDroppedDays = 10;                 // 5 to 14 October 1582
constexpr unsigned long long kFirstGregorianDay = 577737; // 15 October 1582

// The arithmetic below is done in calendar days: days since 0001-01-01 as if none had been dropped.

constexpr long long firstDayOf(unsigned int year)
{
    long long const y = year;
    long long const julian = 365 * (y - 1) + (y + 3) / 4 - 1;
    long long const centuries = (y - 1) / 100 - (y - 1) / 400 - 12;
    return year < kFirstGregorianYear ? julian : julian - centuries;
}

static_assert(firstDayOf(1) == 0 && firstDayOf(0) == -366 && firstDayOf(5) == 1461, "the Julian years");
static_assert(firstDayOf(1970) - kDroppedDays == 719164 && firstDayOf(1582) == 577460, "the Gregorian years");

constexpr long long realDaysOf(long long calendarDays)
{
    auto const first = static_cast<long long>(kFirstGregorianDay);
    return calendarDays < first ? calendarDays : calendarDays - kDroppedDays;
}

constexpr unsigned int dayOfWeekOf(long long realDays)
{
    return static_cast<unsigned int>((realDays % 7 + 7 + 5) % 7);
}

unsigned int yearOf(long long calendarDays)
{
    // A year has 146097 / 400 days on average; the estimate is off by one year at most.
    auto year = static_cast<unsigned int>(calendarDays * 400 / 146097 + 1);
    if (firstDayOf(year) > calendarDays)
        --year;
    if (firstDayOf(year + 1) <= calendarDays)
        ++year;
    return year;
}

long long mondayOfFirstWeek(unsigned int year)
{
    long long const day = realDaysOf(firstDayOf(year) + 3);
    return day - dayOfWeekOf(day);
}

bool isDropped(unsigned int day, unsigned int month, unsigned int year)
{
    return year == 1582 && month == 10 && day > 4 && day < 15;
}

bool isValid(unsigned int day, unsigned int month, unsigned int year)
{
    return year != 0 && month != 0 && month <= 12 && day != 0 && day <= cDate::daysPerMonth(month, year)
           && !isDropped(day, month, year);
}

// The count of a valid date, as far as it fits into 32 bits.
unsigned int countDays(unsigned int day, unsigned int month, unsigned int year, char const* operation)
{
    if (!isValid(day, month, year))
        raiseBug(makeMessage("$MTR$Invalid date %m%/%d%/%y%!", month, day, year));
    long long days = firstDayOf(year) + day - 1;
    for (unsigned int m = 1; m < month; ++m)
        days += cDate::daysPerMonth(m, year);
    days = realDaysOf(days);
    if (days > static_cast<long long>(kMaxDays))
        cSTDExceptions::throwOutOfBounds("cDate", operation);
    return static_cast<unsigned int>(days);
}

// Negative counts are above the limit, too, when they come as unsigned.
unsigned long long checkedDays(unsigned long long days, char const* operation)
{
    if (days > kMaxDays)
        cSTDExceptions::throwOutOfBounds("cDate", operation);
    return days;
}

unsigned int easterNumberJulian(unsigned int year)
{
    unsigned int const a = year % 4, b = year % 7, c = year % 19;
    unsigned int const d = (19 * c + 15) % 30;
    unsigned int const e = (2 * a + 4 * b - d + 34) % 7;
    return d + e + 114;
}

// The anonymous algorithm of Meeus, Jones and Butcher.
unsigned int easterNumberGregorian(unsigned int year)
{
    unsigned int const a = year % 19, b = year / 100, c = year % 100;
    unsigned int const d = b / 4, e = b % 4;
    unsigned int const g = (b - (b + 8) / 25 + 1) / 3;
    unsigned int const h = (19 * a + b - d - g + 15) % 30;
    unsigned int const l = (32 + 2 * e + 2 * (c / 4) - h - c % 4) % 7;
    unsigned int const m = (a + 11 * h + 22 * l) / 451;
    return h + l - 7 * m + 114;
}

} // namespace

cDate::cDate() : cDate(cTime(npi::cSysTime::utcTime().get() - npi::cSysTime::zoneOffset().get())) { }

cDate::cDate(unsigned int day, unsigned int month, unsigned int year)
{
    set(day, month, year, "cDate::cDate(..)");
}

cDate::cDate(unsigned long long daysPast)
{
    calcDate(checkedDays(daysPast, "calcDate(..)"));
}

// Modulo 2^64: the count of a time before 1970 comes out right.
cDate::cDate(cTime const& utc) : cDate((utc.get() + kEpoch) / kDay) { }

void cDate::setDay(unsigned int day)
{
    set(day, miMonth, miYear, "setDay(..)");
}

void cDate::setMonth(unsigned int month)
{
    set(miDay, month, miYear, "setMonth(..)");
}

void cDate::setYear(unsigned int year)
{
    set(miDay, miMonth, year, "setYear(..)");
}

unsigned int cDate::dayOfWeek() const noexcept
{
    return dayOfWeekOf(miDaysPast);
}

cAsciiString cDate::nameOfDay() const
{
    return nameOfDay(dayOfWeek());
}

cAsciiString cDate::nameOfMonth() const
{
    return nameOfMonth(miMonth);
}

cDate cDate::operator+(unsigned int days) const
{
    return cDate(checkedDays(0ULL + miDaysPast + days, "operator+(..)"));
}

cDate cDate::operator-(unsigned int days) const
{
    return cDate(checkedDays(0ULL + miDaysPast - days, "operator-(..)"));
}

unsigned int cDate::operator-(cDate const& other) const noexcept
{
    return miDaysPast < other.miDaysPast ? other.miDaysPast - miDaysPast : miDaysPast - other.miDaysPast;
}

unsigned int cDate::age() const
{
    cDate const today;
    if (today < *this)
        raiseBug(makeMessage("$MTR$Invalid date!"));
    bool const beforeBirthday = today.miMonth < miMonth || (today.miMonth == miMonth && today.miDay < miDay);
    return today.miYear - miYear - (beforeBirthday ? 1 : 0);
}

unsigned int cDate::age(cDate const& birth)
{
    return birth.age();
}

unsigned int cDate::calendarWeek() const
{
    if (miDaysPast < mondayOfFirstWeek(miYear))
        return calenderWeeksPerYear(miYear - 1);
    if (miDaysPast >= mondayOfFirstWeek(miYear + 1))
        return 1;
    return static_cast<unsigned int>((miDaysPast - mondayOfFirstWeek(miYear)) / 7 + 1);
}

cDate cDate::beginOfCalendarWeek(unsigned int year, unsigned int week)
{
    cDate const fourthOfJanuary(4, 1, year);
    long long const monday = fourthOfJanuary.miDaysPast - fourthOfJanuary.dayOfWeek() + (week - 1LL) * 7;
    return cDate(checkedDays(static_cast<unsigned long long>(monday), "beginOfCalendarWeek(..)"));
}

unsigned int cDate::calenderWeeksPerYear(unsigned int year) noexcept
{
    constexpr unsigned int kThursday = 3;
    bool const isLong =
        dayOfWeekOf(realDaysOf(firstDayOf(year))) == kThursday
        || dayOfWeekOf(realDaysOf(firstDayOf(year) + (isLeapYear(year) ? 365 : 364))) == kThursday;
    return isLong ? 53 : 52;
}

bool cDate::isLeapYear(unsigned int year) noexcept
{
    return year % 4 == 0 && (year < kFirstGregorianYear || year % 100 != 0 || year % 400 == 0);
}

unsigned int cDate::daysPerMonth(unsigned int month, unsigned int year)
{
    constexpr unsigned int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month == 0 || month > 12)
        raiseBug(makeMessage("$MTR$Month %m% is out of range!", month));
    return month == 2 && isLeapYear(year) ? 29 : kDays[month - 1];
}

unsigned int cDate::calcDaysPast(unsigned int day, unsigned int month, unsigned int year)
{
    return countDays(day, month, year, "calcDaysPast(..)");
}

cAsciiString cDate::nameOfMonth(unsigned int iMonth)
{
    constexpr char const* kNames[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    NEL_ASSERT((iMonth < 13) && (iMonth > 0));
    return cAsciiString(kNames[iMonth - 1]);
}

cAsciiString cDate::nameOfDay(unsigned int iDayOfWeek)
{
    constexpr char const* kNames[] = {"Mon", "The", "Wed", "Thu", "Fri", "Sat", "Sun"};
    NEL_ASSERT(iDayOfWeek < 7);
    return cAsciiString(kNames[iDayOfWeek]);
}

cDate cDate::calcEasterSunday(unsigned int year)
{
    unsigned int const n =
        year < kFirstGregorianYear ? easterNumberJulian(year) : easterNumberGregorian(year);
    return cDate(n % 31 + 1, n / 31, year);
}

cDate cDate::calcWeiberfastnacht(unsigned int year)
{
    return calcEasterSunday(year) - 52;
}

cDate cDate::calcAshWednesday(unsigned int year)
{
    return calcEasterSunday(year) - 46;
}

cDate cDate::calcAscensionDay(unsigned int year)
{
    return calcEasterSunday(year) + 39;
}

cDate cDate::calcWhitsun(unsigned int year)
{
    return calcEasterSunday(year) + 49;
}

cDate cDate::calcCorpusChristi(unsigned int year)
{
    return calcEasterSunday(year) + 60;
}

cDate cDate::calcMothersDay(unsigned int year)
{
    cDate const firstOfMay(1, 5, year);
    cDate const secondSunday = firstOfMay + (13 - firstOfMay.dayOfWeek());
    return secondSunday == calcWhitsun(year) ? secondSunday - 7 : secondSunday;
}

void cDate::checkRanges(unsigned int day, unsigned int month, unsigned int year, char const* operation)
{
    if (month == 0 || month > 12)
        cSTDExceptions::throwOutOfRange("cDate", operation, cSTDExceptions::ortValue, month, 1, 12);
    unsigned int const days = daysPerMonth(month, year);
    if (day == 0 || day > days)
        cSTDExceptions::throwOutOfRange("cDate", operation, cSTDExceptions::ortValue, day, 1, days);
    if (isDropped(day, month, year))
        cSTDExceptions::throwOutOfBounds("cDate", operation);
}

void cDate::set(unsigned int day, unsigned int month, unsigned int year, char const* operation)
{
    checkRanges(day, month, year, operation);
    miDaysPast = countDays(day, month, year, operation);
    miDay = day;
    miMonth = month;
    miYear = year;
}

void cDate::calcDate(unsigned long long daysPast)
{
    miDaysPast = static_cast<unsigned int>(daysPast);
    auto const days =
        static_cast<long long>(daysPast < kFirstGregorianDay ? daysPast : daysPast + kDroppedDays);
    miYear = yearOf(days);
    auto rest = static_cast<unsigned int>(days - firstDayOf(miYear));
    for (miMonth = 1; rest >= daysPerMonth(miMonth, miYear); ++miMonth)
        rest -= daysPerMonth(miMonth, miYear);
    miDay = rest + 1;
}

} // namespace nstd
