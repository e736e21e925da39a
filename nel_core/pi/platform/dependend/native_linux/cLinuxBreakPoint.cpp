#include "nel_core/pi/platform/dependend/native_linux/cLinuxBreakPoint.h"

#include <csignal>
#include <unistd.h>

namespace npi {

void cLinuxBreakPoint::breakPoint()
{
    ::kill(::getpid(), SIGTRAP);
}

} // namespace npi
