#include "nel_core/rmi/cPublicSlot.h"

#include <utility>

#include "nel_core/rmi/cAbstractSlotCall.h"
#include "nel_core/sa/cAbstractDeserializer.h"
#include "nel_core/sa/cAbstractSerializer.h"
#include "nel_core/std/piAssert.h"

namespace nrmi {

cPublicSlot::cPublicSlot() = default;

cPublicSlot::cPublicSlot(nstd::cAsciiString const& name, nstd::cAsciiString const& returnTypeName,
                         nstd::cAsciiString const& paramTypeNames, nstd::cAsciiString const& description,
                         nstd::tAutoPtr<cAbstractSlotCall> slot)
    : cPublicDescription(name, returnTypeName, paramTypeNames, description),
      mpSlot(std::move(slot))
{
    NEL_ASSERT(mpSlot.get() != 0);
}

cPublicSlot::cPublicSlot(nsa::cAbstractDeserializer& deserializer, nstd::tAutoPtr<cAbstractSlotCall> slot)
    : mpSlot(std::move(slot))
{
    NEL_ASSERT(mpSlot.get() != 0);
    *this << deserializer;
}

cPublicSlot::~cPublicSlot() = default;

nsa::cAbstractSerializer& cPublicSlot::operator>>(nsa::cAbstractSerializer& serializer) const
{
    storeTexts(serializer);
    storeValues(serializer);
    return serializer;
}

nsa::cAbstractDeserializer& cPublicSlot::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    cPublicSlot loaded;
    loaded.loadTexts(deserializer);
    loaded.loadValues(deserializer);
    swap(loaded);
    return deserializer;
}

} // namespace nrmi
