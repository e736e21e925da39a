#pragma once

#include "nel_core/export.h"
#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

namespace nio {

/// The throw functions of files and paths. Each makes an nstd::cRuntimeException, unless it says otherwise,
/// without a source position, links a copy of the cause where it takes one, and throws it.
class NEL_EXPORT cIOExceptions {
public:
    /// Raises nstd::cBugException.
    [[noreturn]] static void throwEndOfFile(nucs::cString const& file);
    /// The path climbs above its root.
    [[noreturn]] static void throwRelativePathUnderrun(nucs::cString const& path);
    /// `path`, or a directory on the way to it, cannot be made.
    [[noreturn]] static void throwUnableCreatePath(nstd::cAbstractException const& cause,
                                                   nucs::cString const& path);
    /// `file` stays.
    [[noreturn]] static void throwUnableRemoveFile(nstd::cAbstractException const& cause,
                                                   nucs::cString const& file);
    /// A read from the open file failed.
    [[noreturn]] static void throwUnableReadFile(nstd::cAbstractException const& cause,
                                                 nucs::cString const& file);
    /// A write to the open file failed.
    [[noreturn]] static void throwUnableWriteFile(nstd::cAbstractException const& cause,
                                                  nucs::cString const& file);
    /// `file` is missing, or the wanted access to it is refused.
    [[noreturn]] static void throwUnableOpenFile(nstd::cAbstractException const& cause,
                                                 nucs::cString const& file);
    /// So many bytes were asked for.
    [[noreturn]] static void throwUnableToRead(unsigned long long bytes);
    /// So many bytes were handed in.
    [[noreturn]] static void throwUnableToWrite(unsigned long long bytes);
    /// The number of bytes is no multiple of the size of an element.
    [[noreturn]] static void throwUnableToReadOddAmountOfData(unsigned long long bytes,
                                                              unsigned int elementSize);
    /// The operation was given up after that many milliseconds.
    [[noreturn]] static void throwIOTimeout(unsigned int milliseconds);
};

} // namespace nio
