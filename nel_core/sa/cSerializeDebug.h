#pragma once

#include "nel_core/sa/cAbstractContextData.h"
#include "nel_core/sa/cAbstractSerializer.h"
#include "nel_core/std/cAsciiString.h"

namespace nsa {

/// Shows what an object writes: every item becomes one line of the debug output, `piUInt32 = 5;`, indented by
/// four spaces for each open context and with the label before it in front, `<label Grow> piUInt32 = 5;`.
///
/// Of doubles and raw bytes only the kind is shown. There is nothing to take back: rewind(), clear(), data()
/// and swapData() raise cSTDExceptions::throwUnsupportedOperation().
class NEL_EXPORT cSerializeDebug : public cAbstractSerializer {
public:
    cSerializeDebug();
    ~cSerializeDebug() override;

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
    void rewind() override;
    void clear() override;
    /// Prints the opening lines. The closing one is printed when a handle that was released dies.
    cContextRef newContext(char const* typeName) override;
    /// Prints the closing line of the innermost context; the depth never falls below 0.
    void releaseCurrentContext() override;
    /// Keeps the name for the next line, in place of one that was not printed yet.
    cAbstractSerializer& newLabel(nstd::cAsciiString const& name) override;
    nstd::tArrayRef<char, nstd::tArrayByteLevelTraits<char>> data() override;
    void swapData(nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>& array) override;

    /// Prints one line, indented and behind the pending label; ends it with a semicolon if asked to.
    void storeDataLine(nstd::cAsciiString const& text, bool semicolon);

private:
    unsigned int miDepth = 0;
    nstd::cAsciiString msLabel; ///< pending; empty when there is none
};

} // namespace nsa

/// The context record of cSerializeDebug: dying released, it closes the context.
class NEL_EXPORT cDummyContextData : public nsa::cAbstractContextData {
public:
    /// `serializer` must outlive the record.
    explicit cDummyContextData(nsa::cAbstractSerializer& serializer) noexcept;
    ~cDummyContextData() override;

    void release() override;

private:
    nsa::cAbstractSerializer* mpSerializer;
    bool mbReleased = false;
};
