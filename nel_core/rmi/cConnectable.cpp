#include "nel_core/rmi/cConnectable.h"

#include <utility>

#include "nel_core/rmi/cAbstractRMIFactory.h"
#include "nel_core/rmi/cAbstractSlotCall.h"
#include "nel_core/rmi/cPublicSignal.h"
#include "nel_core/rmi/cPublicSlot.h"
#include "nel_core/rmi/cRMIExceptions.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/tPtrList.h"

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

char const* const kUnknownTypes = "(?)";

template<typename T>
nstd::tPtrList<T>& createOnDemand(nstd::tAutoPtr<nstd::tPtrList<T>>& list)
{
    if (!list) {
        list.reset(new nstd::tPtrList<T>, nstd::tAutoPtrType::ptObject);
        list->setGuardMode(nstd::tPtrList<T>::gmOwn);
    }
    return *list;
}

template<typename T>
T& append(nstd::tPtrList<T>& list, nstd::tAutoPtr<T> appended)
{
    T& object = *appended;
    list.guardedInsert(list.end(), appended);
    return object;
}

// Slots and signals are deleted one after the other, and each may look at the list or clear it itself.
template<typename T>
void clearIfMade(nstd::tAutoPtr<nstd::tPtrList<T>> const& list)
{
    if (list)
        list->clear();
}

template<typename T>
T* firstOfName(nstd::tPtrList<T> const* list, nstd::cAsciiString const& name)
{
    if (!list)
        return nullptr;
    for (T* const entry : *list) {
        if (entry->matchName(name))
            return entry;
    }
    return nullptr;
}

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
    clear();
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
    clearIfMade(mpPublicSlots);
    clearIfMade(mpPublicSignals);
}

cPublicSlot& cConnectable::registerSlot(nstd::cAsciiString const& name,
                                        nstd::cAsciiString const& returnTypeName,
                                        nstd::cAsciiString const& paramTypeNames,
                                        nstd::cAsciiString const& description,
                                        nstd::tAutoPtr<cAbstractSlotCall> slot)
{
    return registerSlot(nstd::tAutoPtr<cPublicSlot>(
        new cPublicSlot(name, returnTypeName, paramTypeNames, description, std::move(slot))));
}

cPublicSlot& cConnectable::registerSlot(nstd::tAutoPtr<cPublicSlot> publicSlot)
{
    NEL_ASSERT(publicSlot.get() != 0);
    auto& registered = append(codRSlots(), std::move(publicSlot));
    registered.slot()->setPublicSlot(&registered);
    return registered;
}

cPublicSlot& cConnectable::registerRemoteSlot(nstd::cAsciiString const& name,
                                              nstd::tAutoPtr<cAbstractSlotCall> slot)
{
    return registerSlot(name, nstd::cAsciiString(), nstd::cAsciiString(), "tmp remoteslot", std::move(slot));
}

cPublicSlot& cConnectable::registerRemoteSlot(nsa::cAbstractDeserializer& deserializer,
                                              cAbstractRMIFactory& factory)
{
    return registerSlot(
        nstd::tAutoPtr<cPublicSlot>(new cPublicSlot(deserializer, factory.createRemoteSlotCall(*this))));
}

cPublicSignal& cConnectable::registerSignal(nstd::cAsciiString const& name,
                                            nstd::cAsciiString const& returnTypeName,
                                            nstd::cAsciiString const& paramTypeNames,
                                            cAbstractSignal::InterfaceType type,
                                            nstd::cAsciiString const& description, cAbstractSignal& signal)
{
    return link(nstd::tAutoPtr<cPublicSignal>(
                    new cPublicSignal(name, returnTypeName, paramTypeNames, type, description, signal)),
                signal);
}

cPublicSignal& cConnectable::registerRemoteSignal(nsa::cAbstractDeserializer& deserializer,
                                                  cAbstractRMIFactory& factory)
{
    auto& signal = factory.createRemoteSignal(miIndex);
    return link(nstd::tAutoPtr<cPublicSignal>(new cPublicSignal(deserializer, signal)), signal);
}

// The call is the last thing done with this object, which may be gone afterwards.
void cConnectable::invokeIndirectSlot(nstd::cAsciiString const& name, nsa::cReferenceFrame& frame) const
{
    auto const* const slot = tryFindSlot(name);
    if (!slot)
        cRMIExceptions::throwNoSuchSlot(name, frame);
    slot->call(frame);
}

void cConnectable::invokeIndirectRemoteSlot(nstd::cAsciiString const& name,
                                            nsa::cAbstractDeserializer& arguments,
                                            nsa::cAbstractSerializer& results) const
{
    findPublicSlot(name)->slot()->call(arguments, results);
}

cAbstractSignal& cConnectable::findSignal(nstd::cAsciiString const& name)
{
    auto* const signal = findPublicSignal(name)->signal();
    if (!signal)
        cRMIExceptions::throwNoSuchSignal(name);
    return *signal;
}

cPublicSignal* cConnectable::findPublicSignal(nstd::cAsciiString const& name) const
{
    auto* const found = firstOfName(mpPublicSignals.get(), name);
    if (!found)
        cRMIExceptions::throwNoSuchSignal(name);
    return found;
}

cPublicSlot* cConnectable::findPublicSlot(nstd::cAsciiString const& name) const
{
    auto* const found = firstOfName(mpPublicSlots.get(), name);
    if (!found)
        cRMIExceptions::throwNoSuchSlot(name, kUnknownTypes);
    return found;
}

cAbstractSlotCall* cConnectable::tryFindSlot(nstd::cAsciiString const& name) const
{
    auto* const found = firstOfName(mpPublicSlots.get(), name);
    return found ? found->slot() : nullptr;
}

cPublicSlot* cConnectable::tryFindPublicSlot(cAbstractSlotCall const& slot) const
{
    if (!mpPublicSlots)
        return nullptr;
    for (auto* const publicSlot : *mpPublicSlots) {
        if (publicSlot->slot() == &slot)
            return publicSlot;
    }
    return nullptr;
}

nstd::cAsciiString cConnectable::publicSlotName(cAbstractSlotCall const& slot) const
{
    auto const* const found = tryFindPublicSlot(slot);
    return found ? found->name() : nstd::cAsciiString("unknown");
}

nstd::tPtrList<cPublicSlot>& cConnectable::codRSlots()
{
    return createOnDemand(mpPublicSlots);
}

nstd::tPtrList<cPublicSignal>& cConnectable::codRSignals()
{
    return createOnDemand(mpPublicSignals);
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

cPublicSignal& cConnectable::link(nstd::tAutoPtr<cPublicSignal> publicSignal, cAbstractSignal& signal)
{
    auto& registered = append(codRSignals(), std::move(publicSignal));
    signal.setPublicSignal(&registered);
    return registered;
}

// Takes back what has been registered last.
void cConnectable::withdraw(cPublicSignal& publicSignal)
{
    for (auto at = codRSignals().begin(); at != codRSignals().end(); ++at) {
        if (*at == &publicSignal) {
            codRSignals().erase(at);
            return;
        }
    }
}

} // namespace nrmi
