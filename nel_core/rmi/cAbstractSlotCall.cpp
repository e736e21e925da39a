#include "nel_core/rmi/cAbstractSlotCall.h"

namespace nrmi {

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

bool cAbstractSlotCall::matchSlotOfObject(cConnectable const* object) const
{
    return object == mpObject;
}

} // namespace nrmi
