#pragma once

#include "nel_core/sa/fwd.h"
#include "nel_core/std/cDate.h"
#include "nel_core/std/cTime.h"

namespace nstd {

/// A point in time, with its date and time of day in UTC and in local time.
class NEL_EXPORT cDateTime {
public:
    /// What happens to the time that a constructor is given.
    enum ZoneInfo : unsigned int {
        ziNone = 0,   ///< it is taken as it is
        ziCorrect = 1 ///< the zone offset is subtracted from it
    };

    /// Now.
    cDateTime() = default;
    /// That time.
    explicit cDateTime(cTime const& time, ZoneInfo zone = ziNone);
    /// The time of the day `date`. Days before 1970 give counts modulo 2^64.
    cDateTime(cTime const& timeOfDay, cDate const& date, ZoneInfo zone = ziNone);

    /// Exchanges the times.
    void swap(cDateTime& other) noexcept;

    /// The time that is held, which the other accessors read as UTC.
    cTime const& internTime() const noexcept { return mTime; }
    /// The time and its day in UTC.
    cTime utcTime() const noexcept { return mTime; }
    cDate utcDate() const { return cDate(mTime); }
    /// UTC minus the zone offset, modulo 2^64.
    cTime localTime() const;
    cDate localDate() const { return cDate(localTime()); }

    /// The format with every "HH", "MM" and "SS" replaced by the hour, the minutes and the seconds, then "dd"
    /// and "mm" by the day and the month (all of two digits), "yyyy" by the year (four digits), "dn" and "mn"
    /// by the names of the day and of the month; all in UTC. Each replacement goes over the text that the
    /// previous ones have left.
    cAsciiString formatString(cAsciiString const& format) const;
    static cAsciiString formatString(cTime const& time, cAsciiString const& format);

    /// Compare the times.
    bool operator==(cDateTime const& other) const noexcept { return mTime == other.mTime; }
    bool operator!=(cDateTime const& other) const noexcept { return mTime != other.mTime; }
    bool operator<(cDateTime const& other) const noexcept { return mTime < other.mTime; }
    bool operator>(cDateTime const& other) const noexcept { return mTime > other.mTime; }

    /// The stored form is the UTC time as `unsigned long long`; where labels are welcome, it stands behind
    /// one ("DateTime"). A failed load changes nothing.
    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);

private:
    cTime mTime;
};

} // namespace nstd
