#pragma once

#include "nel_core/export.h"
#include "nel_core/rmi/cAbstractSignal.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/tAutoPtr.h"

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
/// It may publish slots and signals under names, for those who do not know its class: they find them, connect
/// to them and call them by these names. The first one that was registered under a name is the one found.
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
    /// Detaches the object from all signals, then deletes its public slots and signals.
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
    /// Detaches the object from all signals and deletes its public slots and signals.
    void clear();

    /// Publishes a slot that others call through `slot`, and returns the public slot, which owns it;
    /// nrmi::publishSlot() does all that for a member function. Without a slot call an assertion fails.
    /// Nothing is registered when any of the registrations fails.
    cPublicSlot& registerSlot(nstd::cAsciiString const& name, nstd::cAsciiString const& returnTypeName,
                              nstd::cAsciiString const& paramTypeNames, nstd::cAsciiString const& description,
                              nstd::tAutoPtr<cAbstractSlotCall> slot);
    /// The same with a public slot that is made up already; without one an assertion fails.
    cPublicSlot& registerSlot(nstd::tAutoPtr<cPublicSlot> publicSlot);
    /// The same without type names, with the description "tmp remoteslot".
    cPublicSlot& registerRemoteSlot(nstd::cAsciiString const& name, nstd::tAutoPtr<cAbstractSlotCall> slot);
    /// The same with a slot call that the factory makes and a description that is read.
    cPublicSlot& registerRemoteSlot(nsa::cAbstractDeserializer& deserializer, cAbstractRMIFactory& factory);
    /// Publishes a signal, which stays its owner's, and returns its public signal. A signal may be published
    /// several times, see cAbstractSignal::setPublicSignal().
    cPublicSignal& registerSignal(nstd::cAsciiString const& name, nstd::cAsciiString const& returnTypeName,
                                  nstd::cAsciiString const& paramTypeNames,
                                  cAbstractSignal::InterfaceType type, nstd::cAsciiString const& description,
                                  cAbstractSignal& signal);
    /// The same with the factory's signal for index() and a description that is read.
    cPublicSignal& registerRemoteSignal(nsa::cAbstractDeserializer& deserializer,
                                        cAbstractRMIFactory& factory);

    /// Calls the public slot of that name with the arguments that the frame refers to, followed by the
    /// result. Raises cNoSuchSlotException when there is none. The slot may do what it likes, delete this
    /// object included.
    void invokeIndirectSlot(nstd::cAsciiString const& name, nsa::cReferenceFrame& frame) const;
    /// The same with arguments that are read and results that are written.
    void invokeIndirectRemoteSlot(nstd::cAsciiString const& name, nsa::cAbstractDeserializer& arguments,
                                  nsa::cAbstractSerializer& results) const;

    /// The signal that is published under that name. Raises cNoSuchSignalException when there is none, or
    /// none any more.
    cAbstractSignal& findSignal(nstd::cAsciiString const& name);
    /// Its public signal, never null; raises cNoSuchSignalException when there is none.
    cPublicSignal* findPublicSignal(nstd::cAsciiString const& name) const;
    /// The public slot of that name, never null; raises cNoSuchSlotException when there is none.
    cPublicSlot* findPublicSlot(nstd::cAsciiString const& name) const;
    /// Its slot call, owned by it; null when there is none.
    cAbstractSlotCall* tryFindSlot(nstd::cAsciiString const& name) const;
    /// The public slot that owns the call; null when none does.
    cPublicSlot* tryFindPublicSlot(cAbstractSlotCall const& slot) const;
    /// Its name, or "unknown".
    nstd::cAsciiString publicSlotName(cAbstractSlotCall const& slot) const;
    /// The public slots in the order of their registration; null when none was ever registered.
    nstd::tPtrList<cPublicSlot>* hasPublicSlots() const noexcept { return mpPublicSlots.get(); }
    /// The public signals in the order of their registration; null when none was ever registered.
    nstd::tPtrList<cPublicSignal>* hasPublicSignals() const noexcept { return mpPublicSignals.get(); }
    /// The lists, made on first use. They own what they hold: what is erased is not public any more.
    nstd::tPtrList<cPublicSlot>& codRSlots();
    nstd::tPtrList<cPublicSignal>& codRSignals();

    /// Whether the slot call is one of this object.
    bool operator==(cAbstractSlotCall const* call) const;

    /// A number kept for the owner; 0 at first.
    unsigned int index() const noexcept { return miIndex; }
    /// Sets index().
    void setIndex(unsigned int index) noexcept { miIndex = index; }

private:
    friend class cAbstractSignal;
    friend class cAbstractSlotCall;

    void attach(cSignalEntry& entry) noexcept { entry.linkBefore(mAttached); }
    static void remove(cSignalEntry& entry) noexcept;
    cPublicSignal& link(nstd::tAutoPtr<cPublicSignal> publicSignal, cAbstractSignal& signal);
    void withdraw(cPublicSignal& publicSignal);

    cSignalEntry mAttached; ///< the anchor of the ring of entries
    nstd::tAutoPtr<nstd::tPtrList<cPublicSlot>> mpPublicSlots;
    nstd::tAutoPtr<nstd::tPtrList<cPublicSignal>> mpPublicSignals;
    bool mbDetaching = false;
    unsigned int miIndex = 0;
};

} // namespace nrmi
