#include "nel_core/ncs/cUnmatchedInterfaceException.h"

#include "nel_core/std/raise.h"

namespace ncs {

cUnmatchedInterfaceException::cUnmatchedInterfaceException()
    : tExceptionLeaf(nstd::makeMessage("$MTR$Unmatched interface!"))
{
}

cUnmatchedInterfaceException::~cUnmatchedInterfaceException() = default;

cUnmatchedInterfaceException&
cUnmatchedInterfaceException::operator=(cUnmatchedInterfaceException other) noexcept
{
    swap(other);
    return *this;
}

} // namespace ncs
