#include "nel_core/nce/cAbstractEnDecExtension.h"

namespace nce {

cAbstractEnDecExtension::~cAbstractEnDecExtension() = default;

cAbstractCoreExtension::ExtensionType cAbstractEnDecExtension::extensionType() const
{
    return etEnDec;
}

} // namespace nce
