#pragma once

#include <chrono>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "nel_core/pi/cFDAIOData.h"
#include "nel_core/pi/cWorkQueue.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cLIMessage.h"
#include "tests/support/cFakeEvents.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace ntest {

/// Raises a runtime error.
[[noreturn]] inline void fail(char const* text)
{
    nucs::cLIMessage message;
    message << text;
    throw nstd::cRuntimeException(message, nullptr, 0);
}

/// The slots for all signals of a work; they run functions, which may delete this object, and keep a record.
class cWorkSlots : public nrmi::cConnectable {
public:
    /// Connects the slots of sigAction and sigActionError().
    void handle(npi::cWork& work)
    {
        work.sigAction.connect(nrmi::slot(this, &cWorkSlots::sltAction));
        work.sigActionError().connect(nrmi::slot(this, &cWorkSlots::sltError));
    }
    /// Connects the slots of sigChanged and sigDestroyed().
    void listen(npi::cWork& work)
    {
        work.sigChanged.connect(nrmi::slot(this, &cWorkSlots::sltChanged));
        work.sigDestroyed().connect(nrmi::slot(this, &cWorkSlots::sltDestroyed));
    }

    piVoid sltAction() { return run(onAction); }
    piVoid sltError(nstd::cAbstractException const& error, bool fromDescendant)
    {
        errors.push_back(messageOf(error) + (fromDescendant ? " (descendant)" : ""));
        return run(onError);
    }
    piVoid sltChanged(npi::cWork* work)
    {
        changes += work->isStarted() ? 's' : '-';
        return run(onChanged);
    }
    piVoid sltDestroyed(npi::cWork const&)
    {
        changes += 'd';
        return run(onDestroyed);
    }

    std::function<void()> onAction, onError, onChanged, onDestroyed;
    std::vector<std::string> errors; ///< what the action-error slot was told
    std::string changes;             ///< s: changed and started, -: changed and idle, d: destroyed

private:
    static piVoid run(std::function<void()> function)
    {
        if (function)
            function();
        return piVoid();
    }
};

/// A queue of its own with a processor that does not wait; handlers write into a log.
class cQueueFixture : public cSystemFixture {
public:
    void SetUp() override
    {
        cSystemFixture::SetUp();
        queue = std::make_unique<npi::cWorkQueue>();
        setEvents(new cFakeEvents);
    }
    void TearDown() override
    {
        queue.reset();
        slots.clear();
        cSystemFixture::TearDown();
    }

    /// Null takes the processor away.
    void setEvents(cFakeEvents* fake)
    {
        events = fake;
        queue->setEvents(nstd::tAutoPtr<npi::cAbstractProcessEvents>(fake));
    }
    cWorkSlots& on(npi::cWork& work, std::function<void()> function)
    {
        slots.emplace_back().onAction = std::move(function);
        work.sigAction.connect(nrmi::slot(&slots.back(), &cWorkSlots::sltAction));
        return slots.back();
    }
    void logs(npi::cWork& work, char name)
    {
        on(work, [this, name] { log += name; });
    }
    /// A work of the queue's own that is due at once and logs its name.
    nstd::tSharedObject<npi::cWork> due(char name)
    {
        auto const work = queue->createJob();
        logs(*work, name);
        work->start();
        return work;
    }
    static nstd::tAutoPtr<npi::cAbstractAIOData> descriptors()
    {
        return nstd::tAutoPtr<npi::cAbstractAIOData>(new npi::cFDAIOData);
    }
    unsigned int lastTimeout() const { return events->yields.empty() ? ~0u : events->yields.back().timeout; }

    cFakeEvents* events = nullptr; ///< the queue's
    std::unique_ptr<npi::cWorkQueue> queue;
    std::list<cWorkSlots> slots;
    std::string log;
};

/// An event processor without a queue; counts how often it has finished.
template<typename Events>
class tEventsFixture : public cSystemFixture {
public:
    tEventsFixture()
    {
        slots.onAction = [this] { ++finished; };
        events.sigFinished.connect(nrmi::slot(&slots, &cWorkSlots::sltAction));
    }
    /// The milliseconds that a wait takes.
    long long wait(unsigned int timeout)
    {
        auto const begin = std::chrono::steady_clock::now();
        events.yield(0, jobs, timeout);
        auto const time = std::chrono::steady_clock::now() - begin;
        return std::chrono::duration_cast<std::chrono::milliseconds>(time).count();
    }

    Events events;
    nstd::tList<nstd::tSharedObject<npi::cWork>> jobs;
    cWorkSlots slots;
    unsigned int finished = 0;
};

} // namespace ntest
