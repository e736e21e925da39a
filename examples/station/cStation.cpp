#include "cStation.h"

#include <cstdio>

#include "componentGraph.h"
#include "nel_core/nce/cCoreExtensionMgr.h"
#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/cComponentLoader.h"
#include "nel_core/pi/cAbstractClassLoader.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/cWqDebug.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/cAsciiString.h"

namespace {

constexpr char kFirstSensor[] = "sensor-1";
constexpr char kSecondSensor[] = "sensor-2";
constexpr char kAlarm[] = "alarm";
constexpr unsigned int kValuesOfFirst = 8;
constexpr unsigned int kValuesOfSecond = 9;

void showLoaded(char const* module, ncs::cAbstractModule const& loaded, nstd::cAsciiString const& as)
{
    unsigned int major = 0;
    unsigned int minor = 0;
    loaded.classLoader()->getModuleVersion(major, minor);
    std::printf("loaded: %s %u.%u as %s\n", module, major, minor, as.c_str());
}

} // namespace

cStation::cStation(nucs::cString const& modules, nucs::cString const& file)
    : msModules(modules),
      mManager(npi::system().coreExtensions)
{
    char const* const codec = "station_latin1";
    auto const& plugIn = mManager.coreExtensions().load(pathOf(codec));
    showLoaded(codec, plugIn, plugIn.pluginTypeName());

    nstd::cAsciiString encoding("ISO-8859-1");
    nsa::cReferenceFrame forLogger;
    forLogger.addRef(encoding, false, true);
    load("station_logger", "logger", forLogger);

    loadSensor(kFirstSensor, file);
    loadSensor(kSecondSensor, "");

    nucs::cString place(U"Zürich");
    double limit = 30;
    nsa::cReferenceFrame forAlarm;
    forAlarm.addRef(place, false, true).addRef(limit, false, true);
    load("station_alarm", kAlarm, forAlarm);
}

cStation::~cStation() = default;

void cStation::run()
{
    awaitValues(kValuesOfFirst);
    std::puts("works:");
    std::fputs(npi::cWqDebug::dot(nullptr).c_str(), stdout);
    showComponents();

    std::printf("removing: %s\n", kFirstSensor);
    mManager.removeComponent(mManager.findComponent(kFirstSensor).address());
    awaitValues(kValuesOfFirst + kValuesOfSecond);
    showComponents();
}

void cStation::unload()
{
    mManager.removeAllComponentsNow();
    npi::system().workQueue.updateTimer(true,
                                        nullptr); // the manager's pass unloads what is not used any more
    mManager.coreExtensions().clear();
}

// The name under which the others find the component is its context.
ncs::cAbstractComponent& cStation::load(char const* module, char const* name, nsa::cReferenceFrame& frame)
{
    auto& component = ncs::cComponentLoader::load(mManager, pathOf(module), frame);
    component.info().setContext(name);
    nstd::cAsciiString as(name);
    as += ' ';
    as += component.address().toString();
    showLoaded(module, component, as);
    return component;
}

void cStation::loadSensor(char const* name, nucs::cString file)
{
    nsa::cReferenceFrame frame;
    frame.addRef(file, false, true);
    load("station_sensor", name, frame);
}

nucs::cString cStation::pathOf(char const* module) const
{
    return msModules + "/" + module;
}

void cStation::awaitValues(unsigned int count)
{
    while (checkedValues() < count)
        npi::cSystem::exec();
}

unsigned int cStation::checkedValues() const
{
    unsigned int count = 0;
    nsa::cReferenceFrame frame;
    frame.addRef(count, false, false);
    mManager.findComponent(kAlarm).invokeIndirectSlot("values", frame);
    return count;
}

void cStation::showComponents() const
{
    std::puts("components:");
    std::fputs(componentGraph(mManager).c_str(), stdout);
}
