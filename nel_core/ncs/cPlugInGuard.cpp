#include "nel_core/ncs/cPlugInGuard.h"

#include <utility>

#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/pi/cAbstractClassLoader.h"

namespace ncs {

cPlugInGuard::cPlugInGuard(nstd::tAutoPtr<cAbstractPlugIn> plugIn) noexcept : mpPlugIn(plugIn.release()) { }

cPlugInGuard::~cPlugInGuard()
{
    if (!mpPlugIn)
        return;
    auto* const loader = mpPlugIn->classLoader();
    delete mpPlugIn;
    if (loader && loader->isUnused())
        delete loader;
}

nstd::tAutoPtr<cAbstractPlugIn> cPlugInGuard::release() noexcept
{
    return nstd::tAutoPtr<cAbstractPlugIn>(std::exchange(mpPlugIn, nullptr));
}

} // namespace ncs
