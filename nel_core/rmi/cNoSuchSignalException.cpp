#include "nel_core/rmi/cNoSuchSignalException.h"

#include <utility>

#include "nel_core/std/raise.h"

namespace nrmi {

cNoSuchSignalException::cNoSuchSignalException(nstd::cAsciiString const& signalName)
    : tExceptionLeaf(nstd::makeMessage("$MTR$Signal \"%s%\" could not be found in interface!", signalName)),
      msSignalName(signalName)
{
}

cNoSuchSignalException::~cNoSuchSignalException() = default;

cNoSuchSignalException& cNoSuchSignalException::operator=(cNoSuchSignalException other) noexcept
{
    swap(other);
    return *this;
}

void cNoSuchSignalException::swap(cNoSuchSignalException& other) noexcept
{
    nstd::cRuntimeException::swap(other);
    msSignalName.swap(other.msSignalName);
}

} // namespace nrmi
