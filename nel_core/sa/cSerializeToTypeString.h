#pragma once

#include "nel_core/sa/cAbstractSerializer.h"
#include "nel_core/std/cAsciiString.h"

namespace nsa {

/// Collects the types of what is stored as text, "piInt32, cString": the signature of a reference frame.
///
/// Labels leave no trace; contexts cannot be described: newContext() raises, and so does data(), both
/// cSTDExceptions::throwUnsupportedOperation().
class NEL_EXPORT cSerializeToTypeString : public cAbstractSerializer {
public:
    cSerializeToTypeString();
    ~cSerializeToTypeString() override;

    void storeBlock(char const* data, unsigned int size) override;
    void store(unsigned char value) override;
    void store(signed char value) override;
    void store(unsigned short value) override;
    void store(short value) override;
    void store(unsigned int value) override;
    void store(int value) override;
    void store(unsigned long long value) override;
    void store(long long value) override;
    void store(bool value) override;
    void store(double value) override;
    void store(nstd::cAsciiString const& value) override;
    void store(nucs::cString const& value) override;
    /// Both empty the text.
    void rewind() override;
    void clear() override;
    cContextRef newContext(char const* typeName) override;
    void releaseCurrentContext() override;
    cAbstractSerializer& newLabel(nstd::cAsciiString const& name) override;
    nstd::tArrayRef<char, nstd::tArrayByteLevelTraits<char>> data() override;
    /// Gives `array` a copy of the text, without a terminator; the text stays.
    void swapData(nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>& array) override;
    /// Appends one type name, behind ", " unless it is the first.
    virtual void storeType(char const* name);

    /// The types so far.
    nstd::cAsciiString const& typeString() const noexcept { return msTypes; }

private:
    nstd::cAsciiString msTypes;
};

} // namespace nsa
