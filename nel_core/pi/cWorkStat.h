#pragma once

#include "nel_core/export.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cTime.h"
#include "nel_core/std/tAutoPtr.h"

namespace npi {

/// How often a work was started and triggered and, when debugging is enabled, when and from where.
class NEL_EXPORT cWorkStat {
public:
    /// What is recorded once debugging is enabled. The traces have at most 128 frames; making one is slow.
    class NEL_EXPORT cDebugInfo {
    public:
        /// Takes the creation trace; both times are now.
        cDebugInfo();
        ~cDebugInfo();

        nstd::cAsciiString const& creationTrace() const { return msCreationTrace; }
        /// Empty until the next start.
        nstd::cAsciiString const& startTrace() const { return msStartTrace; }
        nstd::cTime const& lastStart() const { return mLastStart; }
        nstd::cTime const& lastTriggered() const { return mLastTriggered; }

    private:
        friend class cWorkStat;

        nstd::cAsciiString msCreationTrace;
        nstd::cAsciiString msStartTrace;
        nstd::cTime mLastStart;
        nstd::cTime mLastTriggered;
    };

    cWorkStat();
    cWorkStat(cWorkStat const&) = delete;
    cWorkStat& operator=(cWorkStat const&) = delete;
    ~cWorkStat();

    /// Counts a start.
    void notifyStart();
    /// Counts a trigger.
    void notifyTrigger();
    /// Makes the debug information if it is missing, or deletes it.
    void setDebug(bool enable);

    unsigned int numStarted() const { return miNumStarted; }
    unsigned int numTriggered() const { return miNumTriggered; }
    /// The debug information, null unless enabled; owned by the statistic.
    cDebugInfo const* hasDebugInfo() const { return mpDebugInfo.get(); }

private:
    unsigned int miNumStarted = 0;
    unsigned int miNumTriggered = 0;
    nstd::tAutoPtr<cDebugInfo> mpDebugInfo;
};

} // namespace npi
