#pragma once

#include "nel_core/export.h"
#include "nel_core/std/fwd.h"

namespace nstd {

/// The range rules that all arrays and views share. `container` and `operation` are the words of the error.
class NEL_EXPORT tBounds {
public:
    /// Checks the `size` elements from `start` on against `length` and gives their end. Raises out-of-bounds
    /// when start + size wraps, out-of-range ortIndex when `start` is beyond the length (the length itself
    /// is a legal start), and ortSize when fewer than `size` elements follow it.
    static unsigned int startSize2End(unsigned int length, unsigned int start, unsigned int size,
                                      char const* container, char const* operation)
    {
        unsigned int const end = start + size;
        if (end < start || end > length)
            raiseStartSize(length, start, size, container, operation);
        return end;
    }

    /// Checks the elements [start, end) against `length` and gives their number. Raises out-of-bounds when
    /// `end` lies before `start`, out-of-range ortEndValue when it is beyond the length, and ortIndex when
    /// `start` is not the index of an element, even for an empty range.
    static unsigned int startEnd2Size(unsigned int length, unsigned int start, unsigned int end,
                                      char const* container, char const* operation)
    {
        if (end < start || end > length || start >= length)
            raiseStartEnd(length, start, end, container, operation);
        return end - start;
    }

    /// Checks that `index` names one of `length` elements; raises out-of-range ortIndex.
    static void checkIndex(unsigned int length, unsigned int index, char const* container,
                           char const* operation)
    {
        if (index >= length)
            raiseIndex(length, index, container, operation);
    }

    /// The sum of two lengths; raises out-of-bounds when it does not fit.
    static unsigned int sum(unsigned int left, unsigned int right, char const* container,
                            char const* operation)
    {
        return narrow(static_cast<unsigned long long>(left) + right, container, operation);
    }

    /// A length of the system (strlen, a file size) as one of ours; raises out-of-bounds when it does not
    /// fit.
    static unsigned int narrow(unsigned long long length, char const* container, char const* operation)
    {
        if (length > 0xFFFFFFFFULL)
            raiseOutOfBounds(container, operation);
        return static_cast<unsigned int>(length);
    }

    /// The number of elements in which a search for up to `count` ones (0: all) from `start` on looks. Raises
    /// out-of-bounds when `start` is beyond the length or start + count wraps; a count that is merely too
    /// large ends at the length.
    static unsigned int searchRange(unsigned int length, unsigned int start, unsigned int count,
                                    char const* container, char const* operation)
    {
        if (start > length || start + count < start)
            raiseOutOfBounds(container, operation);
        return count == 0 || count > length - start ? length - start : count;
    }

private:
    [[noreturn]] static void raiseStartSize(unsigned int length, unsigned int start, unsigned int size,
                                            char const* container, char const* operation);
    [[noreturn]] static void raiseStartEnd(unsigned int length, unsigned int start, unsigned int end,
                                           char const* container, char const* operation);
    [[noreturn]] static void raiseIndex(unsigned int length, unsigned int index, char const* container,
                                        char const* operation);
    [[noreturn]] static void raiseOutOfBounds(char const* container, char const* operation);
};

} // namespace nstd
