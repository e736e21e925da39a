#pragma once

#include "interfaces/cSensorInterface.h"
#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/ncs/cInterfaceDep.h"
#include "nel_core/ucs/cString.h"

/// Lets the logger tell when the values of a sensor rise above a limit and when they are back. Whatever
/// sensor there is will do: when the one in use is removed, the dependency looks for another one.
///
/// Its frame holds the name of the place as nucs::cString and the limit as double. The component publishes
/// the slot "values", which returns how many values it has seen so far.
class cAlarm : public ncs::cAbstractComponent {
public:
    cAlarm(ncs::cModuleMgr& manager, nsa::cReferenceFrame& frame);
    ~cAlarm() override;

    void notifyComponentRegistered() override;

    piVoid sltMatched(ncs::cComponentAddr const& provider);
    piVoid sltUnmatched();
    piVoid sltValue(double value);
    unsigned int sltValues() const { return miValues; }

private:
    void report(nucs::cString const& text) const;

    nucs::cString msPlace;
    double mdLimit;
    unsigned int miValues = 0;
    bool mbAbove = false;
    cSensorInterface mInput; ///< before the dependency, which uses it to its end
    ncs::cInterfaceDep mSensor;
};
