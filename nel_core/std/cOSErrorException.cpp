#include "nel_core/std/cOSErrorException.h"

#include <utility>

#include "nel_core/pi/cPlatform.h"
#include "nel_core/std/raise.h"

namespace nstd {

cOSErrorException::cOSErrorException(cAsciiString const& operation, int code)
    : tExceptionLeaf(makeMessage("$MTR$OS-Error while trying operation \"%operation%\"!", operation)),
      msOperation(operation),
      miCode(code)
{
    linkSystemText();
}

cOSErrorException::cOSErrorException(cAsciiString const& operation, int code, nucs::cString const& file)
    : tExceptionLeaf(makeMessage("$MTR$OS-Error while trying operation \"%operation%\" on file \"%file%\"!",
                                 operation, file)),
      msOperation(operation),
      miCode(code),
      msFile(file)
{
    linkSystemText();
}

void cOSErrorException::linkSystemText()
{
    link(new cRuntimeException(
        makeMessage("$MTR$Error: \"%error%\"!", npi::cPlatform::osFileIOErrorString(miCode))));
}

cOSErrorException::~cOSErrorException() = default;

cOSErrorException& cOSErrorException::operator=(cOSErrorException other) noexcept
{
    swap(other);
    return *this;
}

void cOSErrorException::swap(cOSErrorException& other) noexcept
{
    cRuntimeException::swap(other);
    msOperation.swap(other.msOperation);
    std::swap(miCode, other.miCode);
    msFile.swap(other.msFile);
}

} // namespace nstd
