#include "nel_core/nce/cGenericPlugIn.h"

namespace nce {

cGenericPlugIn::cGenericPlugIn(nsa::cReferenceFrame& frame, nstd::cAsciiString description)
    : cAbstractPlugIn(frame),
      mExtension(description, cAbstractCoreExtension::etEnDec)
{
}

cGenericPlugIn::~cGenericPlugIn() = default;

bool cGenericPlugIn::isCoreExtension() const
{
    return true;
}

cAbstractCoreExtension const& cGenericPlugIn::coreExtension() const
{
    return mExtension;
}

} // namespace nce
