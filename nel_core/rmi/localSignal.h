#pragma once

#include "nel_core/rmi/cAbstractLocalSignal.h"
#include "nel_core/rmi/slotCall.h"

namespace nrmi {

/// Signals with arguments can be emitted through a virtual call as well, and they tell their types.
template<typename R, typename... A>
class tInvokableSignal : public cAbstractLocalSignal {
public:
    /// The names of the types as nsa::tTypeName gives them, without references and constness.
    nstd::cAsciiString parametersTypeString() const override { return typeNames<A...>(); }
    nstd::cAsciiString returnTypeString() const override { return typeNames<R>(); }
    /// Emits; returns a default `R`.
    virtual R invoke(A... args) = 0;
};

template<typename R>
class tInvokableSignal<R> : public cAbstractLocalSignal {
};

/// A signal that calls the connected slots one after the other on the calling thread; localSignal0 to
/// localSignal3 are its names.
///
///     nrmi::localSignal1<piVoid, int> sigChanged;
///     sigChanged.connect(nrmi::slot(this, &cReceiver::sltChanged));
///     sigChanged(3);
template<typename R, typename... A>
class tLocalSignal : public tInvokableSignal<R, A...> {
public:
    using cAbstractLocalSignal::connect;

    /// Connects a copy of `call`, which stays the caller's. The same object may be connected several times,
    /// and each connection is called.
    void connect(tAbstractSlotCall<R, A...> const& call,
                 cAbstractSignal::ConnectionPolicy policy = cAbstractSignal::cpAppend)
    {
        this->place(*call.createConnectedInstance(*this), policy);
    }

    /// Emits: calls the slots in order, discards their results and returns a default `R`. An exception of a
    /// slot ends the emission. Without any slot it raises nrmi::cUnconnectedSignalException, unless the
    /// invocation behaviour says otherwise.
    R operator()(A... args)
    {
        if (!this->isConnected()) {
            this->checkUnconnected();
            return R();
        }
        cAbstractLocalSignal::cEmission emission(*this);
        while (auto* const call = emission.takeNext())
            static_cast<tAbstractSlotCall<R, A...>*>(call)->call(args...);
        return R();
    }

    /// Emits.
    R invoke(A... args) { return (*this)(args...); }
};

} // namespace nrmi
