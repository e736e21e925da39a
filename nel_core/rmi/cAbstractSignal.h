#pragma once

#include "nel_core/export.h"
#include "nel_core/rmi/fwd.h"
#include "nel_core/std/fwd.h"

namespace nrmi {

/// What every signal is to connectables, whatever its arguments.
class NEL_EXPORT cAbstractSignal {
public:
    /// What an emission does when no slot is connected.
    enum InvocationBehavior : unsigned int {
        ibThrowUnconnected = 0, ///< raises nrmi::cUnconnectedSignalException
        ibIgnoreUnconnected = 1 ///< nothing
    };
    /// Where a new slot call goes.
    enum ConnectionPolicy : unsigned int {
        cpPrepend = 0, ///< before all others
        cpAppend = 1   ///< after all others
    };
    /// When a slot that is connected by its name is looked up.
    enum SlotResolving : unsigned int {
        srLazy = 0,   ///< on every emission
        srResolve = 1 ///< once, when connecting
    };
    /// What a public signal is to those who exchange interfaces. Every number may stand here; it is kept
    /// and travels unchanged.
    enum InterfaceType : unsigned int {
        itDefault = 0 ///< nothing in particular
    };

    /// An unconnected emission raises.
    cAbstractSignal() = default;
    cAbstractSignal(cAbstractSignal const&) = delete;
    cAbstractSignal& operator=(cAbstractSignal const&) = delete;
    /// Its public signals have no signal any more.
    virtual ~cAbstractSignal();

    /// Exchanges the invocation behaviours and nothing else.
    void swap(cAbstractSignal& other) noexcept;

    /// What an emission does when no slot is connected; at first it raises.
    InvocationBehavior invocationBehavior() const noexcept { return meInvocationBehavior; }
    /// Sets invocationBehavior().
    void setInvocationBehavior(InvocationBehavior behavior) noexcept { meInvocationBehavior = behavior; }

    /// Publishes this signal as one of `target`, with its own type names and descriptions. The public signal
    /// belongs to `target`. Nothing is published when that fails.
    cPublicSignal& exportSignal(cConnectable& target, nstd::cAsciiString const& name, InterfaceType type,
                                nstd::cAsciiString const& description);
    /// The public signal, null while there is none. With several of them it is the latest that lives.
    cPublicSignal* isPublicSignal() const noexcept { return mbPublic ? mpPublicSignal : nullptr; }
    /// Sets isPublicSignal(). Whichever of the two dies first, the other knows: the public signal has no
    /// signal then, or this one is not public any more. With null this one is not public from now on, but
    /// can still be found under the names it has had.
    void setPublicSignal(cPublicSignal* publicSignal) noexcept;
    /// The name of the public signal; raises nstd::cBugException when there is none.
    nstd::cAsciiString const& publicSignalName() const;

    /// Does what disconnect() does; called by a dying connectable.
    virtual void notifyConnectableDestroyed(cConnectable& object) = 0;
    /// Connects the slot of `object` that has the given name.
    virtual void connect(cConnectable& object, nstd::cAsciiString const& slotName,
                         SlotResolving resolving) = 0;
    /// Removes and deletes every slot call of the object; the others keep their order.
    virtual void disconnect(cConnectable const& object) = 0;
    /// Describes the parameters and the return value of this signal in `publicSignal`, as far as it knows
    /// them.
    virtual void addParameterInfo(cPublicSignal& publicSignal) = 0;
    /// The types of the arguments as text; empty unless a signal tells them.
    virtual nstd::cAsciiString parametersTypeString() const;
    /// The return type as text; empty unless a signal tells it.
    virtual nstd::cAsciiString returnTypeString() const;

private:
    friend class cPublicSignal;

    void unlink(cPublicSignal& publicSignal) noexcept;

    InvocationBehavior meInvocationBehavior = ibThrowUnconnected;
    bool mbPublic = false;
    cPublicSignal* mpPublicSignal = nullptr; ///< not owned; the latest of a chain, null in an empty one
};

} // namespace nrmi
