#include "nel_core/std/tBounds.h"

#include "nel_core/std/cSTDExceptions.h"

namespace nstd {

void tBounds::raiseStartSize(unsigned int length, unsigned int start, unsigned int size,
                             char const* container, char const* operation)
{
    if (start + size < start)
        raiseOutOfBounds(container, operation);
    if (start > length)
        raiseIndex(length, start, container, operation);
    cSTDExceptions::throwOutOfRange(container, operation, cSTDExceptions::ortSize, size, 0, length - start);
}

void tBounds::raiseStartEnd(unsigned int length, unsigned int start, unsigned int end, char const* container,
                            char const* operation)
{
    if (end < start)
        raiseOutOfBounds(container, operation);
    if (end > length)
        cSTDExceptions::throwOutOfRange(container, operation, cSTDExceptions::ortEndValue, end, 0, length);
    raiseIndex(length, start, container, operation);
}

void tBounds::raiseIndex(unsigned int length, unsigned int index, char const* container,
                         char const* operation)
{
    cSTDExceptions::throwOutOfRange(container, operation, cSTDExceptions::ortIndex, index, 0,
                                    length == 0 ? 0 : length - 1);
}

void tBounds::raiseOutOfBounds(char const* container, char const* operation)
{
    cSTDExceptions::throwOutOfBounds(container, operation);
}

} // namespace nstd
