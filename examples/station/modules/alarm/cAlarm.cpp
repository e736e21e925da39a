#include "cAlarm.h"

#include "interfaces/logLine.h"
#include "nel_core/ncs/moduleEntry.h"
#include "nel_core/rmi/publicSlotCall.h"

namespace {

nucs::cString degrees(double value)
{
    nucs::cString text;
    text.addDouble(value);
    return text + nucs::cString(U" °C");
}

} // namespace

cAlarm::cAlarm(ncs::cModuleMgr& manager, nsa::cReferenceFrame& frame)
    : cAbstractComponent(manager, frame),
      msPlace(frame.readNext<nucs::cString>()),
      mdLimit(frame.readNext<double>()),
      mInput(ncs::cInterfaceDesc::itRequired),
      mSensor(*this, mInput.desc(), &mInput, ncs::cInterfaceDep::saUseFirstBest)
{
    info().setName("alarm");
    nrmi::publishSlot(this, "values", &cAlarm::sltValues, "the number of values that were checked");
    mInput.sigValue.connect(nrmi::slot(this, &cAlarm::sltValue));
    mSensor.sigMatched.connect(nrmi::slot(this, &cAlarm::sltMatched));
    mSensor.sigUnmatched.connect(nrmi::slot(this, &cAlarm::sltUnmatched));
}

cAlarm::~cAlarm() = default;

void cAlarm::notifyComponentRegistered()
{
    addLocalRequiredComponent(&moduleMgr().findComponent(kLogger));
}

piVoid cAlarm::sltMatched(ncs::cComponentAddr const& provider)
{
    nucs::cString text("listening to ");
    text += nucs::cString(moduleMgr().findComponent(provider).info().context(), '?');
    report(text);
    return piVoid();
}

piVoid cAlarm::sltUnmatched()
{
    report("the sensor is gone");
    return piVoid();
}

piVoid cAlarm::sltValue(double value)
{
    ++miValues;
    bool const wasAbove = mbAbove;
    mbAbove = value > mdLimit;
    if (mbAbove && !wasAbove)
        report(degrees(value) + ", above " + degrees(mdLimit));
    else if (wasAbove && !mbAbove)
        report(degrees(value) + ", back to normal");
    return piVoid();
}

void cAlarm::report(nucs::cString const& text) const
{
    logLine(moduleMgr(), msPlace + ": " + text);
}

NEL_MODULE_COMPONENT(cAlarm)
NEL_MODULE_VERSION(1, 0)
