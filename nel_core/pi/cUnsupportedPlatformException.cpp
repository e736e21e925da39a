#include "nel_core/pi/cUnsupportedPlatformException.h"

#include <utility>

#include "nel_core/std/raise.h"

namespace npi {

cUnsupportedPlatformException::cUnsupportedPlatformException(nstd::cAsciiString const& operation)
    : tExceptionLeaf(
        nstd::makeMessage("$MTR$Operation (\"%operation%\") not supported for this platform!", operation)),
      msOperation(operation)
{
}

cUnsupportedPlatformException::~cUnsupportedPlatformException() = default;

cUnsupportedPlatformException&
cUnsupportedPlatformException::operator=(cUnsupportedPlatformException other) noexcept
{
    swap(other);
    return *this;
}

void cUnsupportedPlatformException::swap(cUnsupportedPlatformException& other) noexcept
{
    nstd::cBugException::swap(other);
    msOperation.swap(other.msOperation);
}

} // namespace npi
