#include "nel_core/ncs/cMatchedDependency.h"

#include "nel_core/ncs/cUnmatchedInterfaceException.h"

namespace ncs {

void cMatchedDependency::set(cComponentLocation const& location)
{
    mLocation = location;
    mbValid = true;
}

cComponentLocation const& cMatchedDependency::location() const
{
    if (!mbValid)
        throw cUnmatchedInterfaceException();
    return mLocation;
}

} // namespace ncs
