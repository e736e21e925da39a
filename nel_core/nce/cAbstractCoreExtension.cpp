#include "nel_core/nce/cAbstractCoreExtension.h"

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tVector.h"

namespace nce {

cAbstractCoreExtension::~cAbstractCoreExtension() = default;

void cAbstractCoreExtension::provides(nstd::tVector<nstd::cAsciiString>&) const { }

} // namespace nce
