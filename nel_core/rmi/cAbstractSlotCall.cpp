#include "nel_core/rmi/cAbstractSlotCall.h"

#include <cstring>
#include <utility>

#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/piStackTrace.h"
#include "nel_core/rmi/cPublicSlot.h"
#include "nel_core/rmi/cRMIExceptions.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/piAssert.h"

namespace nrmi {
namespace {

// By name, so that references made in another shared object are recognised.
void requireResult(nsa::cReferenceFrame& frame, char const* mangledType, char const* type)
{
    auto& entry = frame.currentReference();
    char const* const found = entry.mangeledTypeName();
    if (found != mangledType && std::strcmp(found, mangledType) != 0)
        cRMIExceptions::throwWrongReturnType(type, entry.typeName());
}

} // namespace

cAbstractSlotCall::cWatch::cWatch(cAbstractSlotCall const* call) : mpCall(call)
{
    NEL_ASSERT(mpCall != 0);
    mpNext = mpCall->mpWatches;
    if (mpNext)
        mpNext->mpPrevious = this;
    mpCall->mpWatches = this;
}

cAbstractSlotCall::cWatch::~cWatch()
{
    if (!mpCall)
        return;
    (mpPrevious ? mpPrevious->mpNext : mpCall->mpWatches) = mpNext;
    if (mpNext)
        mpNext->mpPrevious = mpPrevious;
}

cAbstractSlotCall::cAbstractSlotCall(cConnectable& object, cAbstractSignal* signal) noexcept
    : mpObject(&object),
      mEntry(signal)
{
    if (signal)
        object.attach(mEntry);
}

cAbstractSlotCall::cAbstractSlotCall(cAbstractSlotCall const& other) noexcept : mpObject(other.mpObject) { }

cAbstractSlotCall::~cAbstractSlotCall()
{
    mEntry.unlink();
    for (auto* watch = mpWatches; watch; watch = watch->mpNext)
        watch->mpCall = nullptr;
}

void cAbstractSlotCall::reAssign(cAbstractSignal* signal) noexcept
{
    if (!mEntry.mpSignal)
        return;
    if (signal) {
        mpObject->reAssign(*mEntry.mpSignal, *signal);
    } else {
        mEntry.unlink();
        mEntry.mpSignal = nullptr;
    }
}

cPublicSlot& cAbstractSlotCall::registerSlotByInterface(nstd::cAsciiString const& name,
                                                        nstd::cAsciiString const& returnTypeName,
                                                        nstd::cAsciiString const& paramTypeNames,
                                                        nstd::cAsciiString const& description,
                                                        nstd::tAutoPtr<cAbstractSlotCall> slot) const
{
    return mpObject->registerSlot(name, returnTypeName, paramTypeNames, description, std::move(slot));
}

nstd::cAsciiString const& cAbstractSlotCall::publicSlotName() const
{
    if (!mpPublicSlot)
        cRMIExceptions::throwSlotNotPublic();
    return mpPublicSlot->name();
}

bool cAbstractSlotCall::matchSlotOfObject(cConnectable const* object) const
{
    return object == mpObject;
}

void cAbstractSlotCall::call(nsa::cReferenceFrame&) const
{
    npi::cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "DummyCall (1)";
}

void cAbstractSlotCall::call(nsa::cAbstractDeserializer&, nsa::cAbstractSerializer&) const
{
    auto const trace = piStackTrace(128);
    npi::cDebugEntry(NEL_SOURCE_TAG, __LINE__) << trace << "DummyCall (2)";
}

void cAbstractSlotCall::checkFrame(nsa::cReferenceFrame& frame, unsigned int count,
                                   char const* mangledResultType, char const* resultType)
{
    frame.restartReading();
    for (unsigned int i = 0; i < count; ++i)
        frame.skipNext();
    try {
        requireResult(frame, mangledResultType, resultType);
    } catch (nstd::cAbstractException const& cause) {
        if (count == 0)
            throw;
        cRMIExceptions::throwMissingReturnValue(cause);
    }
    frame.restartReading();
}

} // namespace nrmi
