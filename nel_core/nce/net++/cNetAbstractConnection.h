#pragma once

#include "nel_core/nce/net++/cNetAbstractAddress.h"
#include "nel_core/nce/net++/cNetAbstractSocket.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/rmi/localSignal.h"
#include "nel_core/std/cLife.h"
#include "nel_core/std/cTime.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tConstArrayRef.h"

namespace nce {

/// Moves bytes over a socket without blocking the work queue.
///
/// A packet is what one send call is given; it goes out completely before the next one may start. What is
/// received is either exactly as much as a target array holds, or whatever arrives. There is no framing:
/// message boundaries are for the protocols above. A size that the peer tells is to be bounded by the caller
/// before a target is made of that size.
///
/// A connection does nothing until it is scheduled. When the socket reports that the other end is gone,
/// sigClosed comes, and with the next turn of the queue sigInvalidated: from then on the connection is dead.
/// A packet that is still on its way is given its time, as long as at least a byte moves every 30 seconds.
/// Slots and handlers may delete the connection: the step that called them ends then. Failures of the socket
/// are wrapped and go to errorHandler(), if there is one, and else to the action-error handlers of the works
/// and to the queue. Used on the queue's thread only.
///
/// A slot of sigPacketSent may send the next packet. What is sent from more than 16 such slots, one inside
/// the other, goes out with the next event of the socket, so that the stack stays flat.
class NEL_EXPORT cNetAbstractConnection : public nrmi::cConnectable {
public:
    typedef nstd::tArray<char, nstd::tArrayByteLevelTraits<char>> tBytes;
    typedef nstd::tConstArrayRef<char, nstd::tArrayByteLevelTraits<char>> tConstBytesRef;
    typedef nrmi::localSignal2<piVoid, cNetAbstractConnection&, nstd::cAbstractException const&> tErrorSignal;
    typedef nrmi::localSignal3<piVoid, cNetAbstractConnection&, tBytes const&, cNetAbstractAddress const&>
        tDataReceivedFromSignal;

    /// The other end is gone; at most once. Best delete the connection in a later turn of the queue, not in a
    /// slot of this or the next signal: a signal that dies while it calls leaves a stack trace.
    nrmi::localSignal1<piVoid, cNetAbstractConnection&> sigClosed;
    /// The connection is about to become invalid; once.
    nrmi::localSignal1<piVoid, cNetAbstractConnection&> sigInvalidated;
    /// The target of an explicit receive is full, or a chunk has arrived.
    nrmi::localSignal2<piVoid, cNetAbstractConnection&, tBytes const&> sigDataReceived;
    /// The socket has accepted a part of the packet.
    nrmi::localSignal0<piVoid> sigChunkSent;
    /// The socket has accepted all of the packet; the next one may be sent.
    nrmi::localSignal0<piVoid> sigPacketSent;

    /// Takes the socket over; without one the assertion "mpSocket.get()" fails.
    explicit cNetAbstractConnection(nstd::tAutoPtr<cNetAbstractSocket> socket);
    /// Invalidates the connection.
    ~cNetAbstractConnection() override;

    /// Sends the caller's bytes in place: they must stay as they are until sigPacketSent or clearTx(). As
    /// much as the socket takes is written at once. Raises nstd::cRuntimeException when the connection is
    /// invalid or still sends, and what the socket raises, after which nothing is being sent.
    virtual void sendRef(tConstBytesRef const& data);
    /// The same with a copy; what the socket raises leaves the packet pending, which clearTx() drops.
    virtual void send(tBytes const& data);
    /// The same with the bytes themselves; `data` gets those of the packet before.
    virtual void sendSwap(tBytes& data);
    /// Fills `target`, all of it, with the bytes that arrive; it must stay until sigDataReceived or
    /// clearRx(). Raises nstd::cRuntimeException when the connection is invalid.
    virtual void receive(tBytes& target);
    /// Whether to deliver whatever arrives; nothing happens when the connection is invalid.
    virtual void receive(bool on);
    /// Waits until the target of an explicit receive is full, without turning the queue; `milliseconds`
    /// limits the time, 0 does not. Raises the time-out of cNETExceptions, after which the target is still
    /// in use, and any failure, the end of the connection included, as the cause of
    /// throwConnectionClosedUnexpectedly(), when the connection was invalid from the start, or of
    /// throwUnableToCompleteConnectionClosedUnexpectedly(). Returns when a slot deletes the connection.
    virtual void waitRx(unsigned int milliseconds);
    /// The same until nothing is being sent.
    virtual void flushTx(unsigned int milliseconds);
    /// Whether the socket has data; false when the connection is invalid.
    virtual bool canRead() const;
    /// Whether a packet is being sent.
    virtual bool isTxBusy() const;
    /// Drops the packet that is being sent; what the socket has taken of it is on its way.
    virtual void clearTx() noexcept;
    /// How many bytes of the packet the socket has not taken yet.
    virtual unsigned int txBytesLeft() const;
    /// The address of the other end.
    virtual cNetAbstractAddress& peer() noexcept;
    virtual bool isInvalid() const;

    /// Adds the works of the connection to a queue, null for the system's. Nothing happens when it is
    /// invalid.
    void schedule(npi::cWorkQueue* queue);
    /// Ends an explicit receive; its target is not used any more.
    void clearRx() noexcept;
    /// Reads and then writes once, as when the socket could do both.
    void tryTransfer();
    /// Emits sigInvalidated, unless that has been done, and closes the socket.
    void invalidate();
    /// The same on a turn of the queue in which no packet is being sent.
    void invalidateLater();
    /// Whether that is pending.
    bool toInvalidateLater() const { return mDelayedInvalidation.isStarted(); }
    /// Emitted with failures of the socket; made on first use, which takes them from all other handlers.
    tErrorSignal& errorHandler();
    /// Emitted after sigDataReceived, with the sender; made on first use. A target that slots of both signals
    /// get is copied for the second one, as it need not live any longer.
    tDataReceivedFromSignal& sigDataReceivedFrom();

    /// Connected to the socket's works, and to the work of invalidateLater().
    piVoid sltSocketReadable();
    piVoid sltSocketWritable();
    piVoid sltSocketException();
    piVoid sltException(nstd::cAbstractException const& error, bool isFromDescendant);
    piVoid sltDelayedSocketDestroy();

private:
    static bool handleTxPacket(cNetAbstractSocket& socket, tConstBytesRef const& packet,
                               unsigned int& bytesLeft);
    static void requireBounded(unsigned int returned, unsigned int given);

    void take(npi::cWork& work, piVoid (cNetAbstractConnection::*step)());
    void requireIdle(char const* closedText) const;
    void sendBuffer();
    void startPacket();
    void writePacket();
    void dropPacket() noexcept;
    void receiveAvailable();
    bool fillTarget();
    void provideSender();
    void deliver(tBytes const& data);
    bool isRxPending() const { return miRxBytesLeft != 0; }
    bool wait(unsigned int milliseconds, bool (cNetAbstractConnection::*isPending)() const,
              piVoid (cNetAbstractConnection::*step)(), char const* deadText);
    void requireAlive(char const* deadText);
    void noteDrain();

    nstd::tAutoPtr<cNetAbstractSocket> mpSocket;
    bool mbInvalid = false;
    nstd::tAutoPtr<tDataReceivedFromSignal> mpSigDataReceivedFrom;
    nstd::tAutoPtr<cNetAbstractAddress> mpSender; ///< empty while an emission uses it
    tBytes maTxBuffer;
    tConstBytesRef moTxView;
    unsigned int miTxBytesLeft = 0;
    tBytes* mpRxPacket = nullptr; ///< not owned; not used any more when nothing is left to receive
    unsigned int miRxBytesLeft = 0;
    bool mbContinuous = false;
    npi::cWork mDelayedInvalidation;
    bool mbClosedReported = false;
    nstd::tAutoPtr<tErrorSignal> mpErrorHandler;

    bool mbInvalidationTold = false;
    bool mbTxDeferred = false;        ///< the packet waits for the writable work
    unsigned int miPacket = 0;        ///< changes when a packet ends
    unsigned int miWritableSteps = 0; ///< how many are running, one inside the other
    unsigned int miTxMoved = 0;       ///< the writes that have taken something
    unsigned int miRxMoved = 0;       ///< the reads that have brought something
    nstd::cTime mDrainTime;           ///< when the pending packet last made progress, as far as known
    unsigned int miDrainMark = 0;     ///< miTxMoved at that time
    nstd::cLife* mpLives = nullptr;   ///< tells calls on the stack whether this still lives
};

} // namespace nce
