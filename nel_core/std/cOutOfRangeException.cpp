#include "nel_core/std/cOutOfRangeException.h"

#include <utility>

#include "nel_core/std/raise.h"

namespace nstd {
namespace {

char const* keyOf(cSTDExceptions::OutOfRangeType rangeType)
{
    switch (rangeType) {
    case cSTDExceptions::ortValue:
        return "$MTR$Value out of range in %container% / %operation%. "
               "The value should be between %min% and %max% but is %index%!";
    case cSTDExceptions::ortSize:
        return "$MTR$Size is out of range in %container% / %operation%. "
               "The size must be a value %min% and %max% but is %size%!";
    case cSTDExceptions::ortIndexOrSize:
        return "$MTR$Index or size is out of range in %container% / %operation%. "
               "The value must be between %min% and %max% but is %value%!";
    case cSTDExceptions::ortEndValue:
        return "$MTR$End-value is out of range in %container% / %operation%. "
               "The value must be between %min% and %max% but is %value%!";
    default:
        return "$MTR$Index out of range in %container% / %operation%. "
               "The index should be between %min% - %max% but is %index%!";
    }
}

} // namespace

cOutOfRangeException::cOutOfRangeException(char const* container, char const* operation,
                                           cSTDExceptions::OutOfRangeType rangeType, long long value,
                                           long long min, long long max)
    : tExceptionLeaf(
        makeMessage(keyOf(rangeType), orUnknown(container), orUnknown(operation), min, max, value)),
      meRangeType(rangeType),
      miValue(value),
      miMin(min),
      miMax(max),
      msContainer(orUnknown(container)),
      msOperation(orUnknown(operation))
{
}

cOutOfRangeException::~cOutOfRangeException() = default;

cOutOfRangeException& cOutOfRangeException::operator=(cOutOfRangeException other) noexcept
{
    swap(other);
    return *this;
}

void cOutOfRangeException::swap(cOutOfRangeException& other) noexcept
{
    cBugException::swap(other);
    std::swap(meRangeType, other.meRangeType);
    std::swap(miValue, other.miValue);
    std::swap(miMin, other.miMin);
    std::swap(miMax, other.miMax);
    msContainer.swap(other.msContainer);
    msOperation.swap(other.msOperation);
}

} // namespace nstd
