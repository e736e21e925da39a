#include "nel_core/rmi/cNoSuchSlotException.h"

#include <utility>

#include "nel_core/std/raise.h"

namespace nrmi {

cNoSuchSlotException::cNoSuchSlotException(nstd::cAsciiString const& slotName,
                                           nstd::cAsciiString const& slotArgs)
    : tExceptionLeaf(
        nstd::makeMessage("$MTR$Slot \"%slot%(%args%)\" not found in interface!", slotName, slotArgs)),
      msSlotName(slotName),
      msSlotArgs(slotArgs)
{
}

cNoSuchSlotException::~cNoSuchSlotException() = default;

cNoSuchSlotException& cNoSuchSlotException::operator=(cNoSuchSlotException other) noexcept
{
    swap(other);
    return *this;
}

void cNoSuchSlotException::swap(cNoSuchSlotException& other) noexcept
{
    nstd::cRuntimeException::swap(other);
    msSlotName.swap(other.msSlotName);
    msSlotArgs.swap(other.msSlotArgs);
}

} // namespace nrmi
