#include "cSensor.h"

#include "interfaces/logLine.h"
#include "nel_core/ncs/moduleEntry.h"
#include "nel_core/pi/cWorkQueue.h"
#include "readValues.h"

namespace {

constexpr unsigned int kInterval = 20; // milliseconds

} // namespace

cSensor::cSensor(ncs::cModuleMgr& manager, nsa::cReferenceFrame& frame)
    : cAbstractComponent(manager, frame),
      msFile(frame.readNext<nucs::cString>()),
      mInterface(ncs::cInterfaceDesc::itProvided)
{
    info().setName("sensor");
    if (!msFile.empty())
        readValues(msFile); // a sensor that cannot measure must not come to life
    mWork.sigAction.connect(nrmi::slot(this, &cSensor::sltMeasure));
    addInterface(mInterface);
}

cSensor::~cSensor()
{
    npi::unschedule(mWork);
    removeInterface(mInterface);
}

void cSensor::notifyComponentRegistered()
{
    addLocalRequiredComponent(&moduleMgr().findComponent(kLogger));
    mWork.setName(info().context());
    mWork.start(kInterval, npi::cWork::Periodic);
    npi::schedule(mWork);
}

piVoid cSensor::sltMeasure()
{
    return mInterface.sigValue.isConnected() ? mInterface.sigValue(measure()) : piVoid();
}

double cSensor::measure()
{
    unsigned int const number = miMeasured++;
    if (msFile.empty())
        return 20.0 + 2.0 * (number % 8);
    auto const values = readValues(msFile);
    return values[number % values.length()];
}

NEL_MODULE_COMPONENT(cSensor)
NEL_MODULE_VERSION(1, 0)
