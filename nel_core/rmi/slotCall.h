#pragma once

#include <type_traits>
#include <utility>

#include "nel_core/rmi/cAbstractSlotCall.h"
#include "nel_core/rmi/cRMIExceptions.h"
#include "nel_core/rmi/typeNames.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/piTypes.h"

namespace nrmi {

/// Whether these are the arguments of the calls by name, which every slot call has.
template<typename... A>
constexpr bool kIsCallByName = false;
template<>
inline constexpr bool kIsCallByName<nsa::cReferenceFrame&> = true;
template<>
inline constexpr bool kIsCallByName<nsa::cAbstractDeserializer&, nsa::cAbstractSerializer&> = true;

/// The typed call; those without arguments tell their types as text, too.
template<typename R, typename... A>
class tTypedSlotCall : public cAbstractSlotCall {
    static_assert(!kIsCallByName<A...>,
                  "a slot cannot take just a reference frame, or a deserializer and a serializer: that is a "
                  "call by name; let it take a pointer to the first one");

public:
    using cAbstractSlotCall::cAbstractSlotCall;
    using cAbstractSlotCall::call;

    /// Calls the slot and returns its result. The slot may delete this call, its object and its signal.
    virtual R call(A... args) const = 0;
};

template<typename R>
class tTypedSlotCall<R> : public cAbstractSlotCall {
public:
    using cAbstractSlotCall::cAbstractSlotCall;
    using cAbstractSlotCall::call;

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
    using tTypedSlotCall<R, A...>::call;
    using tTypedSlotCall<R, A...>::tTypedSlotCall;

    /// Calls the slot as callRef() does, once the frame is known to have an entry for every argument and one
    /// for the result. Raises what reading the frame raises; a result that is missing or of another type is
    /// the cause of cRMIExceptions::throwMissingReturnValue(), unless there are no arguments.
    void call(nsa::cReferenceFrame& frame) const override
    {
        this->checkFrame(frame, sizeof...(A), nsa::mangledTypeName<tPlain<R>>(),
                         nsa::tTypeName<tPlain<R>>::name());
        callRef(frame);
    }

    /// Calls the slot with the arguments under the frame's cursor and assigns the result to the entry behind
    /// them.
    virtual void callRef(nsa::cReferenceFrame& frame) const = 0;
    /// A new heap copy that is connected to `signal` and registered with its object; the caller owns it.
    [[nodiscard]] virtual tAbstractSlotCall* createConnectedInstance(cAbstractSignal& signal) const = 0;
};

/// The member functions of a T that slot calls make; for a `T const` they are constant.
template<typename T, typename R, typename... A>
struct tMemberSlot {
    typedef R (T::*tSlot)(A...);
};
template<typename T, typename R, typename... A>
struct tMemberSlot<T const, R, A...> {
    typedef R (T::*tSlot)(A...) const;
};

/// Calls a member function of an object; cDirectLocalSlotCall0 to cDirectLocalSlotCall3 are its names.
/// It calls a constant member function when it is made for a `T const`; the object is not constant even then.
template<typename T, typename R, typename... A>
class tDirectLocalSlotCall : public tAbstractSlotCall<R, A...> {
public:
    using tAbstractSlotCall<R, A...>::call;

    /// The member functions that can be called: the argument types are spelled as in the signal.
    typedef typename tMemberSlot<T, R, A...>::tSlot tSlot;
    typedef std::remove_const_t<T> tTarget;

    /// A template for connecting. A null object fails the assertion "object != 0".
    tDirectLocalSlotCall(tTarget* object, tSlot member)
        : tAbstractSlotCall<R, A...>(required(object), nullptr),
          mpTarget(object),
          mpSlot(member)
    {
    }

    /// Calls the member function on the object.
    R call(A... args) const override { return callDirectly(std::forward<A>(args)...); }
    /// Refuses calls by name: raises always.
    void call(nsa::cAbstractDeserializer&, nsa::cAbstractSerializer&) const override
    {
        cRMIExceptions::throwIndirectLocalSlotCall();
    }
    /// Refuses calls by name: raises always.
    void callRef(nsa::cReferenceFrame&) const override { cRMIExceptions::throwIndirectCallSlotCallRef(); }

    [[nodiscard]] tAbstractSlotCall<R, A...>* createConnectedInstance(cAbstractSignal& signal) const override
    {
        return new tDirectLocalSlotCall(*this, signal);
    }

protected:
    tDirectLocalSlotCall(tDirectLocalSlotCall const& other, cAbstractSignal& signal)
        : tAbstractSlotCall<R, A...>(other.assignedObject(), &signal),
          mpTarget(other.mpTarget),
          mpSlot(other.mpSlot)
    {
    }

    /// Calls the member function. Nothing of this call is used once the slot runs, which may have deleted it.
    template<typename... Args>
    R callDirectly(Args&&... args) const
    {
        return (mpTarget->*mpSlot)(std::forward<Args>(args)...);
    }

private:
    static cConnectable& required(tTarget* object)
    {
        NEL_ASSERT(object != 0);
        return *object;
    }

    tTarget* mpTarget; ///< the assigned object by its own type
    tSlot mpSlot;
};

/// The call of a slot, to be connected to a signal or scheduled: `slot(this, &cReceiver::sltChanged)`.
/// The slot may be constant, and one that the object's class has inherited from a connectable base.
template<typename T, typename Object, typename R, typename... A>
[[nodiscard]] tDirectLocalSlotCall<T, R, A...> slot(Object* object, R (T::*member)(A...))
{
    return tDirectLocalSlotCall<T, R, A...>(object, member);
}
template<typename T, typename Object, typename R, typename... A>
[[nodiscard]] tDirectLocalSlotCall<T const, R, A...> slot(Object* object, R (T::*member)(A...) const)
{
    return tDirectLocalSlotCall<T const, R, A...>(object, member);
}

} // namespace nrmi
