#pragma once

#include "nel_core/std/cTypeErrorException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace nstd {

/// An object has another type than the one wanted; type() is the wanted one.
class NEL_EXPORT cTypeMissmatchException
    : public tExceptionLeaf<cTypeMissmatchException, cTypeErrorException> {
public:
    /// Both are names of types: the wanted one, and that of the object that was there.
    cTypeMissmatchException(cAsciiString const& expectedType, cAsciiString const& assignedType);
    cTypeMissmatchException(cTypeMissmatchException const&) = default;
    cTypeMissmatchException(cTypeMissmatchException&&) = default;
    ~cTypeMissmatchException() override;
    cTypeMissmatchException& operator=(cTypeMissmatchException other) noexcept;
    void swap(cTypeMissmatchException& other) noexcept;

    /// The type that was wanted.
    cAsciiString const& expectedType() const { return type(); }
    /// The type of the object that was there.
    cAsciiString const& assignedType() const { return msAssignedType; }

protected:
    /// With the message of a derived class.
    cTypeMissmatchException(cAsciiString const& expectedType, cAsciiString const& assignedType,
                            nucs::cLIMessage message);

private:
    cAsciiString msAssignedType;
};

} // namespace nstd
