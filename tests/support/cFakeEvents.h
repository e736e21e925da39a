#pragma once

#include <functional>
#include <vector>

#include "nel_core/pi/cAbstractProcessEvents.h"

namespace ntest {

/// An event processor that never waits and keeps a record of what it was asked for.
class cFakeEvents : public npi::cAbstractProcessEvents {
public:
    /// What the queue handed to yield().
    struct cYield {
        unsigned int level;
        unsigned int timeout;
    };

    bool supportsAIO() const override { return hasAIO; }
    bool isAsynchronous() const override { return isLoop; }
    void yield(unsigned int level, nstd::tList<nstd::tSharedObject<npi::cWork>>&,
               unsigned int timeout) override
    {
        yields.push_back(cYield{level, timeout});
        if (onYield)
            onYield();
    }
    void wakeUp() override { ++wakeUps; }
    void poll() override { ++polls; }

    bool hasAIO = true;
    bool isLoop = false;
    std::vector<cYield> yields;
    unsigned int wakeUps = 0;
    unsigned int polls = 0;
    std::function<void()> onYield; ///< takes the place of waiting
};

} // namespace ntest
