#pragma once

#include "nel_core/std/cBugException.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace nstd {

/// An index, a size or another number lies outside of its limits.
class NEL_EXPORT cOutOfRangeException : public tExceptionLeaf<cOutOfRangeException, cBugException> {
public:
    /// `value` should have been between `min` and `max`. A null container or operation becomes "unknown".
    cOutOfRangeException(char const* container, char const* operation,
                         cSTDExceptions::OutOfRangeType rangeType, long long value, long long min,
                         long long max);
    cOutOfRangeException(cOutOfRangeException const&) = default;
    cOutOfRangeException(cOutOfRangeException&&) = default;
    ~cOutOfRangeException() override;
    cOutOfRangeException& operator=(cOutOfRangeException other) noexcept;
    void swap(cOutOfRangeException& other) noexcept;

    /// What kind of number it is.
    cSTDExceptions::OutOfRangeType rangeType() const { return meRangeType; }
    /// The value that was refused.
    long long value() const { return miValue; }
    /// The smallest value allowed.
    long long min() const { return miMin; }
    /// The largest value allowed.
    long long max() const { return miMax; }
    /// The class that refused the value.
    cAsciiString const& container() const { return msContainer; }
    /// The operation of that class.
    cAsciiString const& operation() const { return msOperation; }

private:
    cSTDExceptions::OutOfRangeType meRangeType;
    long long miValue;
    long long miMin;
    long long miMax;
    cAsciiString msContainer;
    cAsciiString msOperation;
};

} // namespace nstd
