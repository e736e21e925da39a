#include "nel_core/ucs/cLIItem.h"

#include "nel_core/sa/saOperators.h"

nsa::cAbstractSerializer& cLIItem::operator>>(nsa::cAbstractSerializer& serializer) const
{
    name >> serializer;
    value >> serializer;
    return static_cast<unsigned int>(type) >> serializer;
}

nsa::cAbstractDeserializer& cLIItem::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    unsigned int number = 0;
    name << deserializer;
    value << deserializer;
    number << deserializer;
    type = static_cast<liType>(number); // any number: what a later version writes is kept
    return deserializer;
}
