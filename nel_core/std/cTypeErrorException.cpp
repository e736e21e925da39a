#include "nel_core/std/cTypeErrorException.h"

#include <utility>

#include "nel_core/std/raise.h"

namespace nstd {

cTypeErrorException::cTypeErrorException(cAsciiString const& type)
    : cTypeErrorException(type, makeMessage("$MTR$Type error while deserializing of %type%!", type))
{
}

cTypeErrorException::cTypeErrorException(cAsciiString const& type, nucs::cLIMessage message)
    : tExceptionLeaf(std::move(message)),
      msType(type)
{
}

cTypeErrorException::~cTypeErrorException() = default;

cTypeErrorException& cTypeErrorException::operator=(cTypeErrorException other) noexcept
{
    swap(other);
    return *this;
}

void cTypeErrorException::swap(cTypeErrorException& other) noexcept
{
    cBugException::swap(other);
    msType.swap(other.msType);
}

} // namespace nstd
