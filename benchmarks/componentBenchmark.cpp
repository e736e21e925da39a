// What a module costs from its loading to its unloading beside the calls of the dynamic linker alone, and
// what the module manager costs: a life of a thousand components that need each other, and a pass in which
// nothing happens.

#include <dlfcn.h>
#include <memory>
#include <vector>

#include <benchmark/benchmark.h>

#include "nel_core/nce/cCoreExtensionMgr.h"
#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/cInterfaceDep.h"
#include "nel_core/ncs/cModuleMgr.h"
#include "nel_core/ncs/cPlugInMgr.h"
#include "nel_core/pi/cAbstractProcessEvents.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/platform/dependend/native_linux/cLinuxClassLoader.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/cAsciiStringStream.h"

namespace {

constexpr unsigned int kComponents = 1000;

// The floor: what any loader of the module must do.
void dlopenAlone(benchmark::State& state)
{
    for (auto _ : state) {
        void* const handle = ::dlopen(NEL_MODULE_DIR "/libbenchPlugIn.so", RTLD_NOW);
        if (!handle) {
            state.SkipWithError("the module is missing");
            break;
        }
        auto const init = reinterpret_cast<npi::tModuleInitPlugIn>(::dlsym(handle, "moduleInitPlugIn"));
        benchmark::DoNotOptimize(::dlsym(handle, "moduleInitComponent"));
        benchmark::DoNotOptimize(::dlsym(handle, "moduleVersion"));
        benchmark::DoNotOptimize(::dlsym(handle, "nelVersion"));
        nsa::cReferenceFrame frame;
        ncs::cAbstractPlugIn* plugIn = nullptr;
        init(plugIn, frame);
        delete plugIn;
        ::dlclose(handle);
    }
}
BENCHMARK(dlopenAlone);

void loadAndUnload(benchmark::State& state)
{
    ncs::cPlugInMgr manager;
    nucs::cString const name(NEL_MODULE_DIR "/benchPlugIn");
    for (auto _ : state)
        benchmark::DoNotOptimize(manager.loadPlugIn(name)->plugIn());
    if (::dlopen(NEL_MODULE_DIR "/libbenchPlugIn.so", RTLD_NOW | RTLD_NOLOAD))
        state.SkipWithError("the module is still loaded");
}
BENCHMARK(loadAndUnload);

class cPlace : public ncs::cAbstractInterface {
public:
    using ncs::cAbstractInterface::cAbstractInterface;
    void connectInterface(ncs::cAbstractInterface&) override { }
    void disconnectInterface() override { }
};

nstd::cAsciiString nameOf(unsigned int number)
{
    nstd::cAsciiString name;
    name << "service " << number;
    return name;
}

// Offers an interface of its own and may need that of another one.
class cPart : public ncs::cAbstractComponent {
public:
    cPart(ncs::cModuleMgr& manager, unsigned int number)
        : cAbstractComponent(manager),
          mPlace(ncs::cInterfaceDesc(ncs::cInterfaceDesc::itProvided, nameOf(number), "", 1, ""))
    {
        addInterface(mPlace);
    }

    void need(unsigned int number)
    {
        mpNeed.reset(new ncs::cInterfaceDep(
            *this, ncs::cInterfaceDesc(ncs::cInterfaceDesc::itRequired, nameOf(number), "", 1, ""), nullptr,
            ncs::cInterfaceDep::saUseFirstBest));
    }
    bool isBound() const { return mpNeed && mpNeed->matched(); }

private:
    cPlace mPlace;
    std::unique_ptr<ncs::cInterfaceDep> mpNeed;
};

// Ends each turn of the queue at once.
class cNoWait : public npi::cAbstractProcessEvents {
public:
    bool supportsAIO() const override { return true; }
    bool isAsynchronous() const override { return false; }
    void yield(unsigned int, nstd::tList<nstd::tSharedObject<npi::cWork>>&, unsigned int) override { }
    void wakeUp() override { }
};

void stopWaiting()
{
    npi::system().workQueue.setEvents(nstd::tAutoPtr<npi::cAbstractProcessEvents>(new cNoWait));
}

using cParts = std::vector<cPart*>;

cParts registered(ncs::cModuleMgr& manager, void (*link)(cParts const&))
{
    cParts parts;
    for (unsigned int i = 0; i < kComponents; ++i) {
        parts.push_back(new cPart(manager, i));
        manager.addComponent(nstd::tAutoPtr<ncs::cAbstractComponent>(parts.back()));
    }
    link(parts);
    return parts;
}

void chain(cParts const& parts)
{
    for (unsigned int i = 1; i < kComponents; ++i)
        parts[i]->addLocalRequiredComponent(parts[i - 1]);
}

void bind(cParts const& parts)
{
    for (unsigned int i = 0; i < kComponents; ++i)
        parts[i]->need((i + 1) % kComponents);
}

// Each component depends on one other: registration, announcement, and the removal of all, beginning with the
// one that all others need in the end.
void life(benchmark::State& state, void (*link)(cParts const&), bool isBound)
{
    stopWaiting();
    for (auto _ : state) {
        ncs::cModuleMgr manager(npi::system().coreExtensions);
        auto const parts = registered(manager, link);
        for (unsigned int turn = 0; turn < 3; ++turn)
            npi::cSystem::exec();
        if (!parts.back()->announced() || parts.back()->isBound() != isBound)
            state.SkipWithError("a component was not announced or bound");
        manager.removeComponent(parts.front()->address());
        if (isBound)
            for (auto* const part : parts)
                part->removeLater();
        for (unsigned int turn = 0; turn < 2 * kComponents && !manager.components().empty(); ++turn)
            npi::cSystem::exec();
        if (!manager.components().empty())
            state.SkipWithError("a component was not removed");
    }
}

void lifeOfAChain(benchmark::State& state)
{
    life(state, chain, false);
}
BENCHMARK(lifeOfAChain)->Unit(benchmark::kMillisecond);

void lifeOfBoundInterfaces(benchmark::State& state)
{
    life(state, bind, true);
}
BENCHMARK(lifeOfBoundInterfaces)->Unit(benchmark::kMillisecond);

void quietPass(benchmark::State& state)
{
    stopWaiting();
    ncs::cModuleMgr manager(npi::system().coreExtensions);
    registered(manager, chain);
    for (unsigned int turn = 0; turn < 3; ++turn)
        npi::cSystem::exec();
    for (auto _ : state) {
        manager.handleComponentIterationLater();
        npi::cSystem::exec();
    }
}
BENCHMARK(quietPass)->Unit(benchmark::kMicrosecond);

} // namespace
