#pragma once

#include "nel_core/std/cBugException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace nstd {

/// A length would pass its limit, or something lies beyond the end of a sequence.
class NEL_EXPORT cOutOfBoundsException : public tExceptionLeaf<cOutOfBoundsException, cBugException> {
public:
    /// Container, or operation, or both may be null; the message names the operation only with its container.
    cOutOfBoundsException(char const* container, char const* operation);
    cOutOfBoundsException(cOutOfBoundsException const&) = default;
    cOutOfBoundsException(cOutOfBoundsException&&) = default;
    ~cOutOfBoundsException() override;
    cOutOfBoundsException& operator=(cOutOfBoundsException other) noexcept;
    void swap(cOutOfBoundsException& other) noexcept;

    /// Empty when not known.
    cAsciiString const& container() const { return msContainer; }
    /// Empty when not known.
    cAsciiString const& operation() const { return msOperation; }

private:
    cAsciiString msContainer;
    cAsciiString msOperation;
};

} // namespace nstd
