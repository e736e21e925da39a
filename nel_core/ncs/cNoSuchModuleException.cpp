#include "nel_core/ncs/cNoSuchModuleException.h"

#include "nel_core/std/raise.h"

namespace ncs {

cNoSuchModuleException::cNoSuchModuleException(nstd::cAsciiString const& address)
    : tExceptionLeaf(nstd::makeMessage("$MTR$Module (%addr%) not found!", address))
{
}

cNoSuchModuleException::~cNoSuchModuleException() = default;

cNoSuchModuleException& cNoSuchModuleException::operator=(cNoSuchModuleException other) noexcept
{
    swap(other);
    return *this;
}

} // namespace ncs
