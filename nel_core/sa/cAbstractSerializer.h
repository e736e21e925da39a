#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/cContextRef.h"
#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

namespace nsa {

/// Takes values and gives them a form that lasts or travels.
///
/// A form is a sequence of values, grouped in nested contexts and, where fields are to be found by name,
/// preceded by labels. Values stand on the left: `value >> serializer` (see saOperators.h). A serializer is
/// made for one task and used by one thread.
class NEL_EXPORT cAbstractSerializer {
public:
    cAbstractSerializer() = default;
    cAbstractSerializer(cAbstractSerializer const&) = delete;
    cAbstractSerializer& operator=(cAbstractSerializer const&) = delete;
    virtual ~cAbstractSerializer();

    /// Writes `size` raw bytes, which are copied.
    virtual void storeBlock(char const* data, unsigned int size) = 0;
    virtual void store(unsigned char value) = 0;
    virtual void store(signed char value) = 0;
    /// Unless overridden, the 16-bit numbers are written as the 32-bit ones of the same sign.
    virtual void store(unsigned short value);
    virtual void store(short value);
    virtual void store(unsigned int value) = 0;
    virtual void store(int value) = 0;
    virtual void store(unsigned long long value) = 0;
    virtual void store(long long value) = 0;
    virtual void store(bool value) = 0;
    virtual void store(double value) = 0;
    virtual void store(nstd::cAsciiString const& value) = 0;
    virtual void store(nucs::cString const& value) = 0;
    /// Goes back to the start of the current context, or of everything when none is open.
    virtual void rewind() = 0;
    /// Drops everything written.
    virtual void clear() = 0;
    /// Opens a context inside the current one; a null name leaves it unnamed.
    virtual cContextRef newContext(char const* typeName) = 0;
    /// Releases the innermost open context; without one nothing happens.
    virtual void releaseCurrentContext() = 0;
    /// Marks the place of the next value with a name.
    virtual cAbstractSerializer& newLabel(nstd::cAsciiString const& name) = 0;
    /// The bytes written so far, valid until the serializer is used again.
    virtual nstd::tArrayRef<char, nstd::tArrayByteLevelTraits<char>> data() = 0;
    /// Exchanges the bytes written with those of `array`.
    virtual void swapData(nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>& array) = 0;
    /// Writes data() to a file of the system's file system, which is created or truncated. When that fails
    /// there is no file: the exceptions of data(), of cIOExceptions and of the operating system are passed
    /// on.
    virtual void storeToFile(nucs::cString const& path);

    /// Whether those who may write labels should leave them out; false at first. The reader is told the same.
    bool noLabelsPreferred() const noexcept { return mbNoLabelsPreferred; }
    /// Sets noLabelsPreferred().
    void setPreferNoLabels(bool prefer) noexcept { mbNoLabelsPreferred = prefer; }

private:
    bool mbNoLabelsPreferred = false;
};

} // namespace nsa
