#include "nel_core/std/cTypeMissmatchException.h"

#include <utility>

#include "nel_core/std/raise.h"

namespace nstd {

cTypeMissmatchException::cTypeMissmatchException(cAsciiString const& expectedType,
                                                 cAsciiString const& assignedType)
    : cTypeMissmatchException(
        expectedType, assignedType,
        makeMessage("$MTR$Type mismatch: Expecting type \"%expected%\" but got object of type \"%got%\"!",
                    expectedType, assignedType))
{
}

cTypeMissmatchException::cTypeMissmatchException(cAsciiString const& expectedType,
                                                 cAsciiString const& assignedType, nucs::cLIMessage message)
    : tExceptionLeaf(expectedType, std::move(message)),
      msAssignedType(assignedType)
{
}

cTypeMissmatchException::~cTypeMissmatchException() = default;

cTypeMissmatchException& cTypeMissmatchException::operator=(cTypeMissmatchException other) noexcept
{
    swap(other);
    return *this;
}

void cTypeMissmatchException::swap(cTypeMissmatchException& other) noexcept
{
    cTypeErrorException::swap(other);
    msAssignedType.swap(other.msAssignedType);
}

} // namespace nstd
