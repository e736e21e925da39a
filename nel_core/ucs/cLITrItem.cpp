#include "nel_core/ucs/cLITrItem.h"

#include "nel_core/sa/saOperators.h"

namespace nucs {

cLITrItem::cLITrItem() = default;

cLITrItem::cLITrItem(nstd::cAsciiString const& messageKey, cString const& text)
    : key(messageKey),
      translation(text)
{
    fitPools();
}

nsa::cAbstractSerializer& cLITrItem::operator>>(nsa::cAbstractSerializer& serializer) const
{
    key >> serializer;
    translation >> serializer;
    return serializer;
}

nsa::cAbstractDeserializer& cLITrItem::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    key << deserializer;
    translation << deserializer;
    fitPools();
    return deserializer;
}

void cLITrItem::fitPools()
{
    key.optimizeMemory();
    translation.optimizeMemory();
}

} // namespace nucs
