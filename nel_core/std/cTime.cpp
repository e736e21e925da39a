#include "nel_core/std/cTime.h"

#include "nel_core/pi/cSysTime.h"

namespace nstd {

cTime::cTime() : miTime(npi::cSysTime::utcTime().miTime) { }

cTime cTime::diff() const
{
    return npi::cSysTime::diffTime(*this);
}

} // namespace nstd
