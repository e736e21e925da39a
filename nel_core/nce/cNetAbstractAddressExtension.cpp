#include "nel_core/nce/cNetAbstractAddressExtension.h"

namespace nce {

cNetAbstractAddressExtension::~cNetAbstractAddressExtension() = default;

cAbstractCoreExtension::ExtensionType cNetAbstractAddressExtension::extensionType() const
{
    return etNetAddress;
}

} // namespace nce
