#include "nel_core/nce/cAbstractSAExtension.h"

namespace nce {

cAbstractSAExtension::~cAbstractSAExtension() = default;

cAbstractCoreExtension::ExtensionType cAbstractSAExtension::extensionType() const
{
    return etSerialization;
}

} // namespace nce
