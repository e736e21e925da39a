#pragma once

#include "nel_core/ncs/cAbstractInterface.h"
#include "nel_core/rmi/localSignal.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cRuntimeException.h"

/// One end of the line from a sensor to a component that uses it: what the sensor emits at its end comes out
/// at the other one.
///
/// Each module compiles a class of its own out of this header, so the ends know each other only by the name
/// of the interface, and the name and type of its public signal.
class cSensorInterface : public ncs::cAbstractInterface {
public:
    typedef nrmi::localSignal1<piVoid, double> tValueSignal;

    /// The sensor's end is provided, the other one required.
    explicit cSensorInterface(ncs::cInterfaceDesc::InterfaceType type) : cAbstractInterface(describe(type))
    {
        sigValue.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
        sigValue.exportSignal(*this, "value", nrmi::cAbstractSignal::itDefault, "a value that was measured");
    }

    void connectInterface(ncs::cAbstractInterface& provided) override
    {
        auto* const signal = dynamic_cast<tValueSignal*>(&provided.findSignal("value"));
        if (!signal) {
            nucs::cLIMessage message;
            message << "$MTR$The values of interface \"%interface%\" are no numbers!"
                    << provided.desc().name();
            throw nstd::cRuntimeException(message);
        }
        signal->connect(nrmi::slot(this, &cSensorInterface::sltValue));
    }
    /// The provider is on its way out, but this end knows itself what it is connected to.
    void disconnectInterface() override { detachAllSignals(); }

    piVoid sltValue(double value) { return sigValue(value); }

    tValueSignal sigValue;

private:
    static ncs::cInterfaceDesc describe(ncs::cInterfaceDesc::InterfaceType type)
    {
        return ncs::cInterfaceDesc(type, "station.sensor", "station", 1, "values of a sensor");
    }
};
