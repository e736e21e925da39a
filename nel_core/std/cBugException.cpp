#include "nel_core/std/cBugException.h"

#include <utility>

#include "nel_core/std/raise.h"

namespace nstd {

cBugException::cBugException() : cBugException(nucs::cLIMessage(), "unknown", 0) { }

cBugException::cBugException(nucs::cLIMessage message, char const* file, unsigned int line)
    : tExceptionLeaf("bug", tyBug, file, line),
      mMessage(std::move(message))
{
}

cBugException::~cBugException() = default;

cBugException& cBugException::operator=(cBugException other) noexcept
{
    swap(other);
    return *this;
}

void cBugException::swap(cBugException& other) noexcept
{
    cAbstractException::swap(other);
    mMessage.swap(other.mMessage);
}

void cBugException::throwAssertionFailed(char const* expression, char const* file, unsigned int line)
{
    raiseBug(makeMessage("$MTR$Assertion failed in file %file%:%line%. (%operation%)!",
                         file ? file : "unknown file", line, expression ? expression : "unknown"));
}

nucs::cLIMessage const* cBugException::liMessage() const
{
    return &mMessage;
}

void cBugException::setMsg(nucs::cLIMessage const& message)
{
    mMessage = message;
}

void cBugException::store(nsa::cAbstractSerializer& serializer) const
{
    cAbstractException::store(serializer);
    mMessage >> serializer;
}

void cBugException::load(nsa::cAbstractDeserializer& deserializer)
{
    cAbstractException::load(deserializer);
    mMessage << deserializer;
}

} // namespace nstd
