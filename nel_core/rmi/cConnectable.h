#pragma once

#include "nel_core/export.h"
#include "nel_core/rmi/fwd.h"

namespace nrmi {

/// One entry in the list of signals that a connectable is attached to: a link of a ring.
///
/// A connected slot call holds its entry itself, so that attaching allocates nothing and detaching takes
/// constant time however many signals the object is attached to. A lone entry is linked to itself.
struct cSignalEntry {
    cSignalEntry() = default;
    explicit cSignalEntry(cAbstractSignal* signal) noexcept : mpSignal(signal) { }
    cSignalEntry(cSignalEntry const&) = delete;
    cSignalEntry& operator=(cSignalEntry const&) = delete;

    /// Whether the entry is in no list, or, for a list's anchor, whether the list is empty.
    bool isAlone() const noexcept { return mpNext == this; }
    /// Puts this lone entry before `other`; before a list's anchor is its end.
    void linkBefore(cSignalEntry& other) noexcept;
    /// Takes the entry out of its list; nothing happens to a lone one.
    void unlink() noexcept;

    cSignalEntry* mpPrevious = this;
    cSignalEntry* mpNext = this;
    cAbstractSignal* mpSignal = nullptr; ///< null in a list's anchor and in an unconnected slot call
    bool mbOwned = false;                ///< made by notifySignalAttached() and deleted by the connectable
};

/// The base of every object that has slots.
///
/// Keeps track of the signals that slot calls of the object are connected to, one entry per connection in
/// the order of connecting. When the object dies, all of them drop their calls of it; when a signal dies,
/// its entries vanish here. Everything happens on the thread that owns the objects.
class NEL_EXPORT cConnectable {
public:
    /// Attached to nothing, index 0.
    cConnectable() noexcept;
    cConnectable(cConnectable const&) = delete;
    cConnectable& operator=(cConnectable const&) = delete;
    /// Detaches the object from all signals.
    virtual ~cConnectable();

    /// Appends an entry for a signal that holds a call of this object. Connected slot calls see to theirs
    /// themselves; any other stays until notifySignalDetached(), which comes before the signal dies.
    void notifySignalAttached(cAbstractSignal& signal);
    /// Removes every entry for the signal, except while detachAllSignals() runs, which sees to it itself.
    void notifySignalDetached(cAbstractSignal& signal) noexcept;
    /// Every entry for `old` names `replacement` from now on.
    void reAssign(cAbstractSignal& old, cAbstractSignal& replacement) noexcept;
    /// Tells the signal of every entry, in their order, that it must drop its calls of this object. No entry
    /// is left; slot calls and signals may die meanwhile.
    void detachAllSignals();
    /// Detaches the object from all signals.
    void clear();

    /// Whether the slot call is one of this object.
    bool operator==(cAbstractSlotCall const* call) const;

    /// A number kept for the owner; 0 at first.
    unsigned int index() const noexcept { return miIndex; }
    /// Sets index().
    void setIndex(unsigned int index) noexcept { miIndex = index; }

private:
    friend class cAbstractSlotCall;

    void attach(cSignalEntry& entry) noexcept { entry.linkBefore(mAttached); }
    static void remove(cSignalEntry& entry) noexcept;

    cSignalEntry mAttached; ///< the anchor of the ring of entries
    bool mbDetaching = false;
    unsigned int miIndex = 0;
};

} // namespace nrmi
