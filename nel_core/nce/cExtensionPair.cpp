#include "nel_core/nce/cExtensionPair.h"

#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/cPlugInGuard.h"
#include "nel_core/std/piAssert.h"

namespace nce {

cExtensionPair::cExtensionPair(nstd::tAutoPtr<cAbstractCoreExtension> extension)
    : mpExtension(extension.get()),
      mpOwnedExtension(extension)
{
    NEL_ASSERT(mpExtension != 0);
}

cExtensionPair::cExtensionPair(nstd::tAutoPtr<ncs::cAbstractPlugIn> plugIn)
{
    NEL_ASSERT(plugIn.get() != 0);
    ncs::cPlugInGuard guard(plugIn);
    mpExtension = &guard->coreExtension();
    mpPlugIn = guard.release().release();
}

cExtensionPair::~cExtensionPair()
{
    ncs::cPlugInGuard const plugIn{nstd::tAutoPtr<ncs::cAbstractPlugIn>(mpPlugIn)};
}

} // namespace nce
