#include "nel_core/rmi/cCallParameterMissmatchException.h"

#include <utility>

#include "nel_core/std/raise.h"

namespace nrmi {
namespace {

nucs::cLIMessage messageFor(nstd::cAsciiString const& slotName)
{
    if (slotName.length() == 0)
        return nstd::makeMessage("$MTR$Slot parameter or return value missmatch on unregistered slot!");
    return nstd::makeMessage("$MTR$Slot parameter of (%slot%) or return value missmatch!", slotName);
}

} // namespace

cCallParameterMissmatchException::cCallParameterMissmatchException(nstd::cAsciiString const& slotName)
    : tExceptionLeaf(messageFor(slotName)),
      msSlotName(slotName)
{
}

cCallParameterMissmatchException::~cCallParameterMissmatchException() = default;

cCallParameterMissmatchException&
cCallParameterMissmatchException::operator=(cCallParameterMissmatchException other) noexcept
{
    swap(other);
    return *this;
}

void cCallParameterMissmatchException::swap(cCallParameterMissmatchException& other) noexcept
{
    nstd::cBugException::swap(other);
    msSlotName.swap(other.msSlotName);
}

} // namespace nrmi
