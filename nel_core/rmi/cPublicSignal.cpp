#include "nel_core/rmi/cPublicSignal.h"

#include "nel_core/sa/cAbstractDeserializer.h"
#include "nel_core/sa/cAbstractSerializer.h"

namespace nrmi {

cPublicSignal::cPublicSignal() = default;

cPublicSignal::cPublicSignal(nstd::cAsciiString const& name, nstd::cAsciiString const& returnTypeName,
                             nstd::cAsciiString const& paramTypeNames, cAbstractSignal::InterfaceType type,
                             nstd::cAsciiString const& description, cAbstractSignal& signal)
    : cPublicDescription(name, returnTypeName, paramTypeNames, description),
      meType(type),
      mpSignal(&signal)
{
}

cPublicSignal::cPublicSignal(nsa::cAbstractDeserializer& deserializer, cAbstractSignal& signal)
    : mpSignal(&signal)
{
    *this << deserializer;
}

cPublicSignal::~cPublicSignal()
{
    if (mpLinked)
        mpLinked->unlink(*this);
}

nsa::cAbstractSerializer& cPublicSignal::operator>>(nsa::cAbstractSerializer& serializer) const
{
    storeTexts(serializer);
    serializer.store(static_cast<unsigned int>(meType));
    storeValues(serializer);
    return serializer;
}

nsa::cAbstractDeserializer& cPublicSignal::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    parameters().clear();
    cPublicSignal loaded;
    unsigned int type = 0;
    loaded.loadTexts(deserializer);
    deserializer.load(type);
    loaded.loadValues(deserializer);
    swap(loaded);
    meType = static_cast<cAbstractSignal::InterfaceType>(type);
    return deserializer;
}

} // namespace nrmi
