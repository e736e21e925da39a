#include "nel_core/nce/net++/cNetAbstractIPAddress.h"

namespace nce {

cNetAbstractIPAddress::~cNetAbstractIPAddress() = default;

cNetAbstractIPAddress* cNetAbstractIPAddress::isIPAddress()
{
    return this;
}

cNetAbstractIPAddress const* cNetAbstractIPAddress::isIPAddress() const
{
    return this;
}

} // namespace nce
