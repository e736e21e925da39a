#pragma once

#include "nel_core/rmi/cConnectable.h"
#include "nel_core/sa/fwd.h"

namespace nrmi {

/// A call of one slot of one object.
///
/// It plays one of two roles: a template that belongs to the caller and is connected to nothing, or the
/// connected copy of one, which is registered with the object and belongs to its signal.
class NEL_EXPORT cAbstractSlotCall {
public:
    /// Follows a call that belongs to somebody else: it is forgotten when it dies.
    class NEL_EXPORT cWatch {
    public:
        /// A null call fails the assertion "mpCall != 0".
        explicit cWatch(cAbstractSlotCall const* call);
        cWatch(cWatch const&) = delete;
        cWatch& operator=(cWatch const&) = delete;
        ~cWatch();

        /// The call, null once it is gone.
        cAbstractSlotCall const* call() const noexcept { return mpCall; }

    private:
        friend class cAbstractSlotCall;

        cAbstractSlotCall const* mpCall;
        cWatch* mpPrevious = nullptr; ///< the neighbours among the watches of the call
        cWatch* mpNext = nullptr;
    };

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

    /// Registers `slot` as a public slot of the object of this call, see cConnectable::registerSlot().
    cPublicSlot& registerSlotByInterface(nstd::cAsciiString const& name,
                                         nstd::cAsciiString const& returnTypeName,
                                         nstd::cAsciiString const& paramTypeNames,
                                         nstd::cAsciiString const& description,
                                         nstd::tAutoPtr<cAbstractSlotCall> slot) const;
    /// The public slot that owns this call, null unless it is registered. Copies are not.
    cPublicSlot const* isPublicSlot() const noexcept { return mpPublicSlot; }
    /// Sets isPublicSlot(), which must outlive this call or be taken back.
    void setPublicSlot(cPublicSlot const* publicSlot) noexcept { mpPublicSlot = publicSlot; }
    /// The name of the public slot; raises nstd::cBugException when there is none.
    nstd::cAsciiString const& publicSlotName() const;

    /// Whether the slot is one of `object`'s.
    virtual bool matchSlotOfObject(cConnectable const* object) const;
    /// Calls the slot with the arguments that the frame refers to, in their order, followed by the result.
    /// Here nothing is called; a line in the debug output tells so.
    virtual void call(nsa::cReferenceFrame& frame) const;
    /// Calls the slot with arguments that are read, and writes its results. Here nothing is called; a stack
    /// trace and a line in the debug output tell so.
    virtual void call(nsa::cAbstractDeserializer& arguments, nsa::cAbstractSerializer& results) const;

protected:
    /// Prepares a call with `count` arguments and a result of the type with those names, the compiler's and
    /// the library's: raises unless the frame has an entry for each argument and one for such a result
    /// behind them, and starts its reading anew.
    static void checkFrame(nsa::cReferenceFrame& frame, unsigned int count, char const* mangledResultType,
                           char const* resultType);

private:
    friend class cAbstractLocalSignal;

    cConnectable* mpObject;                    ///< not owned; it drops its calls before it dies
    cSignalEntry mEntry;                       ///< in the object's list while connected
    cPublicSlot const* mpPublicSlot = nullptr; ///< not owned: it owns this call
    cAbstractSlotCall* mpNext = nullptr;       ///< the call that the signal makes after this one
    mutable cWatch* mpWatches = nullptr;       ///< not owned; the first of a chain
    unsigned long long miMark = 0;             ///< of the nested emissions that have made this call
};

} // namespace nrmi
