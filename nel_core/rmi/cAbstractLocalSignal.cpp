#include "nel_core/rmi/cAbstractLocalSignal.h"

#include <utility>

#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/piStackTrace.h"
#include "nel_core/rmi/cRMIExceptions.h"
#include "nel_core/std/piAssert.h"

namespace nrmi {

cAbstractLocalSignal::~cAbstractLocalSignal()
{
    checkNIC();
    for (auto* emission = mpEmission; emission; emission = emission->mpOuter) {
        emission->mpSignal = nullptr;
        emission->mpNext = nullptr;
    }
    mpLast = nullptr;
    destroy(std::exchange(mpFirst, nullptr));
}

void cAbstractLocalSignal::notifyConnectableDestroyed(cConnectable& object)
{
    disconnect(object);
}

void cAbstractLocalSignal::connect(cConnectable&, nstd::cAsciiString const&, SlotResolving)
{
    cRMIExceptions::throwIndirectLocalConnection();
}

void cAbstractLocalSignal::disconnect(cConnectable const& object)
{
    destroy(takeCallsOf(object));
}

void cAbstractLocalSignal::addParameterInfo(cPublicSignal&) { }

void cAbstractLocalSignal::place(cAbstractSlotCall& call, ConnectionPolicy policy) noexcept
{
    if (policy == cpPrepend)
        prepend(call);
    else
        append(call);
}

void cAbstractLocalSignal::checkUnconnected() const
{
    if (invocationBehavior() == ibThrowUnconnected)
        cRMIExceptions::throwUnconnectedSignal();
}

// A destructor must not raise, and the warning is not worth more than the destruction.
void cAbstractLocalSignal::checkNIC() const noexcept
{
    if (!mpEmission)
        return;
    try {
        npi::cDebugEntry(NEL_SOURCE_TAG, __LINE__) << ">>>>>>>>> delete this situation in signal!"
                                                   << "\n"
                                                   << piStackTrace(128);
    } catch (...) {
    }
}

// The emissions that had come to the end go on with the new call.
void cAbstractLocalSignal::append(cAbstractSlotCall& call) noexcept
{
    (mpLast ? mpLast->mpNext : mpFirst) = &call;
    mpLast = &call;
    for (auto* emission = mpEmission; emission; emission = emission->mpOuter) {
        if (!emission->mpNext)
            emission->mpNext = &call;
    }
}

void cAbstractLocalSignal::prepend(cAbstractSlotCall& call) noexcept
{
    call.mpNext = mpFirst;
    mpFirst = &call;
    if (!mpLast)
        mpLast = &call;
}

// Takes the calls out before any of them is destroyed, and returns them linked.
cAbstractSlotCall* cAbstractLocalSignal::takeCallsOf(cConnectable const& object)
{
    cAbstractSlotCall* taken = nullptr;
    cAbstractSlotCall* last = nullptr;
    for (auto** link = &mpFirst; *link;) {
        auto* const call = *link;
        if (call->matchSlotOfObject(&object)) {
            stepOver(*call);
            *link = call->mpNext;
            call->mpNext = taken;
            taken = call;
        } else {
            last = call;
            link = &call->mpNext;
        }
    }
    mpLast = last;
    return taken;
}

// The emissions that would go on with a call that leaves go on behind it.
void cAbstractLocalSignal::stepOver(cAbstractSlotCall const& call) noexcept
{
    for (auto* emission = mpEmission; emission; emission = emission->mpOuter) {
        if (emission->mpNext == &call)
            emission->mpNext = call.mpNext;
    }
}

void cAbstractLocalSignal::destroy(cAbstractSlotCall* calls) noexcept
{
    while (calls) {
        auto* const call = calls;
        calls = call->mpNext;
        delete call;
    }
}

// The emissions around this one leave out what it calls from now on, and that only.
void cAbstractLocalSignal::cEmission::renewMarks() noexcept
{
    ++mpSignal->miMark;
    for (auto* emission = this; emission; emission = emission->mpOuter)
        emission->miMark = mpSignal->miMark;
}

void cAbstractLocalSignal::cEmission::markNext() noexcept
{
    while (mpNext && mpNext->miMark == miMark)
        mpNext = mpNext->mpNext;
    if (mpNext)
        mpNext->miMark = miMark;
}

} // namespace nrmi
