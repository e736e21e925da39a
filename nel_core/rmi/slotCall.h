#pragma once

#include <utility>

#include "nel_core/rmi/cAbstractSlotCall.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/piTypes.h"

namespace nrmi {

/// The typed call; those without arguments tell their types as text, too.
template<typename R, typename... A>
class tTypedSlotCall : public cAbstractSlotCall {
public:
    using cAbstractSlotCall::cAbstractSlotCall;

    /// Calls the slot and returns its result. The slot may delete this call, its object and its signal.
    virtual R call(A... args) const = 0;
};

template<typename R>
class tTypedSlotCall<R> : public cAbstractSlotCall {
public:
    using cAbstractSlotCall::cAbstractSlotCall;

    /// Calls the slot and returns its result. The slot may delete this call, its object and its signal.
    virtual R call() const = 0;
    /// The types of the arguments as text: none.
    virtual nstd::cAsciiString parametersTypeString() const { return nstd::cAsciiString(); }
    /// The return type as text.
    virtual nstd::cAsciiString returnTypeString() const { return nstd::cAsciiString("piVoid"); }
};

/// What can be connected to a tLocalSignal<R, A...>; cAbstractSlotCall0 to cAbstractSlotCall3 are its names.
template<typename R, typename... A>
class tAbstractSlotCall : public tTypedSlotCall<R, A...> {
public:
    using tTypedSlotCall<R, A...>::tTypedSlotCall;

    /// A new heap copy that is connected to `signal` and registered with its object; the caller owns it.
    [[nodiscard]] virtual tAbstractSlotCall* createConnectedInstance(cAbstractSignal& signal) const = 0;
};

/// Calls a member function of an object; cDirectLocalSlotCall0 to cDirectLocalSlotCall3 are its names.
template<typename T, typename R, typename... A>
class tDirectLocalSlotCall : public tAbstractSlotCall<R, A...> {
public:
    /// The member functions that can be called: the argument types are spelled as in the signal.
    typedef R (T::*tSlot)(A...);

    /// A template for connecting. A null object fails the assertion "object != 0".
    tDirectLocalSlotCall(T* object, tSlot member)
        : tAbstractSlotCall<R, A...>(required(object), nullptr),
          mpTarget(object),
          mpSlot(member)
    {
    }

    /// Calls the member function on the object.
    R call(A... args) const override
    {
        // Nothing of this call is used once the slot runs, which may have deleted it.
        T* const target = mpTarget;
        tSlot const member = mpSlot;
        return (target->*member)(std::forward<A>(args)...);
    }

    [[nodiscard]] tAbstractSlotCall<R, A...>* createConnectedInstance(cAbstractSignal& signal) const override
    {
        return new tDirectLocalSlotCall(*this, signal);
    }

private:
    tDirectLocalSlotCall(tDirectLocalSlotCall const& other, cAbstractSignal& signal)
        : tAbstractSlotCall<R, A...>(other.assignedObject(), &signal),
          mpTarget(other.mpTarget),
          mpSlot(other.mpSlot)
    {
    }

    static cConnectable& required(T* object)
    {
        NEL_ASSERT(object != 0);
        return *object;
    }

    T* mpTarget; ///< the assigned object by its own type
    tSlot mpSlot;
};

/// The call of a slot, to be connected to a signal or scheduled: `slot(this, &cReceiver::sltChanged)`.
/// The slot may be one that the object's class has inherited from a connectable base.
template<typename T, typename Object, typename R, typename... A>
[[nodiscard]] tDirectLocalSlotCall<T, R, A...> slot(Object* object, R (T::*member)(A...))
{
    return tDirectLocalSlotCall<T, R, A...>(object, member);
}

} // namespace nrmi
