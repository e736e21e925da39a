#include "nel_core/pi/cSysTime.h"

#include <ctime>
#include <sys/time.h>

namespace npi {

nstd::cTime cSysTime::utcTime()
{
    timeval now = {};
    ::gettimeofday(&now, nullptr);
    return nstd::cTime(static_cast<unsigned long long>(now.tv_sec) * 1000000ULL
                       + static_cast<unsigned long long>(now.tv_usec));
}

// The zone that gettimeofday() itself could tell is always 0 in today's C library.
nstd::cTime cSysTime::zoneOffset()
{
    ::tzset();
    std::time_t const now = std::time(nullptr);
    std::tm local = {};
    ::localtime_r(&now, &local);
    long long const minutesWest = -static_cast<long long>(local.tm_gmtoff) / 60;
    return nstd::cTime(static_cast<unsigned long long>(minutesWest * 60000000LL));
}

nstd::cTime cSysTime::diffTime(nstd::cTime const& t)
{
    return utcTime() - t;
}

} // namespace npi
