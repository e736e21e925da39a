#pragma once

#include "nel_core/ncs/cInterfaceDesc.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/rmi/localSignal.h"

namespace ncs {

/// What a component offers to others, or the place where it uses what another one offers.
///
/// A provided interface publishes slots and signals (see nrmi::cConnectable). A dependency hands it to the
/// local interface of the component that needs it, which connects to what it wants.
class NEL_EXPORT cAbstractInterface : public nrmi::cConnectable {
public:
    explicit cAbstractInterface(cInterfaceDesc const& desc);
    ~cAbstractInterface() override;

    /// A dependency has found a provider: `provided` is its interface. What is connected here ends when the
    /// provider dies.
    virtual void connectInterface(cAbstractInterface& provided) = 0;
    /// The binding, if there was one, is dissolved. The provider may be gone already: its interface must not
    /// be touched here.
    virtual void disconnectInterface() = 0;

    cInterfaceDesc const& desc() const noexcept { return mDesc; }
    /// Whether this is the other side of what `desc` describes: opposite types, equal names.
    bool matches(cInterfaceDesc const& desc) const noexcept;

    /// Writes the transfer form: the description, an unnamed context that holds the public slots, and one
    /// that holds the public signals, each in the order of registration.
    void store(nsa::cAbstractSerializer& serializer) const;
    /// Becomes a local substitute of the interface that is read: its own public slots and signals go, those
    /// that are read are made by the factory. When reading fails, what has been read so far stays.
    void load(nsa::cAbstractDeserializer& deserializer, nrmi::cAbstractRMIFactory& factory);

    /// For derived interfaces; never emitted here.
    nrmi::localSignal1<piVoid, cAbstractInterface const&> sigInterfaceEvent;

private:
    cInterfaceDesc mDesc;
};

} // namespace ncs
