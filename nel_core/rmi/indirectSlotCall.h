#pragma once

#include "nel_core/rmi/slotCall.h"
#include "nel_core/sa/cReferenceFrame.h"

namespace nrmi {

/// What slot calls by name have alike: they call through a frame and cannot be called by one themselves.
template<typename R>
class tIndirectSlotCall : public cAbstractSlotCall0<R> {
public:
    using cAbstractSlotCall0<R>::call;

    /// Calls the public slot and returns its result; raises what the look-up and the slot raise.
    R call() const override
    {
        // Nothing of this call is used once the slot runs, which may have deleted it.
        R result = R();
        nsa::cReferenceFrame frame;
        frame.addRef(result, true, false);
        invoke(frame);
        return result;
    }
    /// Refuses to be called by name: raises always.
    void callRef(nsa::cReferenceFrame&) const override { cRMIExceptions::throwIndirectCallSlotCallRef(); }

protected:
    using cAbstractSlotCall0<R>::cAbstractSlotCall0;

private:
    virtual void invoke(nsa::cReferenceFrame& frame) const = 0;
};

/// Calls a public slot of an object by its name, which is looked up on every call: the slot may be registered
/// later, and another one later still.
template<typename R>
class cIndirectLazySlotCall0 : public tIndirectSlotCall<R> {
public:
    /// A template for connecting. Keeps a copy of the name.
    cIndirectLazySlotCall0(cConnectable& target, nstd::cAsciiString const& slotName)
        : cIndirectLazySlotCall0(target, slotName, nullptr)
    {
    }

    [[nodiscard]] cAbstractSlotCall0<R>* createConnectedInstance(cAbstractSignal& signal) const override
    {
        return new cIndirectLazySlotCall0(this->assignedObject(), msSlotName, &signal);
    }

private:
    cIndirectLazySlotCall0(cConnectable& target, nstd::cAsciiString const& slotName, cAbstractSignal* signal)
        : tIndirectSlotCall<R>(target, signal),
          msSlotName(slotName)
    {
    }

    void invoke(nsa::cReferenceFrame& frame) const override
    {
        this->assignedObject().invokeIndirectSlot(msSlotName, frame);
    }

    nstd::cAsciiString msSlotName;
};

/// Calls a public slot of an object that has been found before. Once that slot is gone, as when it was erased
/// from its object's list, every call raises cNoSuchSlotException with its name.
template<typename R>
class cIndirectResolvingSlotCall0 : public tIndirectSlotCall<R> {
public:
    /// A template for connecting. A null call fails the assertion "mpCall != 0", and so does connecting once
    /// the slot is gone.
    cIndirectResolvingSlotCall0(cConnectable& target, cAbstractSlotCall const* call)
        : cIndirectResolvingSlotCall0(target, call, nullptr)
    {
    }

    [[nodiscard]] cAbstractSlotCall0<R>* createConnectedInstance(cAbstractSignal& signal) const override
    {
        return new cIndirectResolvingSlotCall0(this->assignedObject(), mWatch.call(), &signal);
    }

private:
    cIndirectResolvingSlotCall0(cConnectable& target, cAbstractSlotCall const* call, cAbstractSignal* signal)
        : tIndirectSlotCall<R>(target, signal),
          mWatch(call)
    {
        if (mWatch.call()->isPublicSlot())
            msSlotName = mWatch.call()->publicSlotName();
    }

    void invoke(nsa::cReferenceFrame& frame) const override
    {
        if (!mWatch.call())
            cRMIExceptions::throwNoSuchSlot(msSlotName, frame);
        mWatch.call()->call(frame);
    }

    cAbstractSlotCall::cWatch mWatch; ///< the call is owned by the public slot
    nstd::cAsciiString msSlotName;    ///< empty when the call was not a public slot's
};

} // namespace nrmi
