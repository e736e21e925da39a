#include "nel_core/rmi/cUnconnectedSignalException.h"

#include "nel_core/std/raise.h"

namespace nrmi {

cUnconnectedSignalException::cUnconnectedSignalException()
    : tExceptionLeaf(nstd::makeMessage("$MTR$Call of an unconnected signal"))
{
}

cUnconnectedSignalException::~cUnconnectedSignalException() = default;

cUnconnectedSignalException&
cUnconnectedSignalException::operator=(cUnconnectedSignalException other) noexcept
{
    swap(other);
    return *this;
}

} // namespace nrmi
