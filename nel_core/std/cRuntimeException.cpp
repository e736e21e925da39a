#include "nel_core/std/cRuntimeException.h"

#include <utility>

namespace nstd {

cRuntimeException::cRuntimeException() : cRuntimeException(nucs::cLIMessage(), "unknown", 0) { }

cRuntimeException::cRuntimeException(nucs::cLIMessage message, char const* file, unsigned int line)
    : tExceptionLeaf("runtime", tyRuntime, file, line),
      mMessage(std::move(message))
{
}

cRuntimeException::~cRuntimeException() = default;

cRuntimeException& cRuntimeException::operator=(cRuntimeException other) noexcept
{
    swap(other);
    return *this;
}

void cRuntimeException::swap(cRuntimeException& other) noexcept
{
    cAbstractException::swap(other);
    mMessage.swap(other.mMessage);
}

nucs::cLIMessage const* cRuntimeException::liMessage() const
{
    return &mMessage;
}

void cRuntimeException::setMsg(nucs::cLIMessage const& message)
{
    mMessage = message;
}

void cRuntimeException::store(nsa::cAbstractSerializer& serializer) const
{
    cAbstractException::store(serializer);
    mMessage >> serializer;
}

void cRuntimeException::load(nsa::cAbstractDeserializer& deserializer)
{
    cAbstractException::load(deserializer);
    mMessage << deserializer;
}

} // namespace nstd
