#pragma once

#include "nel_core/rmi/cConnectable.h"

namespace nrmi {

/// A call of one slot of one object.
///
/// It plays one of two roles: a template that belongs to the caller and is connected to nothing, or the
/// connected copy of one, which is registered with the object and belongs to its signal.
class NEL_EXPORT cAbstractSlotCall {
public:
    /// A call of `object`'s; with a signal it is registered with the object until it dies.
    cAbstractSlotCall(cConnectable& object, cAbstractSignal* signal) noexcept;
    /// A copy is a template, whatever the other one is.
    cAbstractSlotCall(cAbstractSlotCall const& other) noexcept;
    cAbstractSlotCall& operator=(cAbstractSlotCall const&) = delete;
    virtual ~cAbstractSlotCall();

    /// The object whose slot is called.
    cConnectable& assignedObject() const noexcept { return *mpObject; }
    /// Makes the object's entries for the signal of this call name `signal`; null takes this call's own
    /// entry out. A call without signal is left alone.
    void reAssign(cAbstractSignal* signal) noexcept;

    /// Whether the slot is one of `object`'s.
    virtual bool matchSlotOfObject(cConnectable const* object) const;

private:
    friend class cAbstractLocalSignal;

    cConnectable* mpObject;              ///< not owned; it drops its calls before it dies
    cSignalEntry mEntry;                 ///< in the object's list while connected
    cAbstractSlotCall* mpNext = nullptr; ///< the call that the signal makes after this one
    unsigned long long miMark = 0;       ///< of the nested emissions that have made this call
};

} // namespace nrmi
