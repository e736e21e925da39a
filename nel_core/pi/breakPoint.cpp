#include "nel_core/pi/breakPoint.h"

#include "nel_core/pi/platform/dependend/native_linux/cLinuxBreakPoint.h"

namespace npi {

void breakPoint()
{
    cLinuxBreakPoint::breakPoint();
}

} // namespace npi
