#include "nel_core/std/cDateTime.h"

#include <cstdlib>
#include <ctime>
#include <string>

#include <gtest/gtest.h>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "tests/support/raisedBy.h"
#include "tests/support/storedForm.h"

namespace {

using nstd::cDate;
using nstd::cDateTime;
using nstd::cTime;

constexpr unsigned long long kDay = 86400000000;

// Another time zone for a scope. POSIX signs: "XXX5" lies five hours west of Greenwich.
class cZone {
public:
    explicit cZone(char const* zone) : msOld(std::getenv("TZ") ? std::getenv("TZ") : "UTC") { set(zone); }
    ~cZone() { set(msOld.c_str()); }

private:
    static void set(char const* zone)
    {
        ::setenv("TZ", zone, 1);
        ::tzset();
    }

    std::string const msOld;
};

TEST(cDateTimeTest, formats)
{
    cTime const time(4u, 5u, 6u, 789000u);
    struct {
        cDate date;
        char const* format;
        char const* text;
    } const rows[] = {
        {cDate(3, 2, 2001), "dd.mm.yyyy HH:MM:SS", "03.02.2001 04:05:06"},
        {cDate(3, 2, 2001), "dn, dd mn yyyy", "Sat, 03 Feb 2001"},
        {cDate(3, 2, 2001), "HHH MMM SSSS yyyyy d H", "04H 05M 0606 2001y d H"},
        {cDate(3, 2, 2001), "%s %n \\ none", "%s %n \\ none"},
        {cDate(31, 12, 1969), "yyyy-mm-dd HH", "1969-12-31 04"},
        {cDate(1, 1, 1), "yyyy-mm-dd", "0001-01-01"},
        {cDate(1, 1, 12345), "yyyy-mm-dd", "12345-01-01"},
    };
    for (auto const& row : rows)
        EXPECT_EQ(ntest::text(cDateTime(time, row.date).formatString(row.format)), row.text);
}

TEST(cDateTimeTest, isStoredWithALabelOnlyWhereLabelsAreWelcome)
{
    cDateTime const time(cTime(0x100000002));
    for (bool const noLabels : {true, false}) {
        auto const bytes = (noLabels ? "" : ntest::label("DateTime")) + ntest::longNumber(2, 1);
        EXPECT_EQ(ntest::written([&](auto& target) { time >> target; }, noLabels), bytes);
        cDateTime loaded(cTime(5));
        auto const load = [&](auto& source) { loaded << source; };
        ntest::raisedBy<nstd::cOutOfRangeException>(
            [&] { ntest::read(bytes.substr(0, bytes.size() - 1), load, noLabels); });
        EXPECT_EQ(loaded.utcTime(), cTime(5));
        ntest::read((noLabels ? "" : ntest::longNumber(9, 9)) + bytes, load, noLabels);
        EXPECT_EQ(loaded, time);
    }
}

TEST(cDateTimeTest, localTimeIsModular)
{
    cDateTime const noon(cTime(12u, 0u, 0u, 0u), cDate(1, 1, 2000));
    {
        cZone const west("XXX13");
        EXPECT_EQ(noon.localTime(), cTime(noon.utcTime().get() - 13 * 3600000000ULL));
        EXPECT_EQ(noon.localDate(), cDate(31, 12, 1999));
        EXPECT_EQ(cDateTime(cTime(0)).localDate(), cDate(31, 12, 1969));
        EXPECT_EQ(cDateTime(cTime(kDay), cDateTime::ziCorrect).utcTime(), cTime(11 * 3600000000ULL));
    }
    {
        cZone const east("XXX-12:30");
        EXPECT_EQ(noon.localTime(), cTime(noon.utcTime().get() + 45000000000ULL));
        EXPECT_EQ(noon.localDate(), cDate(2, 1, 2000));
        cDateTime const corrected(cTime(0), cDate(2, 1, 1970), cDateTime::ziCorrect);
        EXPECT_EQ(corrected.internTime(), cTime(kDay + 45000000000ULL));
    }
}

} // namespace
