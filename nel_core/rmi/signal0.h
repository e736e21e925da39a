#pragma once

#include <type_traits>

#include "nel_core/rmi/cPublicSignal.h"
#include "nel_core/rmi/indirectSlotCall.h"
#include "nel_core/rmi/localSignal.h"

namespace nrmi {

/// A signal without arguments that can also be connected to public slots by their names.
///
///     nrmi::signal0<piVoid> sigDone;
///     sigDone.connect(receiver, "refresh", nrmi::cAbstractSignal::srLazy);
template<typename R>
class signal0 : public localSignal0<R> {
public:
    using localSignal0<R>::connect;

    /// Connects the public slot of `target` with that name, behind all others. With srResolve it is looked up
    /// now: raises nrmi::cNoSuchSlotException when there is none. With srLazy every emission looks it up, and
    /// raises when there is none.
    void connect(cConnectable& target, nstd::cAsciiString const& slotName,
                 cAbstractSignal::SlotResolving resolving) override
    {
        if (resolving != cAbstractSignal::srResolve) {
            connect(cIndirectLazySlotCall0<R>(target, slotName));
            return;
        }
        auto const* const slot = target.tryFindSlot(slotName);
        if (!slot)
            cRMIExceptions::throwNoSuchSlot(slotName, "(?)");
        connect(cIndirectResolvingSlotCall0<R>(target, slot));
    }
    void addParameterInfo(cPublicSignal& publicSignal) override
    {
        publicSignal.returnValue().set(returnTypeString(), false, std::is_same_v<tPlain<R>, piVoid>);
    }
    /// Empty: there are none.
    nstd::cAsciiString parametersTypeString() const override { return nstd::cAsciiString(); }
    /// The name of the type as nsa::tTypeName gives it.
    nstd::cAsciiString returnTypeString() const override { return typeNames<R>(); }
};

} // namespace nrmi
