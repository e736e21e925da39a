#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "nel_core/ncs/cModuleMgr.h"
#include "nel_core/pi/cSystem.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cFakeEvents.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/cTestComponents.h"
#include "tests/support/raisedBy.h"

namespace ntest {

/// Slots for the signals of a manager, which log "aName" for an added, "rName" for a registered and "-Name"
/// for a removed component, "d" and "i" for modified dependencies, and then call a function.
class cManagerListener : public nrmi::cConnectable {
public:
    using tComponent = ncs::cAbstractComponent;

    cManagerListener(ncs::cModuleMgr& manager, std::string& log) : mLog(log)
    {
        manager.sigComponentAdded.connect(nrmi::slot(this, &cManagerListener::sltAdded));
        manager.sigComponentRegistered.connect(nrmi::slot(this, &cManagerListener::sltRegistered));
        manager.sigComponentRemoved.connect(nrmi::slot(this, &cManagerListener::sltRemoved));
        manager.sigComponentDepModified.connect(nrmi::slot(this, &cManagerListener::sltDepModified));
        manager.sigInterfaceDepModified.connect(nrmi::slot(this, &cManagerListener::sltInterfaceDep));
    }
    piVoid sltAdded(tComponent& component) { return tell("a", &component, onAdded); }
    piVoid sltRegistered(tComponent& component) { return tell("r", &component, onRegistered); }
    piVoid sltRemoved(tComponent& component) { return tell("-", &component, onRemoved); }
    piVoid sltDepModified() { return tell("d", nullptr, onModified); }
    piVoid sltInterfaceDep(ncs::cComponentLocation const&) { return tell("i", nullptr, onModified); }

    std::function<void(tComponent*)> onAdded, onRegistered, onRemoved, onModified;

private:
    piVoid tell(char const* event, tComponent* component, std::function<void(tComponent*)> const& function)
    {
        mLog += event + (component ? text(component->moduleInfo().context()) : "") + " ";
        if (function)
            function(component);
        return piVoid();
    }

    std::string& mLog;
};

/// A manager whose queue never waits; what happens is logged.
class cManagerFixture : public cSystemFixture {
public:
    void SetUp() override
    {
        cSystemFixture::SetUp();
        debug = std::make_unique<cDebugRecorder>();
        events = new cFakeEvents;
        npi::system().workQueue.setEvents(nstd::tAutoPtr<npi::cAbstractProcessEvents>(events));
        manager = std::make_unique<ncs::cModuleMgr>(npi::system().coreExtensions);
        listener = std::make_unique<cManagerListener>(*manager, log);
    }
    void TearDown() override
    {
        manager.reset();
        debug.reset();
        cSystemFixture::TearDown();
    }

    /// A component that the manager owns.
    cTestComponent& add(char const* name, ncs::cAbstractComponent* used = nullptr)
    {
        auto* const component = new cTestComponent(*manager, name, &log);
        manager->addComponent(nstd::tAutoPtr<ncs::cAbstractComponent>(component));
        component->addLocalRequiredComponent(used);
        return *component;
    }
    static void turn(unsigned int count = 1)
    {
        while (count-- > 0)
            npi::cSystem::exec();
    }
    /// What was logged since the last time.
    std::string news() { return std::exchange(log, std::string()); }
    unsigned int count() const { return manager->components().size(); }
    /// The work of that name in the queue.
    static npi::cWork& work(char const* name)
    {
        for (auto const& job : npi::system().workQueue.jobs()) {
            if (job && job->name() == name)
                return *job;
        }
        throw name;
    }
    static bool isPassWanted() { return work("ComponentManagement").isStarted(); }

    cFakeEvents* events = nullptr; ///< the queue's
    std::unique_ptr<cDebugRecorder> debug;
    std::string log;
    std::unique_ptr<ncs::cModuleMgr> manager;
    std::unique_ptr<cManagerListener> listener;
};

} // namespace ntest
