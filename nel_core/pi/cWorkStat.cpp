#include "nel_core/pi/cWorkStat.h"

#include "nel_core/pi/piStackTrace.h"

namespace npi {
namespace {

constexpr unsigned int kTraceDepth = 128;

} // namespace

cWorkStat::cDebugInfo::cDebugInfo() : msCreationTrace(piStackTrace(kTraceDepth)) { }

cWorkStat::cDebugInfo::~cDebugInfo() = default;

cWorkStat::cWorkStat() = default;

cWorkStat::~cWorkStat() = default;

void cWorkStat::notifyStart()
{
    if (mpDebugInfo) {
        mpDebugInfo->msStartTrace = piStackTrace(kTraceDepth);
        mpDebugInfo->mLastStart = nstd::cTime();
    }
    ++miNumStarted;
}

void cWorkStat::notifyTrigger()
{
    if (mpDebugInfo)
        mpDebugInfo->mLastTriggered = nstd::cTime();
    ++miNumTriggered;
}

void cWorkStat::setDebug(bool enable)
{
    if (!enable)
        mpDebugInfo.reset(nullptr, nstd::tAutoPtrType::ptObject);
    else if (!mpDebugInfo)
        mpDebugInfo.reset(new cDebugInfo, nstd::tAutoPtrType::ptObject);
}

} // namespace npi
