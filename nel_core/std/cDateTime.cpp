#include "nel_core/std/cDateTime.h"

#include <cstdio>
#include <utility>

#include "nel_core/pi/cSysTime.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cAsciiString.h"

namespace nstd {
namespace {

constexpr unsigned long long kDay = 86400000000; // microseconds
constexpr unsigned long long kDaysToEpoch = 719164;
constexpr char kLabel[] = "DateTime";

// Modulo 2^64: the offset of a zone east of Greenwich is a negative count.
cTime corrected(unsigned long long time, cDateTime::ZoneInfo zone)
{
    return cTime(zone == cDateTime::ziCorrect ? time - npi::cSysTime::zoneOffset().get() : time);
}

void replaceNumber(cAsciiString& text, char const* placeholder, unsigned int value, int width)
{
    char digits[16];
    std::snprintf(digits, sizeof(digits), "%0*u", width, value);
    text.replace(placeholder, digits);
}

} // namespace

cDateTime::cDateTime(cTime const& time, ZoneInfo zone) : mTime(corrected(time.get(), zone)) { }

cDateTime::cDateTime(cTime const& timeOfDay, cDate const& date, ZoneInfo zone)
    : mTime(corrected((date.daysPast() - kDaysToEpoch) * kDay + timeOfDay.get(), zone))
{
}

void cDateTime::swap(cDateTime& other) noexcept
{
    std::swap(mTime, other.mTime);
}

cTime cDateTime::localTime() const
{
    return corrected(mTime.get(), ziCorrect);
}

cAsciiString cDateTime::formatString(cAsciiString const& format) const
{
    return formatString(mTime, format);
}

cAsciiString cDateTime::formatString(cTime const& time, cAsciiString const& format)
{
    cDate const date(time);
    // Counted from 0001-01-01 the times before 1970 have their time of day as well.
    cTime const timeOfDay((time.get() + kDaysToEpoch * kDay) % kDay);

    cAsciiString text(format);
    replaceNumber(text, "HH", timeOfDay.hour(), 2);
    replaceNumber(text, "MM", timeOfDay.minutes(), 2);
    replaceNumber(text, "SS", timeOfDay.sec(), 2);
    replaceNumber(text, "dd", date.day(), 2);
    replaceNumber(text, "mm", date.month(), 2);
    replaceNumber(text, "yyyy", date.year(), 4);
    text.replace("dn", date.nameOfDay().c_str());
    text.replace("mn", date.nameOfMonth().c_str());
    return text;
}

nsa::cAbstractSerializer& cDateTime::operator>>(nsa::cAbstractSerializer& serializer) const
{
    if (!serializer.noLabelsPreferred())
        serializer.newLabel(kLabel);
    return mTime.get() >> serializer;
}

nsa::cAbstractDeserializer& cDateTime::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    if (!deserializer.noLabelsPreferred())
        deserializer.findLabel(kLabel);
    unsigned long long time = 0;
    time << deserializer;
    mTime.set(time);
    return deserializer;
}

} // namespace nstd
