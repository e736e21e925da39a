#include "nel_core/rmi/cPublicDescription.h"

#include "nel_core/sa/saOperators.h"

namespace nrmi {

cPublicDescription::cPublicDescription() = default;

cPublicDescription::cPublicDescription(nstd::cAsciiString const& name,
                                       nstd::cAsciiString const& returnTypeName,
                                       nstd::cAsciiString const& paramTypeNames,
                                       nstd::cAsciiString const& description)
    : msName(name),
      msReturnTypeName(returnTypeName),
      msParamTypeNames(paramTypeNames),
      msDescription(description)
{
}

cPublicDescription::~cPublicDescription() = default;

void cPublicDescription::swap(cPublicDescription& other) noexcept
{
    msName.swap(other.msName);
    msReturnTypeName.swap(other.msReturnTypeName);
    msParamTypeNames.swap(other.msParamTypeNames);
    msDescription.swap(other.msDescription);
    maParameters.swap(other.maParameters);
    mReturnValue.swap(other.mReturnValue);
}

cSSValue& cPublicDescription::addParameter()
{
    return maParameters.append(cSSValue());
}

void cPublicDescription::storeTexts(nsa::cAbstractSerializer& serializer) const
{
    serializer.store(msName);
    serializer.store(msReturnTypeName);
    serializer.store(msParamTypeNames);
    serializer.store(msDescription);
}

void cPublicDescription::storeValues(nsa::cAbstractSerializer& serializer) const
{
    maParameters >> serializer;
    mReturnValue >> serializer;
}

void cPublicDescription::loadTexts(nsa::cAbstractDeserializer& deserializer)
{
    deserializer.load(msName);
    deserializer.load(msReturnTypeName);
    deserializer.load(msParamTypeNames);
    deserializer.load(msDescription);
}

void cPublicDescription::loadValues(nsa::cAbstractDeserializer& deserializer)
{
    maParameters << deserializer;
    mReturnValue << deserializer;
}

} // namespace nrmi
