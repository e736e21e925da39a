#include "nel_core/pi/cSystemImpl.h"

#include "nel_core/pi/cAbstractProcessEvents.h"
#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/cPlatform.h"
#include "nel_core/pi/cSystemState.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/piAssert.h"

namespace npi {
namespace {

cDebugStdErr* gpDebugOutput = nullptr;

} // namespace

cDebugStdErr* systemDebugOutput() noexcept
{
    return gpDebugOutput;
}

void setSystemDebugOutput(cDebugStdErr* out) noexcept
{
    gpDebugOutput = out;
}

cSystemImpl::cSystemImpl() : numberFormat(10), fs(enDec)
{
    workQueue.setEvents(cPlatform::createProcessEvents());
}

cSystemImpl::~cSystemImpl()
{
    emptyWorkQueue();
    setSystemDebugOutput(nullptr);
}

void cSystemImpl::emptyWorkQueue() noexcept
try {
    try {
        workQueue.clear();
        workQueue.setEvents(nstd::tAutoPtr<cAbstractProcessEvents>());
    } catch (nstd::cAbstractException const& error) {
        error.dump();
    }
} catch (...) {
    cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "An exception has escaped while the work queue was emptied!";
}

} // namespace npi
