#pragma once

#include "nel_core/sa/fwd.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace nrmi {

/// An interface has no slot of that name that takes such arguments.
class NEL_EXPORT cNoSuchSlotException
    : public nstd::tExceptionLeaf<cNoSuchSlotException, nstd::cRuntimeException> {
public:
    /// `slotArgs` carries its own parentheses, as in "(?)".
    cNoSuchSlotException(nstd::cAsciiString const& slotName, nstd::cAsciiString const& slotArgs);
    /// The arguments are the types of the frame's entries, or "(?)" when the frame does not tell them.
    cNoSuchSlotException(nstd::cAsciiString const& slotName, nsa::cReferenceFrame& frame);
    cNoSuchSlotException(cNoSuchSlotException const&) = default;
    cNoSuchSlotException(cNoSuchSlotException&&) = default;
    ~cNoSuchSlotException() override;
    cNoSuchSlotException& operator=(cNoSuchSlotException other) noexcept;
    void swap(cNoSuchSlotException& other) noexcept;

    /// The name that was looked for.
    nstd::cAsciiString const& slotName() const { return msSlotName; }
    /// The argument types of the call, in parentheses.
    nstd::cAsciiString const& slotArgs() const { return msSlotArgs; }

private:
    cNoSuchSlotException(char const* key, nstd::cAsciiString const& slotName,
                         nstd::cAsciiString const& slotArgs);

    nstd::cAsciiString msSlotName;
    nstd::cAsciiString msSlotArgs;
};

} // namespace nrmi
