#include "nel_core/ncs/cNoPublicInterfaceException.h"

#include "nel_core/std/raise.h"

namespace ncs {

cNoPublicInterfaceException::cNoPublicInterfaceException()
    : tExceptionLeaf(nstd::makeMessage("$MTR$No public interface!"))
{
}

cNoPublicInterfaceException::~cNoPublicInterfaceException() = default;

cNoPublicInterfaceException&
cNoPublicInterfaceException::operator=(cNoPublicInterfaceException other) noexcept
{
    swap(other);
    return *this;
}

} // namespace ncs
