#include "nel_core/ncs/cInterfaceDesc.h"

#include <utility>

#include "nel_core/ncs/cNCSExceptions.h"
#include "nel_core/sa/saOperators.h"

namespace ncs {

cInterfaceDesc::cInterfaceDesc() = default;

cInterfaceDesc::cInterfaceDesc(InterfaceType type, nstd::cAsciiString const& name,
                               nstd::cAsciiString const& author, unsigned int version,
                               nstd::cAsciiString const& description)
    : meType(type),
      msName(name),
      msAuthor(author),
      miVersion(version),
      msDescription(description)
{
}

cInterfaceDesc& cInterfaceDesc::operator=(cInterfaceDesc other) noexcept
{
    swap(other);
    return *this;
}

void cInterfaceDesc::swap(cInterfaceDesc& other) noexcept
{
    std::swap(meType, other.meType);
    msName.swap(other.msName);
    msAuthor.swap(other.msAuthor);
    std::swap(miVersion, other.miVersion);
    msDescription.swap(other.msDescription);
}

bool cInterfaceDesc::operator==(cInterfaceDesc const& other) const noexcept
{
    return meType == other.meType && msName == other.msName && msAuthor == other.msAuthor
           && miVersion == other.miVersion;
}

nsa::cAbstractSerializer& cInterfaceDesc::operator>>(nsa::cAbstractSerializer& serializer) const
{
    static_cast<unsigned int>(meType) >> serializer;
    msName >> serializer;
    msAuthor >> serializer;
    miVersion >> serializer;
    return msDescription >> serializer;
}

nsa::cAbstractDeserializer& cInterfaceDesc::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    unsigned int type = 0;
    cInterfaceDesc loaded;
    type << deserializer;
    loaded.msName << deserializer;
    loaded.msAuthor << deserializer;
    loaded.miVersion << deserializer;
    loaded.msDescription << deserializer;
    if (type > itRequired)
        cNCSExceptions::throwInterfaceLoadError(loaded.msName);
    loaded.meType = static_cast<InterfaceType>(type);
    swap(loaded);
    return deserializer;
}

} // namespace ncs
