#pragma once

#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tExceptionLeaf.h"
#include "nel_core/ucs/cString.h"

namespace nstd {

/// A text is no number.
class NEL_EXPORT cNumberConversionException
    : public tExceptionLeaf<cNumberConversionException, cRuntimeException> {
public:
    /// `index` is that of the first offending character of `number`.
    cNumberConversionException(nucs::cString const& number, unsigned int index);
    cNumberConversionException(cNumberConversionException const&) = default;
    cNumberConversionException(cNumberConversionException&&) = default;
    ~cNumberConversionException() override;
    cNumberConversionException& operator=(cNumberConversionException other) noexcept;
    void swap(cNumberConversionException& other) noexcept;

    /// The whole text.
    nucs::cString const& errornousNumber() const { return msNumber; }
    /// The index of its first offending character.
    unsigned int errornousIndex() const { return miIndex; }

private:
    nucs::cString msNumber;
    unsigned int miIndex;
};

} // namespace nstd
