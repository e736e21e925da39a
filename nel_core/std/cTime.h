#pragma once

#include "nel_core/export.h"

namespace nstd {

/// A count of microseconds: a duration, or an absolute time since 1970-01-01 00:00:00 UTC.
///
/// All sums and products are taken modulo 2^64; nothing is checked.
class NEL_EXPORT cTime {
public:
    /// Now.
    cTime();
    /// A count of microseconds, or the sum of the parts.
    explicit constexpr cTime(unsigned long long us) noexcept : miTime(us) { }
    constexpr cTime(unsigned int sec, unsigned int usec) noexcept : miTime(sec * kSecond + usec) { }
    constexpr cTime(unsigned int h, unsigned int m, unsigned int s, unsigned int us) noexcept
        : miTime(h * kHour + m * kMinute + s * kSecond + us)
    {
    }

    /// The count.
    constexpr unsigned long long get() const noexcept { return miTime; }
    /// Sets the count.
    constexpr void set(unsigned long long us) noexcept { miTime = us; }

    /// The whole time in one unit; parts of it are dropped.
    constexpr unsigned long long toNSec() const noexcept { return miTime * 1000; }
    constexpr unsigned long long toUSec() const noexcept { return miTime; }
    constexpr unsigned long long toMSec() const noexcept { return miTime / 1000; }
    constexpr unsigned long long toSec() const noexcept { return miTime / kSecond; }
    constexpr unsigned long long toMin() const noexcept { return miTime / kMinute; }
    constexpr unsigned long long toHour() const noexcept { return miTime / kHour; }

    /// The hour of the day, the minutes of the hour, the seconds of the minute.
    constexpr unsigned int hour() const noexcept { return static_cast<unsigned int>(toHour() % 24); }
    constexpr unsigned int minutes() const noexcept { return static_cast<unsigned int>(toMin() % 60); }
    constexpr unsigned int sec() const noexcept { return static_cast<unsigned int>(toSec() % 60); }
    /// The milliseconds of the second, and all its microseconds.
    constexpr unsigned int msec() const noexcept { return static_cast<unsigned int>(toMSec() % 1000); }
    constexpr unsigned int usec() const noexcept { return static_cast<unsigned int>(miTime % kSecond); }

    /// The time between the two, whichever is the later one.
    constexpr cTime operator-(cTime const& other) const noexcept
    {
        return cTime(miTime < other.miTime ? other.miTime - miTime : miTime - other.miTime);
    }
    /// The sum of the two counts.
    constexpr cTime operator+(cTime const& other) const noexcept { return cTime(miTime + other.miTime); }
    /// This time shifted by microseconds.
    constexpr cTime operator+(long long us) const noexcept
    {
        return cTime(miTime + static_cast<unsigned long long>(us));
    }
    constexpr cTime operator-(long long us) const noexcept
    {
        return cTime(miTime - static_cast<unsigned long long>(us));
    }

    /// Compare the counts.
    constexpr bool operator==(cTime const& other) const noexcept { return miTime == other.miTime; }
    constexpr bool operator!=(cTime const& other) const noexcept { return miTime != other.miTime; }
    constexpr bool operator<(cTime const& other) const noexcept { return miTime < other.miTime; }
    constexpr bool operator>(cTime const& other) const noexcept { return miTime > other.miTime; }

    /// The time between this one and now.
    cTime diff() const;

private:
    static constexpr unsigned long long kSecond = 1000000;
    static constexpr unsigned long long kMinute = 60 * kSecond;
    static constexpr unsigned long long kHour = 60 * kMinute;

    unsigned long long miTime;
};

} // namespace nstd
