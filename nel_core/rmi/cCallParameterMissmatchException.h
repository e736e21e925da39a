#pragma once

#include "nel_core/std/cBugException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace nrmi {

/// The arguments or the result of a call by name do not fit the slot. The definition of the slot, if it is
/// known, and the cause are in the history.
class NEL_EXPORT cCallParameterMissmatchException
    : public nstd::tExceptionLeaf<cCallParameterMissmatchException, nstd::cBugException> {
public:
    /// An empty name stands for a slot that is not registered.
    explicit cCallParameterMissmatchException(nstd::cAsciiString const& slotName);
    cCallParameterMissmatchException(cCallParameterMissmatchException const&) = default;
    cCallParameterMissmatchException(cCallParameterMissmatchException&&) = default;
    ~cCallParameterMissmatchException() override;
    cCallParameterMissmatchException& operator=(cCallParameterMissmatchException other) noexcept;
    void swap(cCallParameterMissmatchException& other) noexcept;

    /// The name of the public slot; empty when it is not registered.
    nstd::cAsciiString const& slotName() const { return msSlotName; }

private:
    nstd::cAsciiString msSlotName;
};

} // namespace nrmi
