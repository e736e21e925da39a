#pragma once

#include "nel_core/rmi/cAbstractSignal.h"
#include "nel_core/rmi/cAbstractSlotCall.h"

namespace nrmi {

/// What local signals share: they own their slot calls in calling order and survive whatever a slot does.
///
/// A slot may connect and disconnect calls of the running signal, emit it again, and delete the signal, its
/// own object or any other: a call is made at most once by an emission; one that is appended meanwhile is
/// made, one that is prepended or removed is not; what the latest nested emission has called, the outer
/// ones leave out; and when the signal dies its emissions end. An unconnected signal holds no memory,
/// and an emission takes none.
class NEL_EXPORT cAbstractLocalSignal : public cAbstractSignal {
public:
    /// Deletes the slot calls. Within an emission of the signal that is most likely a mistake: it writes a
    /// warning with a stack trace to the debug output.
    ~cAbstractLocalSignal() override;

    void notifyConnectableDestroyed(cConnectable& object) override;
    /// Slots cannot be connected by name here: raises always.
    void connect(cConnectable& object, nstd::cAsciiString const& slotName, SlotResolving resolving) override;
    void disconnect(cConnectable const& object) override;
    /// Does nothing.
    void addParameterInfo(cPublicSignal& publicSignal) override;

    /// Whether any slot is connected.
    bool isConnected() const noexcept { return mpFirst != nullptr; }

protected:
    /// A running emission and its place in the slot calls. Lives on the stack, linked to the emission around
    /// it, so that the signal can move the place when calls go, and can tell that it is gone itself.
    ///
    /// Once emissions are nested they mark what they call, all with the number of the latest one, and leave
    /// out what bears that mark: a new number takes all marks away.
    class cEmission {
    public:
        // The compiler cannot see that the destructor takes the address back wherever the signal still lives.
#if __GNUC__ >= 12
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdangling-pointer"
#endif
        explicit cEmission(cAbstractLocalSignal& signal) noexcept
            : mpSignal(&signal),
              mpOuter(signal.mpEmission),
              mpNext(signal.mpFirst)
        {
            signal.mpEmission = this;
            if (mpOuter)
                renewMarks();
        }
#if __GNUC__ >= 12
#pragma GCC diagnostic pop
#endif
        cEmission(cEmission const&) = delete;
        cEmission& operator=(cEmission const&) = delete;
        ~cEmission()
        {
            if (mpSignal)
                mpSignal->mpEmission = mpOuter;
        }

        /// Steps over the next call and returns it; null when there is none, or no signal any more.
        cAbstractSlotCall* takeNext() noexcept
        {
            if (miMark != 0)
                markNext();
            auto* const call = mpNext;
            if (call)
                mpNext = call->mpNext;
            return call;
        }

    private:
        friend class cAbstractLocalSignal;

        void renewMarks() noexcept;
        void markNext() noexcept;

        cAbstractLocalSignal* mpSignal; ///< null once the signal is gone
        cEmission* mpOuter;
        cAbstractSlotCall* mpNext;     ///< null at the end
        unsigned long long miMark = 0; ///< 0 while this emission is the only one
    };

    cAbstractLocalSignal() = default;

    /// Places a connected slot call and takes it over.
    void place(cAbstractSlotCall& call, ConnectionPolicy policy) noexcept;
    /// Raises when the emission of an unconnected signal is an error.
    void checkUnconnected() const;

private:
    void checkNIC() const noexcept;
    void append(cAbstractSlotCall& call) noexcept;
    void prepend(cAbstractSlotCall& call) noexcept;
    cAbstractSlotCall* takeCallsOf(cConnectable const& object);
    void stepOver(cAbstractSlotCall const& call) noexcept;
    static void destroy(cAbstractSlotCall* calls) noexcept;

    cAbstractSlotCall* mpFirst = nullptr; ///< owned, linked in calling order
    cAbstractSlotCall* mpLast = nullptr;
    cEmission* mpEmission = nullptr; ///< the innermost running one
    unsigned long long miMark = 0;   ///< the number of nested emissions so far
};

} // namespace nrmi
