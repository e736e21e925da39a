#pragma once

#include "nel_core/ncs/cComponentLocation.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace ncs {

/// A call of an interface of another process has failed. For those who transport such calls; the library
/// never raises it.
///
/// The stored form continues that of nstd::cRuntimeException with the location, the interface index, the
/// interface key, the operation (each `unsigned int`), and the name of the slot or signal.
class NEL_EXPORT cRMIException : public nstd::tExceptionLeaf<cRMIException, nstd::cRuntimeException> {
public:
    enum Operation : unsigned int {
        opCallSlot = 0,
        opConnectSignal = 1,
    };

    /// An empty exception to be loaded: this process, 0, opCallSlot, no name and no message.
    cRMIException();
    /// The interface is named by a key; the location is this process. An unknown operation leaves the message
    /// empty.
    cRMIException(unsigned int key, Operation operation, nstd::cAsciiString const& name);
    /// The interface is named by the component's location and its index there.
    cRMIException(cComponentLocation const& location, unsigned int index, Operation operation,
                  nstd::cAsciiString const& name);
    cRMIException(cRMIException const&) = default;
    cRMIException(cRMIException&&) = default;
    ~cRMIException() override;
    cRMIException& operator=(cRMIException other) noexcept;
    void swap(cRMIException& other) noexcept;

    cComponentLocation const& location() const { return mLocation; }
    unsigned int interfaceIndex() const { return miInterfaceIndex; }
    unsigned int interfaceKey() const { return miInterfaceKey; }
    Operation operation() const { return meOperation; }
    nstd::cAsciiString const& signalSlotName() const { return msSignalSlotName; }

    void store(nsa::cAbstractSerializer& serializer) const override;
    /// A failed load keeps everything but what the base has loaded.
    void load(nsa::cAbstractDeserializer& deserializer) override;

private:
    cComponentLocation mLocation;
    unsigned int miInterfaceIndex = 0;
    unsigned int miInterfaceKey = 0;
    Operation meOperation = opCallSlot;
    nstd::cAsciiString msSignalSlotName;
};

} // namespace ncs
