#include "nel_core/ncs/cNoSuchModuleException.h"

#include "nel_core/ncs/cComponentLocation.h"
#include "nel_core/std/raise.h"

namespace ncs {

cNoSuchModuleException::cNoSuchModuleException(nstd::cAsciiString const& text)
    : tExceptionLeaf(nstd::makeMessage("$MTR$Module (%addr%) not found!", text))
{
}

cNoSuchModuleException::cNoSuchModuleException(cComponentAddr const& address)
    : cNoSuchModuleException(address.toString())
{
    mAddress = address;
}

cNoSuchModuleException::cNoSuchModuleException(cComponentLocation const& location)
    : cNoSuchModuleException(location.toString())
{
    mAddress = location.address();
}

cNoSuchModuleException::~cNoSuchModuleException() = default;

cNoSuchModuleException& cNoSuchModuleException::operator=(cNoSuchModuleException other) noexcept
{
    swap(other);
    return *this;
}

void cNoSuchModuleException::swap(cNoSuchModuleException& other) noexcept
{
    cBugException::swap(other);
    mAddress.swap(other.mAddress);
}

} // namespace ncs
