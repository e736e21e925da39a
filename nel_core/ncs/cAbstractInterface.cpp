#include "nel_core/ncs/cAbstractInterface.h"

#include "nel_core/rmi/cPublicSignal.h"
#include "nel_core/rmi/cPublicSlot.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/tPtrList.h"

namespace ncs {
namespace {

template<typename T>
void storeAll(nstd::tPtrList<T> const* published, nsa::cAbstractSerializer& serializer)
{
    nsa::cContext context(serializer.newContext(nullptr));
    if (published) {
        for (T const* const description : *published)
            *description >> serializer;
    }
    context.release();
}

// Every registration consumes what it is made of, so that the stream's own size bounds their number.
template<typename Register>
void loadAll(nsa::cAbstractDeserializer& deserializer, Register const& registerNext)
{
    nsa::cContext context(deserializer.getContext(nullptr));
    while (!deserializer.eoc())
        registerNext();
    context.release();
}

} // namespace

cAbstractInterface::cAbstractInterface(cInterfaceDesc const& desc) : mDesc(desc)
{
    sigInterfaceEvent.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
}

cAbstractInterface::~cAbstractInterface() = default;

bool cAbstractInterface::matches(cInterfaceDesc const& desc) const noexcept
{
    return desc.type() != mDesc.type() && desc.name() == mDesc.name();
}

void cAbstractInterface::store(nsa::cAbstractSerializer& serializer) const
{
    mDesc >> serializer;
    storeAll(hasPublicSlots(), serializer);
    storeAll(hasPublicSignals(), serializer);
}

void cAbstractInterface::load(nsa::cAbstractDeserializer& deserializer, nrmi::cAbstractRMIFactory& factory)
{
    clear();
    mDesc << deserializer;
    loadAll(deserializer, [&] { registerRemoteSlot(deserializer, factory); });
    loadAll(deserializer, [&] { registerRemoteSignal(deserializer, factory); });
}

} // namespace ncs
