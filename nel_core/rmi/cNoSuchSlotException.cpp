#include "nel_core/rmi/cNoSuchSlotException.h"

#include <utility>

#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/sa/cSerializeToTypeString.h"
#include "nel_core/std/raise.h"

namespace nrmi {
namespace {

// Not every value can tell its types; the failure that is reported counts more.
nstd::cAsciiString typesOf(nsa::cReferenceFrame const& frame)
{
    try {
        nsa::cSerializeToTypeString types;
        frame.store(types);
        nstd::cAsciiString text("(");
        text += types.typeString();
        text += ')';
        return text;
    } catch (nstd::cAbstractException const&) {
        return "(?)";
    }
}

} // namespace

cNoSuchSlotException::cNoSuchSlotException(nstd::cAsciiString const& slotName,
                                           nstd::cAsciiString const& slotArgs)
    : cNoSuchSlotException("$MTR$Slot \"%slot%(%args%)\" not found in interface!", slotName, slotArgs)
{
}

cNoSuchSlotException::cNoSuchSlotException(nstd::cAsciiString const& slotName, nsa::cReferenceFrame& frame)
    : cNoSuchSlotException("$MTR$Slot \"%slot%(%args%)\" not found in interface", slotName, typesOf(frame))
{
}

cNoSuchSlotException::cNoSuchSlotException(char const* key, nstd::cAsciiString const& slotName,
                                           nstd::cAsciiString const& slotArgs)
    : tExceptionLeaf(nstd::makeMessage(key, slotName, slotArgs)),
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
