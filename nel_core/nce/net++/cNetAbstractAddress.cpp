#include "nel_core/nce/net++/cNetAbstractAddress.h"

namespace nce {

cNetAbstractAddress::~cNetAbstractAddress() = default;

cNetAbstractIPAddress* cNetAbstractAddress::isIPAddress()
{
    return nullptr;
}

cNetAbstractIPAddress const* cNetAbstractAddress::isIPAddress() const
{
    return nullptr;
}

} // namespace nce
