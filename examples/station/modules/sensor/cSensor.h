#pragma once

#include "interfaces/cSensorInterface.h"
#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/ucs/cString.h"

/// Measures every 20 milliseconds while somebody listens, and emits the value at its interface.
///
/// Its frame holds the name of a file as nucs::cString. The values are the numbers at the beginnings of its
/// lines, over and over again, as they are in the file at that moment. Without a name the values are made up.
class cSensor : public ncs::cAbstractComponent {
public:
    /// Raises what readValues() raises.
    cSensor(ncs::cModuleMgr& manager, nsa::cReferenceFrame& frame);
    ~cSensor() override;

    void notifyComponentRegistered() override;
    piVoid sltMeasure();

private:
    double measure();

    nucs::cString msFile;
    unsigned int miMeasured = 0;
    cSensorInterface mInterface;
    npi::cWork mWork;
};
