#pragma once

#include "nel_core/std/cTypeMissmatchException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace nsa {

/// A type mismatch in a stream that has labels; the last one passed helps to find the place.
class NEL_EXPORT cLabeledTypeMissmatchException
    : public nstd::tExceptionLeaf<cLabeledTypeMissmatchException, nstd::cTypeMissmatchException> {
public:
    /// The wanted type, the type that was there, and the label passed last.
    cLabeledTypeMissmatchException(nstd::cAsciiString const& expectedType,
                                   nstd::cAsciiString const& assignedType,
                                   nstd::cAsciiString const& lastLabel);
    cLabeledTypeMissmatchException(cLabeledTypeMissmatchException const&) = default;
    cLabeledTypeMissmatchException(cLabeledTypeMissmatchException&&) = default;
    ~cLabeledTypeMissmatchException() override;
    cLabeledTypeMissmatchException& operator=(cLabeledTypeMissmatchException other) noexcept;
    void swap(cLabeledTypeMissmatchException& other) noexcept;

    /// The label read last before the object.
    nstd::cAsciiString const& lastLabel() const { return msLastLabel; }

private:
    nstd::cAsciiString msLastLabel;
};

} // namespace nsa
