#pragma once

#include "nel_core/export.h"
#include "nel_core/rmi/fwd.h"
#include "nel_core/std/fwd.h"

namespace nrmi {

/// Supplies the local substitutes of the slots and signals of an interface that has been received. Who
/// transports interfaces and calls derives from it.
class NEL_EXPORT cAbstractRMIFactory {
public:
    cAbstractRMIFactory() = default;
    cAbstractRMIFactory(cAbstractRMIFactory const&) = delete;
    cAbstractRMIFactory& operator=(cAbstractRMIFactory const&) = delete;
    virtual ~cAbstractRMIFactory();

    /// A slot call of `object` that forwards calls to the remote side; never empty.
    [[nodiscard]] virtual nstd::tAutoPtr<cAbstractSlotCall> createRemoteSlotCall(cConnectable& object) = 0;
    /// The signal that stands for the remote one of the connectable with that index. It stays the factory's.
    virtual cAbstractSignal& createRemoteSignal(unsigned int index) = 0;
};

} // namespace nrmi
