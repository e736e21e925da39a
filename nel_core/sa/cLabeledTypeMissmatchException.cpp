#include "nel_core/sa/cLabeledTypeMissmatchException.h"

#include <utility>

#include "nel_core/std/raise.h"

namespace nsa {

cLabeledTypeMissmatchException::cLabeledTypeMissmatchException(nstd::cAsciiString const& expectedType,
                                                               nstd::cAsciiString const& assignedType,
                                                               nstd::cAsciiString const& lastLabel)
    : tExceptionLeaf(
        expectedType, assignedType,
        nstd::makeMessage("$MTR$Type mismatch: Expecting type \"%expected%\" but got object of type "
                          "\"%got%\" - last label was \"%label%\"!",
                          expectedType, assignedType, lastLabel)),
      msLastLabel(lastLabel)
{
}

cLabeledTypeMissmatchException::~cLabeledTypeMissmatchException() = default;

cLabeledTypeMissmatchException&
cLabeledTypeMissmatchException::operator=(cLabeledTypeMissmatchException other) noexcept
{
    swap(other);
    return *this;
}

void cLabeledTypeMissmatchException::swap(cLabeledTypeMissmatchException& other) noexcept
{
    nstd::cTypeMissmatchException::swap(other);
    msLastLabel.swap(other.msLastLabel);
}

} // namespace nsa
