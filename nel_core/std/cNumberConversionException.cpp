#include "nel_core/std/cNumberConversionException.h"

#include <utility>

#include "nel_core/std/raise.h"

namespace nstd {

cNumberConversionException::cNumberConversionException(nucs::cString const& number, unsigned int index)
    : tExceptionLeaf(makeMessage(
        "$MTR$Number conversion error. \"%string%\" contains invalid characters at index %index%!", number,
        index)),
      msNumber(number),
      miIndex(index)
{
}

cNumberConversionException::~cNumberConversionException() = default;

cNumberConversionException& cNumberConversionException::operator=(cNumberConversionException other) noexcept
{
    swap(other);
    return *this;
}

void cNumberConversionException::swap(cNumberConversionException& other) noexcept
{
    cRuntimeException::swap(other);
    msNumber.swap(other.msNumber);
    std::swap(miIndex, other.miIndex);
}

} // namespace nstd
