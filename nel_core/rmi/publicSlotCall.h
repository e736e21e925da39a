#pragma once

#include <tuple>
#include <type_traits>
#include <utility>

#include "nel_core/rmi/cPublicSlot.h"
#include "nel_core/rmi/slotCall.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/cAbstractException.h"

namespace nrmi {

/// Whether a slot may change what it gets as an `A`, so that the value travels back.
template<typename A>
constexpr bool kIsAlterable = std::is_reference_v<A> && !std::is_const_v<std::remove_reference_t<A>>;

/// Whether a value of the plain type can be made and read, and written. A reference frame cannot: nothing
/// tells what a new one should refer to.
template<typename T>
constexpr bool kCanTravel =
    std::conjunction_v<std::bool_constant<nsa::kIsSerializable<T>>, std::negation<std::is_abstract<T>>,
                       std::is_default_constructible<T>,
                       std::negation<std::is_same<T, nsa::cReferenceFrame>>>;

/// A direct slot call that can also be called by name; cPublicLocalSlotCall0 to cPublicLocalSlotCall3 are its
/// names, and publishSlot() makes and registers one.
///
/// In a frame and in a stream an argument has the plain type of the parameter: neither a reference nor
/// constant. The slot may delete this call, its public slot and its object.
template<typename T, typename R, typename... A>
class tPublicLocalSlotCall : public tDirectLocalSlotCall<T, R, A...> {
    static_assert(!std::is_void_v<R>, "a public slot without a result returns piVoid");

public:
    using tDirectLocalSlotCall<T, R, A...>::call;
    using tDirectLocalSlotCall<T, R, A...>::tDirectLocalSlotCall;

    /// Lets the slot work on the objects that the frame refers to and assigns its result. Raises what reading
    /// the frame raises, before the slot is called.
    void callRef(nsa::cReferenceFrame& frame) const override
    {
        // In braces, so that they are read in their order.
        std::tuple<tPlain<A>&..., tPlain<R>&> const entries{frame.readNext<tPlain<A>>()...,
                                                            frame.readNext<tPlain<R>>()};
        callWith(entries, std::index_sequence_for<A...>());
    }
    /// Reads the arguments in their order, calls the slot, and writes its result, followed by the arguments
    /// that it may have changed. A failure of reading is the cause of
    /// cRMIExceptions::throwParameterMissmatch(); a type whose values cannot be made, read and written raises
    /// cSAExceptions::throwUnserializable(). The slot is not called then.
    void call(nsa::cAbstractDeserializer& arguments, nsa::cAbstractSerializer& results) const override
    {
        (requireTravelling<tPlain<A>>(), ..., requireTravelling<tPlain<R>>());
        if constexpr ((kCanTravel<tPlain<A>> && ... && kCanTravel<tPlain<R>>)) {
            std::tuple<tPlain<A>...> values{};
            load(values, arguments);
            std::apply(
                [&](auto&... value) {
                    R const result = this->callDirectly(static_cast<A&&>(value)...);
                    result >> results;
                    (storeAlterable<A>(value, results), ...);
                },
                values);
        }
    }
    [[nodiscard]] tAbstractSlotCall<R, A...>* createConnectedInstance(cAbstractSignal& signal) const override
    {
        return new tPublicLocalSlotCall(*this, signal);
    }

private:
    tPublicLocalSlotCall(tPublicLocalSlotCall const& other, cAbstractSignal& signal)
        : tDirectLocalSlotCall<T, R, A...>(other, signal)
    {
    }

    template<typename Entries, std::size_t... I>
    void callWith(Entries const& entries, std::index_sequence<I...>) const
    {
        std::get<sizeof...(A)>(entries) = this->callDirectly(static_cast<A>(std::get<I>(entries))...);
    }

    void load(std::tuple<tPlain<A>...>& values, nsa::cAbstractDeserializer& arguments) const
    {
        try {
            std::apply([&](auto&... value) { (static_cast<void>(value << arguments), ...); }, values);
        } catch (nstd::cAbstractException const& cause) {
            cRMIExceptions::throwParameterMissmatch(this->isPublicSlot(), cause);
        }
    }

    template<typename Plain>
    static void requireTravelling()
    {
        if constexpr (!kCanTravel<Plain>)
            cSAExceptions::throwUnserializable(nsa::tTypeName<Plain>::name());
    }

    template<typename Argument>
    static void storeAlterable(tPlain<Argument> const& value, nsa::cAbstractSerializer& results)
    {
        if constexpr (kIsAlterable<Argument>)
            value >> results;
    }
};

/// Of an object, or of the object that is pointed to.
template<typename Object>
Object* addressOf(Object& object) noexcept
{
    return &object;
}
template<typename Object>
Object* addressOf(Object* object) noexcept
{
    return object;
}

/// Registers `call`, which it takes over, with its object and describes its types.
template<typename R, typename... A>
cPublicSlot& publishCall(nstd::cAsciiString const& name, cAbstractSlotCall* call,
                         nstd::cAsciiString const& description)
{
    cConnectable& owner = call->assignedObject();
    nstd::tAutoPtr<cAbstractSlotCall> slot(call);
    nstd::tAutoPtr<cPublicSlot> publicSlot(
        new cPublicSlot(name, typeNames<R>(), typeNames<A...>(), description, std::move(slot)));
    (publicSlot->addParameter().set(typeNames<A>(), kIsAlterable<A>, false), ...);
    publicSlot->returnValue().set(typeNames<R>(), false, std::is_same_v<tPlain<R>, piVoid>);
    return owner.registerSlot(std::move(publicSlot));
}

/// Publishes a slot of an object under a name, so that it can be called by it:
/// `publishSlot(this, "add", &cCalculator::sltAdd, "the sum of two numbers")`. `object` is the object or a
/// pointer to it. The public slot belongs to the object and tells the types as nsa::tTypeName gives them. The
/// slot may be constant, and one that the object's class has inherited from a connectable base. Nothing is
/// published when that fails.
template<typename Object, typename T, typename R, typename... A>
cPublicSlot& publishSlot(Object&& object, nstd::cAsciiString const& name, R (T::*member)(A...),
                         nstd::cAsciiString const& description)
{
    return publishCall<R, A...>(name, new tPublicLocalSlotCall<T, R, A...>(addressOf(object), member),
                                description);
}
template<typename Object, typename T, typename R, typename... A>
cPublicSlot& publishSlot(Object&& object, nstd::cAsciiString const& name, R (T::*member)(A...) const,
                         nstd::cAsciiString const& description)
{
    return publishCall<R, A...>(name, new tPublicLocalSlotCall<T const, R, A...>(addressOf(object), member),
                                description);
}

} // namespace nrmi
