#include "nel_core/rmi/cSSValue.h"

#include <utility>

#include "nel_core/sa/cAbstractDeserializer.h"
#include "nel_core/sa/cAbstractSerializer.h"

namespace nrmi {

cSSValue::cSSValue() = default;
cSSValue::~cSSValue() = default;

void cSSValue::swap(cSSValue& other) noexcept
{
    msTypeName.swap(other.msTypeName);
    msDescription.swap(other.msDescription);
    std::swap(mbAlterable, other.mbAlterable);
    std::swap(mbVoid, other.mbVoid);
}

void cSSValue::set(nstd::cAsciiString const& typeName, bool alterable, bool isVoid)
{
    msTypeName = typeName;
    mbAlterable = alterable;
    mbVoid = isVoid;
}

void cSSValue::setDescription(nstd::cAsciiString const& description)
{
    msDescription = description;
}

bool cSSValue::operator==(cSSValue const& other) const
{
    return msTypeName == other.msTypeName && msDescription == other.msDescription
           && mbAlterable == other.mbAlterable && mbVoid == other.mbVoid;
}

nsa::cAbstractSerializer& cSSValue::operator>>(nsa::cAbstractSerializer& serializer) const
{
    serializer.store(msTypeName);
    serializer.store(msDescription);
    serializer.store(mbAlterable);
    serializer.store(mbVoid);
    return serializer;
}

nsa::cAbstractDeserializer& cSSValue::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    cSSValue loaded;
    deserializer.load(loaded.msTypeName);
    deserializer.load(loaded.msDescription);
    deserializer.load(loaded.mbAlterable);
    deserializer.load(loaded.mbVoid);
    swap(loaded);
    return deserializer;
}

} // namespace nrmi
