#include "nel_core/std/cOutOfBoundsException.h"

#include <utility>

#include "nel_core/std/raise.h"

namespace nstd {
namespace {

nucs::cLIMessage messageFor(char const* container, char const* operation)
{
    if (!container)
        return makeMessage("$MTR$Out of bounds condition detected!");
    if (!operation)
        return makeMessage("$MTR$Out of bounds condition detected in \"%container%\"!", container);
    return makeMessage(
        "$MTR$Out of bounds condition detected in \"%container%\" while executing \"%operation%\"!",
        container, operation);
}

} // namespace

cOutOfBoundsException::cOutOfBoundsException(char const* container, char const* operation)
    : tExceptionLeaf(messageFor(container, operation)),
      msContainer(container),
      msOperation(operation)
{
}

cOutOfBoundsException::~cOutOfBoundsException() = default;

cOutOfBoundsException& cOutOfBoundsException::operator=(cOutOfBoundsException other) noexcept
{
    swap(other);
    return *this;
}

void cOutOfBoundsException::swap(cOutOfBoundsException& other) noexcept
{
    cBugException::swap(other);
    msContainer.swap(other.msContainer);
    msOperation.swap(other.msOperation);
}

} // namespace nstd
