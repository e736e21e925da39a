#pragma once

#include "nel_core/std/cBugException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace nstd {

/// A stored object of some type cannot be rebuilt.
///
/// Its type() is the name of that type and hides the kind, which is read through a cAbstractException&.
class NEL_EXPORT cTypeErrorException : public tExceptionLeaf<cTypeErrorException, cBugException> {
public:
    /// `type` is the name of the type.
    explicit cTypeErrorException(cAsciiString const& type);
    cTypeErrorException(cTypeErrorException const&) = default;
    cTypeErrorException(cTypeErrorException&&) = default;
    ~cTypeErrorException() override;
    cTypeErrorException& operator=(cTypeErrorException other) noexcept;
    void swap(cTypeErrorException& other) noexcept;

    /// The name of the type in question.
    cAsciiString const& type() const { return msType; }

protected:
    /// With the message of a derived class.
    cTypeErrorException(cAsciiString const& type, nucs::cLIMessage message);

private:
    cAsciiString msType;
};

} // namespace nstd
