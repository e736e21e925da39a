#include "nel_core/ncs/cPlugInMgr.h"

#include <utility>

#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/pi/moduleLoader.h"
#include "nel_core/sa/cReferenceFrame.h"

namespace ncs {

cPlugInMgr::cPlugInMgr()
{
    mPlugIns.setGuardMode(nstd::tPtrList<cPlugInGuard>::gmOwn);
}

cPlugInMgr::~cPlugInMgr()
{
    unloadAll();
}

nstd::tAutoPtr<cPlugInGuard> cPlugInMgr::loadPlugIn(nucs::cString const& name, nsa::cReferenceFrame& frame)
{
    // In this order, so that a failure takes the plug-in away before the code of it.
    auto loader = npi::loadModule(name);
    auto plugIn = loader->instance(frame);
    plugIn->setClassLoader(loader.get(), nstd::cAsciiString());
    nstd::tAutoPtr<cPlugInGuard> guard(new cPlugInGuard(std::move(plugIn)));
    static_cast<void>(loader.release()); // the guard's from now on
    return guard;
}

nstd::tAutoPtr<cPlugInGuard> cPlugInMgr::loadPlugIn(nucs::cString const& name)
{
    nsa::cReferenceFrame frame;
    return loadPlugIn(name, frame);
}

void cPlugInMgr::registerPlugIn(nstd::tAutoPtr<cPlugInGuard> guard)
{
    if (guard)
        mPlugIns.guardedInsert(mPlugIns.end(), guard);
}

// The destructor of a plug-in may change the list: the guards leave it before the first one is deleted.
void cPlugInMgr::unloadPlugIn(cAbstractPlugIn* plugIn) noexcept
{
    for (auto it = mPlugIns.begin(); it != mPlugIns.end(); ++it) {
        if ((*it)->plugIn() == plugIn)
            it.eraseLater();
    }
    mPlugIns.purge();
}

void cPlugInMgr::unloadAll() noexcept
{
    while (!mPlugIns.empty()) // a destructor may register others
        mPlugIns.clear();
}

} // namespace ncs
