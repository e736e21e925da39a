#pragma once

#include "nel_core/export.h"
#include "nel_core/std/cTime.h"

namespace npi {

/// The clock of the system.
class NEL_EXPORT cSysTime {
public:
    /// Now: microseconds since 1970-01-01 UTC.
    static nstd::cTime utcTime();
    /// UTC minus local time in microseconds, in whole minutes. East of Greenwich that is negative: the count
    /// is then its two's complement, so subtract it from a raw count modulo 2^64.
    static nstd::cTime zoneOffset();
    /// The time between `t` and now.
    static nstd::cTime diffTime(nstd::cTime const& t);
};

} // namespace npi
