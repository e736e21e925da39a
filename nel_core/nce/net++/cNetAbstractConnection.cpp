#include "nel_core/nce/net++/cNetAbstractConnection.h"

#include <utility>

#include "nel_core/nce/net++/cNETExceptions.h"
#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/cSysTime.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/raise.h"

namespace nce {
namespace {

constexpr char const* kSource = "nel_core/nce/net++/cNetAbstractConnection";
constexpr unsigned int kReadRounds = 10;
constexpr unsigned int kWriteRounds = 1000;
constexpr unsigned int kNestedSends = 16;
constexpr unsigned int kDrainRetryMs = 10;
constexpr unsigned int kDrainLimitMs = 30000;

using nstd::makeMessage;
using nstd::raiseRuntime;

template<typename Signal>
Signal& madeOnFirstUse(nstd::tAutoPtr<Signal>& signal)
{
    if (!signal) {
        nstd::tAutoPtr<Signal> made(new Signal);
        made->setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
        signal = made;
    }
    return *signal;
}

// A change of a work makes its queue plan again, so that idle works are not stopped once more.
void stopWhenStarted(npi::cWork& work)
{
    if (work.isStarted())
        work.stop();
}

// For operations that cannot raise: the work is idle in any case, only its queue may have failed to listen.
void stopQuietly(npi::cWork& work) noexcept
{
    try {
        stopWhenStarted(work);
    } catch (...) {
        npi::cDebugEntry(kSource, __LINE__) << "A queue has failed to notice that a work is stopped!";
    }
}

// The milliseconds since `start`, which follows a clock that was set back.
unsigned long long elapsedMs(nstd::cTime& start)
{
    auto const now = npi::cSysTime::utcTime();
    if (now < start)
        start = now;
    return (now - start).toMSec();
}

// Does `last` after `first`, also when that raises, unless the object is gone.
template<typename First, typename Last>
void inAnyCase(nstd::cLife const& life, First first, Last last)
{
    try {
        first();
    } catch (...) {
        if (life)
            last();
        throw;
    }
    if (life)
        last();
}

} // namespace

cNetAbstractConnection::cNetAbstractConnection(nstd::tAutoPtr<cNetAbstractSocket> socket) : mpSocket(socket)
{
    NEL_ASSERT_AT(mpSocket.get(), kSource, 25);
    sigClosed.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
    sigInvalidated.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
    sigDataReceived.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
    sigChunkSent.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
    sigPacketSent.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);

    nstd::cAsciiString name("network connection delayed invalidation for ");
    name += mpSocket->remoteAddress().toString();
    name += ')';
    mDelayedInvalidation.setName(std::move(name));
    mDelayedInvalidation.sigAction.connect(
        nrmi::slot(this, &cNetAbstractConnection::sltDelayedSocketDestroy));
    take(mpSocket->readableWork(), &cNetAbstractConnection::sltSocketReadable);
    take(mpSocket->writableWork(), &cNetAbstractConnection::sltSocketWritable);
    take(mpSocket->exceptionWork(), &cNetAbstractConnection::sltSocketException);
    mpSocket->exceptionWork().start();
    mpSocket->readableWork().stop();
    mpSocket->writableWork().stop();
}

cNetAbstractConnection::~cNetAbstractConnection()
{
    nstd::cLife::end(mpLives);
    try {
        try {
            invalidate();
        } catch (nstd::cAbstractException const& error) {
            error.dump();
        }
    } catch (...) {
        npi::cDebugEntry(kSource, __LINE__) << "An exception has escaped from a slot of a dying connection!";
    }
}

void cNetAbstractConnection::take(npi::cWork& work, piVoid (cNetAbstractConnection::*step)())
{
    work.sigAction.connect(nrmi::slot(this, step));
    work.sigActionError().connect(nrmi::slot(this, &cNetAbstractConnection::sltException));
}

void cNetAbstractConnection::sendRef(tConstBytesRef const& data)
{
    requireIdle("$MTR$Network connection closed unexpectedly (1)!");
    nstd::cLife const life(mpLives);
    unsigned int const packet = miPacket;
    moTxView = data;
    try {
        startPacket();
    } catch (...) {
        if (life && miPacket == packet) // what a slot sends is not ours to drop
            clearTx();
        throw;
    }
}

void cNetAbstractConnection::send(tBytes const& data)
{
    requireIdle("$MTR$Network connection closed unexpectedly (2)!");
    maTxBuffer.setData(data.data(true), data.length());
    sendBuffer();
}

void cNetAbstractConnection::sendSwap(tBytes& data)
{
    requireIdle("$MTR$Network connection closed unexpectedly (3)!");
    maTxBuffer.swap(data);
    sendBuffer();
}

void cNetAbstractConnection::requireIdle(char const* closedText) const
{
    if (mbInvalid)
        raiseRuntime(makeMessage(closedText));
    if (isTxBusy())
        cNETExceptions::throwConnectionTxBusy();
}

void cNetAbstractConnection::sendBuffer()
{
    moTxView.set(maTxBuffer, 0);
    startPacket();
}

// A slot of sigPacketSent that sends the next packet gets here again, on the same stack.
void cNetAbstractConnection::startPacket()
{
    nstd::cLife const life(mpLives);
    miTxBytesLeft = moTxView.length();
    mbTxDeferred = miWritableSteps > kNestedSends;
    if (!mbTxDeferred)
        sltSocketWritable();
    if (!life)
        return;
    npi::cWork& work = mpSocket->writableWork();
    if (miTxBytesLeft == 0 && !mbTxDeferred)
        stopWhenStarted(work);
    else if (!work.isStarted())
        work.start();
}

void cNetAbstractConnection::receive(tBytes& target)
{
    if (mbInvalid)
        raiseRuntime(makeMessage("$MTR$Network connection closed unexpectedly! (4)"));
    mpRxPacket = &target;
    miRxBytesLeft = target.size();
    mpSocket->readableWork().start();
}

void cNetAbstractConnection::receive(bool on)
{
    if (!on)
        mbContinuous = false;
    else if (!mbInvalid) {
        mbContinuous = true;
        mpSocket->readableWork().start();
    }
}

void cNetAbstractConnection::clearRx() noexcept
{
    mpRxPacket = nullptr;
    miRxBytesLeft = 0;
    if (!mbContinuous)
        stopQuietly(mpSocket->readableWork());
}

void cNetAbstractConnection::waitRx(unsigned int milliseconds)
{
    if (wait(milliseconds, &cNetAbstractConnection::isRxPending, &cNetAbstractConnection::sltSocketReadable,
             "$MTR$Network connection closed unexpectedly! (4)"))
        mpRxPacket = nullptr;
}

void cNetAbstractConnection::flushTx(unsigned int milliseconds)
{
    wait(milliseconds, &cNetAbstractConnection::isTxBusy, &cNetAbstractConnection::sltSocketWritable,
         "$MTR$Network connection closed unexpectedly! (w)");
}

// Runs `step` while `isPending`; false when the connection has gone meanwhile.
bool cNetAbstractConnection::wait(unsigned int milliseconds,
                                  bool (cNetAbstractConnection::*isPending)() const,
                                  piVoid (cNetAbstractConnection::*step)(), char const* deadText)
{
    nstd::cLife const life(mpLives);
    auto start = npi::cSysTime::utcTime();
    bool const wasInvalid = mbInvalid;
    while ((this->*isPending)()) {
        try {
            unsigned int const moved = miTxMoved + miRxMoved;
            (this->*step)();
            if (life && miTxMoved + miRxMoved == moved && (this->*isPending)())
                requireAlive(deadText);
        } catch (nstd::cAbstractException const& cause) {
            if (wasInvalid)
                cNETExceptions::throwConnectionClosedUnexpectedly(cause);
            cNETExceptions::throwUnableToCompleteConnectionClosedUnexpectedly(cause);
        }
        if (!life)
            return false;
        if (milliseconds != 0 && elapsedMs(start) > milliseconds)
            cNETExceptions::throwTransferTimeout(milliseconds);
    }
    return true;
}

// Raises when no step will ever move anything again.
void cNetAbstractConnection::requireAlive(char const* deadText)
{
    nstd::cLife const life(mpLives);
    bool const isClosed = !mbInvalid && mpSocket->isClosed();
    if (isClosed)
        sltSocketException();
    if (life && (isClosed || mbInvalid))
        raiseRuntime(makeMessage(deadText));
}

bool cNetAbstractConnection::canRead() const
{
    return !mbInvalid && mpSocket->canRead();
}

bool cNetAbstractConnection::isTxBusy() const
{
    return !moTxView.empty() || mbTxDeferred;
}

void cNetAbstractConnection::clearTx() noexcept
{
    dropPacket();
    stopQuietly(mpSocket->writableWork());
}

void cNetAbstractConnection::dropPacket() noexcept
{
    moTxView.clear();
    miTxBytesLeft = 0;
    mbTxDeferred = false;
    ++miPacket;
}

unsigned int cNetAbstractConnection::txBytesLeft() const
{
    return miTxBytesLeft;
}

cNetAbstractAddress& cNetAbstractConnection::peer() noexcept
{
    return mpSocket->remoteAddress();
}

bool cNetAbstractConnection::isInvalid() const
{
    return mbInvalid;
}

void cNetAbstractConnection::schedule(npi::cWorkQueue* queue)
{
    if (mbInvalid)
        return;
    npi::cWorkQueue& used = queue ? *queue : npi::system().workQueue;
    mpSocket->schedule(used);
    used.addJob(mDelayedInvalidation);
}

void cNetAbstractConnection::tryTransfer()
{
    nstd::cLife const life(mpLives);
    sltSocketReadable();
    if (life)
        sltSocketWritable();
}

void cNetAbstractConnection::invalidate()
{
    nstd::cLife const life(mpLives);
    auto const tell = [this] {
        if (mbInvalidationTold)
            return;
        mbInvalidationTold = true;
        sigInvalidated(*this);
    };
    auto const close = [this] {
        mbInvalid = true;
        mpSocket->close();
    };
    inAnyCase(life, tell, close);
}

void cNetAbstractConnection::invalidateLater()
{
    if (mDelayedInvalidation.isStarted())
        return;
    noteDrain();
    mDelayedInvalidation.start();
}

void cNetAbstractConnection::noteDrain()
{
    mDrainTime = npi::cSysTime::utcTime();
    miDrainMark = miTxMoved;
}

cNetAbstractConnection::tErrorSignal& cNetAbstractConnection::errorHandler()
{
    return madeOnFirstUse(mpErrorHandler);
}

cNetAbstractConnection::tDataReceivedFromSignal& cNetAbstractConnection::sigDataReceivedFrom()
{
    if (!mpSigDataReceivedFrom) {
        mpSender = mpSocket->remoteAddress().clone();
        madeOnFirstUse(mpSigDataReceivedFrom);
    }
    return *mpSigDataReceivedFrom;
}

piVoid cNetAbstractConnection::sltSocketReadable()
{
    for (unsigned int round = 0; round < kReadRounds && !mbInvalid; ++round) {
        if (!isRxPending()) {
            if (mbContinuous)
                receiveAvailable();
            else
                stopWhenStarted(mpSocket->readableWork());
            break;
        }
        if (fillTarget()) {
            deliver(*mpRxPacket);
            break;
        }
    }
    return piVoid();
}

void cNetAbstractConnection::receiveAvailable()
{
    tBytes data;
    provideSender();
    if (!mpSocket->readAvailable(data, mpSender.get()))
        return;
    ++miRxMoved;
    deliver(data);
}

// Reads what there is of the explicit receive; true when that is complete.
bool cNetAbstractConnection::fillTarget()
{
    NEL_ASSERT_AT(mpRxPacket != 0, kSource, 231);
    if (mpRxPacket->size() < miRxBytesLeft)
        miRxBytesLeft = mpRxPacket->size();
    provideSender();
    while (miRxBytesLeft != 0) {
        char* const data = mpRxPacket->data() + (mpRxPacket->size() - miRxBytesLeft);
        unsigned int const asked = miRxBytesLeft;
        unsigned int const count = mpSocket->read(data, asked, mpSender.get());
        requireBounded(count, asked);
        if (count == 0)
            return false;
        miRxBytesLeft -= count;
        ++miRxMoved;
    }
    return true;
}

// A sender that an emission in progress has taken is replaced.
void cNetAbstractConnection::provideSender()
{
    if (mpSigDataReceivedFrom && !mpSender)
        mpSender = mpSocket->remoteAddress().clone();
}

// The slots of the first signal may end the life of the target and read on from another sender: those of the
// second one get what is kept here.
void cNetAbstractConnection::deliver(tBytes const& data)
{
    nstd::cLife const life(mpLives);
    nstd::tAutoPtr<cNetAbstractAddress> sender(mpSender);
    bool const isCopied = sender && &data == mpRxPacket && sigDataReceived.isConnected();
    tBytes copy;
    if (isCopied)
        copy = data;
    sigDataReceived(*this, data);
    if (life && mpSigDataReceivedFrom && sender)
        (*mpSigDataReceivedFrom)(*this, isCopied ? copy : data, *sender);
    if (life && !mpSender)
        mpSender = sender;
}

piVoid cNetAbstractConnection::sltSocketWritable()
{
    nstd::cLife const life(mpLives);
    ++miWritableSteps;
    inAnyCase(
        life, [this] { writePacket(); }, [this] { --miWritableSteps; });
    return piVoid();
}

// Ends when the packet is sent, or a slot has dropped or replaced it.
void cNetAbstractConnection::writePacket()
{
    nstd::cLife const life(mpLives);
    unsigned int const packet = miPacket;
    for (unsigned int round = 0; round < kWriteRounds; ++round) {
        if (mbInvalid)
            raiseRuntime(makeMessage("$MTR$Network connection closed unexpectedly! (w)"));
        if (miTxBytesLeft != 0) {
            if (!handleTxPacket(*mpSocket, moTxView, miTxBytesLeft))
                return;
            ++miTxMoved;
            sigChunkSent();
            if (!life || miPacket != packet)
                return;
        }
        if (miTxBytesLeft == 0) {
            dropPacket();
            stopWhenStarted(mpSocket->writableWork());
            sigPacketSent();
            return;
        }
    }
}

bool cNetAbstractConnection::handleTxPacket(cNetAbstractSocket& socket, tConstBytesRef const& packet,
                                            unsigned int& bytesLeft)
{
    if (bytesLeft == 0)
        return false;
    unsigned int const limit = socket.maxChunkSize();
    unsigned int const chunk = bytesLeft < limit ? bytesLeft : limit;
    unsigned int const accepted =
        socket.write(packet.proxyProvideData(packet.length() - bytesLeft, chunk), chunk);
    requireBounded(accepted, chunk);
    bytesLeft -= accepted;
    return accepted != 0;
}

void cNetAbstractConnection::requireBounded(unsigned int returned, unsigned int given)
{
    if (returned > given)
        nstd::raiseBug(makeMessage(
            "$MTR$Bug in socket implementation: Returned size (%returned%) > given size (%given%)!", returned,
            given));
}

piVoid cNetAbstractConnection::sltSocketException()
{
    if (mbInvalid)
        return piVoid();
    if (!mpSocket->isClosed()) {
        mpSocket->handleException();
        return piVoid();
    }
    clearTx();
    mbContinuous = false;
    clearRx();
    nstd::cLife const life(mpLives);
    auto const tell = [this] {
        if (mbClosedReported)
            return;
        mbClosedReported = true;
        sigClosed(*this);
    };
    inAnyCase(life, tell, [this] { invalidateLater(); });
    return piVoid();
}

piVoid cNetAbstractConnection::sltException(nstd::cAbstractException const& error, bool)
{
    clearTx();
    nstd::cRuntimeException wrapped(makeMessage("$MTR$Network connection error!"));
    wrapped.link(error);
    if (!mpErrorHandler)
        throw wrapped;
    return (*mpErrorHandler)(*this, wrapped);
}

// A peer that does not read must not keep the connection for ever.
piVoid cNetAbstractConnection::sltDelayedSocketDestroy()
{
    if (!mbInvalid && isTxBusy()) {
        if (miTxMoved != miDrainMark)
            noteDrain();
        if (elapsedMs(mDrainTime) < kDrainLimitMs) {
            mDelayedInvalidation.start(kDrainRetryMs, npi::cWork::SingleTask);
            return piVoid();
        }
        clearTx();
    }
    invalidate();
    return piVoid();
}

} // namespace nce
