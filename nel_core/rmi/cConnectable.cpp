#include "nel_core/rmi/cConnectable.h"

#include "nel_core/rmi/cAbstractSignal.h"
#include "nel_core/rmi/cAbstractSlotCall.h"

namespace nrmi {
namespace {

// Sets a flag for a scope and puts the old value back, so that scopes may nest.
class cFlagGuard {
public:
    explicit cFlagGuard(bool& flag) : mbFlag(flag), mbOld(flag) { mbFlag = true; }
    cFlagGuard(cFlagGuard const&) = delete;
    cFlagGuard& operator=(cFlagGuard const&) = delete;
    ~cFlagGuard() { mbFlag = mbOld; }

private:
    bool& mbFlag;
    bool const mbOld;
};

} // namespace

void cSignalEntry::linkBefore(cSignalEntry& other) noexcept
{
    mpPrevious = other.mpPrevious;
    mpNext = &other;
    mpPrevious->mpNext = this;
    other.mpPrevious = this;
}

void cSignalEntry::unlink() noexcept
{
    mpPrevious->mpNext = mpNext;
    mpNext->mpPrevious = mpPrevious;
    mpPrevious = mpNext = this;
}

cConnectable::cConnectable() noexcept = default;

cConnectable::~cConnectable()
{
    detachAllSignals();
}

void cConnectable::notifySignalAttached(cAbstractSignal& signal)
{
    auto* const entry = new cSignalEntry(&signal);
    entry->mbOwned = true;
    attach(*entry);
}

void cConnectable::notifySignalDetached(cAbstractSignal& signal) noexcept
{
    if (mbDetaching)
        return;
    for (auto* entry = mAttached.mpNext; entry != &mAttached;) {
        auto* const next = entry->mpNext;
        if (entry->mpSignal == &signal)
            remove(*entry);
        entry = next;
    }
}

void cConnectable::reAssign(cAbstractSignal& old, cAbstractSignal& replacement) noexcept
{
    for (auto* entry = mAttached.mpNext; entry != &mAttached; entry = entry->mpNext) {
        if (entry->mpSignal == &old)
            entry->mpSignal = &replacement;
    }
}

void cConnectable::detachAllSignals()
{
    cFlagGuard const detaching(mbDetaching);
    // Each turn takes the first entry out before it calls the signal: whatever dies in the call takes its own
    // entries out of the list, and no place in the list is remembered.
    while (!mAttached.isAlone()) {
        cAbstractSignal& signal = *mAttached.mpNext->mpSignal;
        remove(*mAttached.mpNext);
        signal.notifyConnectableDestroyed(*this);
    }
}

void cConnectable::clear()
{
    detachAllSignals();
}

bool cConnectable::operator==(cAbstractSlotCall const* call) const
{
    return call->matchSlotOfObject(this);
}

void cConnectable::remove(cSignalEntry& entry) noexcept
{
    entry.unlink();
    if (entry.mbOwned)
        delete &entry;
}

} // namespace nrmi
