#include "nel_core/pi/cSystem.h"

#include <cstdlib>

#include "nel_core/pi/cPlatform.h"
#include "nel_core/pi/cSystemImpl.h"
#include "nel_core/pi/cSystemState.h"
#include "nel_core/pi/platform/dependend/native_linux/cLinuxStdErr.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/ucs/cLIMessage.h"

namespace npi {
namespace {

// Plain pointers, so that the end of the process leaves the system alone.
cSystemImpl* gpImpl = nullptr;
cSystem* gpFacade = nullptr;
SystemState geState = SystemState::none;
unsigned int giExecDepth = 0; ///< calls of cSystem::exec() on the stack

struct cExecScope {
    cExecScope() { ++giExecDepth; }
    ~cExecScope() { --giExecDepth; }
};

[[noreturn]] void abortRecursion()
{
    static char const kText[] = "npi::system(): called while the system is being built\n";
    cLinuxStdErr::write(kText, sizeof(kText) - 1);
    std::abort();
}

// Takes down whatever there is; the state is set by the caller.
void destroy()
{
    delete gpImpl;
    gpImpl = nullptr;
    delete gpFacade; // last: handlers that the implementation has called may have used it
    gpFacade = nullptr;
}

// The state while the system is being built; falls back to none, with nothing left behind, unless finished.
class cBuilding {
public:
    cBuilding() { geState = SystemState::building; }
    ~cBuilding()
    {
        if (geState == SystemState::alive)
            return;
        destroy();
        geState = SystemState::none;
    }
    void finish()
    {
        geState = SystemState::alive;
        setSystemDebugOutput(&gpImpl->debug);
    }
};

} // namespace

SystemState systemState() noexcept
{
    return geState;
}

nucs::cLILocale* systemLocale() noexcept
{
    return systemDebugOutput() ? &gpImpl->locale : nullptr;
}

cSystem& system()
{
    if (gpFacade)
        return *gpFacade;
    if (geState == SystemState::building)
        abortRecursion();

    cBuilding building;
    gpImpl = new cSystemImpl;
    cPlatform::buildChecks();
    gpFacade = new cSystem(*gpImpl);
    building.finish();
    return *gpFacade;
}

cSystem::cDefaults::cDefaults(nstd::cNumberConversionFormat& format, nucs::cAbstractEnDec& codec)
    : numberFormat(format),
      enDec(codec)
{
}

cSystem::cSystem(cSystemImpl& impl)
    : defaults(impl.numberFormat, impl.enDec),
      fs(impl.fs),
      coreExtensions(impl.coreExtensions),
      locale(impl.locale),
      workQueue(impl.workQueue),
      debug(impl.debug),
      caches(impl.caches)
{
}

void cSystem::exec()
{
    if (geState == SystemState::teardown)
        cSTDExceptions::throwUnsupportedOperation("cSystem::exec()");
    auto& queue = system().workQueue;
    cExecScope const scope;
    queue.process();
}

cAbstractNELApp* cSystem::app()
{
    if (!gpImpl || !gpImpl->app) {
        nucs::cLIMessage message;
        message << "$MTR$No application object set!";
        throw nstd::cBugException(message);
    }
    return gpImpl->app;
}

void cSystem::setApp(cAbstractNELApp* app)
{
    if (gpImpl)
        gpImpl->app = app;
}

void cSystem::cleanup()
{
    if (geState != SystemState::alive)
        return;
    if (giExecDepth > 0 || gpImpl->workQueue.level() > 0 || gpImpl->coreExtensions.isBusy())
        cSTDExceptions::throwUnsupportedOperation("cSystem::cleanup()");
    geState = SystemState::teardown;
    gpImpl->coreExtensions.close(); // first: what extensions take down needs everything else
    gpImpl->caches.clear();
    destroy();
    geState = SystemState::none;
}

} // namespace npi
