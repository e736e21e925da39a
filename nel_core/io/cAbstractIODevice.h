#pragma once

#include "nel_core/export.h"
#include "nel_core/io/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

namespace nio {

/// A device of bytes that are read and written one after the other, and lines of text on top of that.
class NEL_EXPORT cAbstractIODevice {
public:
    using tBytes = nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>;
    using tConstBytesRef = nstd::tConstArrayRef<char, nstd::tArrayByteLevelTraits<char>>;

    virtual ~cAbstractIODevice();

    /// Replaces `line` by the bytes up to the delimiter, with it if asked to, or up to the end. An empty
    /// delimiter reads to the end.
    virtual void readTextLine(tBytes& line, tBytes const& delimiter, bool keepDelimiter);
    /// The same; raises cIOExceptions::throwIOTimeout() once more than that many milliseconds have gone by
    /// after a byte that did not finish the line. 0 is no exception to that.
    virtual void readTextLine(tBytes& line, tBytes const& delimiter, bool keepDelimiter,
                              unsigned int timeoutMs);
    /// Replaces `line` by the next line that is not empty, without its end: CR, LF or both. False at the end
    /// of the data; the line holds what was left then. Raises cIOExceptions::throwIOTimeout() as above; 0
    /// means no limit.
    virtual bool readTextLine(tBytes& line, unsigned int timeoutMs);
    /// Write the text, then the line end, each with one write(); raise cIOExceptions::throwUnableToWrite()
    /// when one moves less.
    virtual void writeTextLine(nstd::cAsciiString const& text, nstd::cAsciiString const& lineEnd);
    virtual void writeTextLine(tConstBytesRef const& text, nstd::cAsciiString const& lineEnd);

    /// Move up to `count` bytes and give the number moved.
    virtual unsigned long long read(void* target, unsigned long long count) = 0;
    virtual unsigned long long write(void const* source, unsigned long long count) = 0;
    virtual nucs::cString const& name() const = 0;
    /// Gives the new position.
    virtual unsigned long long seek(long long offset, SeekMode mode) = 0;
    virtual unsigned long long pos() const = 0;
    /// Cuts or extends the device to `size` bytes.
    virtual void truncate(unsigned int size) = 0;
    /// Makes all bytes accessible in one piece, for reading.
    virtual void mmap() = 0;

protected:
    cAbstractIODevice() = default;
    cAbstractIODevice(cAbstractIODevice const&) = default;
    cAbstractIODevice& operator=(cAbstractIODevice const&) = default;
};

} // namespace nio
