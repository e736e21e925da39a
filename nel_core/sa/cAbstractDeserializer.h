#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/cContextRef.h"
#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

namespace nsa {

/// Gives back, in the same order, the values that a serializer has taken.
///
/// A load passes labels by. One that fails leaves its target as it was; what it raises depends on the format.
/// Values stand on the left: `value << deserializer` (see saOperators.h). A deserializer is made for one task
/// and used by one thread.
class NEL_EXPORT cAbstractDeserializer {
public:
    /// What currentPos() says where there is no such thing as a position.
    static constexpr unsigned int kNoPosition = 0xFFFFFFFF;

    cAbstractDeserializer() = default;
    cAbstractDeserializer(cAbstractDeserializer const&) = delete;
    cAbstractDeserializer& operator=(cAbstractDeserializer const&) = delete;
    virtual ~cAbstractDeserializer();

    /// Replaces the content of `array` by a block of raw bytes.
    virtual void loadBlock(nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>& array) = 0;
    virtual void load(signed char& value) = 0;
    virtual void load(unsigned char& value) = 0;
    /// Unless overridden, the 16-bit numbers are the low bits of the 32-bit ones of the same sign.
    virtual void load(unsigned short& value);
    virtual void load(short& value);
    virtual void load(unsigned int& value) = 0;
    virtual void load(int& value) = 0;
    virtual void load(unsigned long long& value) = 0;
    virtual void load(long long& value) = 0;
    virtual void load(bool& value) = 0;
    virtual void load(double& value) = 0;
    virtual void load(nstd::cAsciiString& value) = 0;
    virtual void load(nucs::cString& value) = 0;
    /// Goes back to the start of the current context, or of everything when none is open.
    virtual void rewind() = 0;
    /// Whether nothing but labels is left in the current context.
    virtual bool eoc() const = 0;
    /// Copies what is left of the current context into `target`; the position stays.
    virtual void reserialize(cAbstractSerializer& target) = 0;
    /// Whether the next item is a context, or a label; false at the end. Labels are not passed by here.
    virtual bool isContext() = 0;
    virtual bool isLabel() = 0;
    /// Enters the next context. A null name accepts any; another name than the one stored is a type mismatch.
    virtual cContextRef getContext(char const* typeName) = 0;
    /// The name of the next context ("" for an unnamed one), or of the next label; the position stays.
    virtual nstd::cAsciiString getNextContextTypeName() = 0;
    virtual nstd::cAsciiString getNextLabelName() = 0;
    /// Releases and leaves the innermost context; without one nothing happens.
    virtual void releaseCurrentContext() = 0;
    /// Goes to the value behind the first such label of the current context that lies ahead, else to the
    /// first one of all; nested contexts are not searched. Raises when there is none.
    virtual cAbstractDeserializer& findLabel(nstd::cAsciiString const& name) = 0;
    /// The same; false when there is none, and the position stays.
    virtual bool tryFindLabel(nstd::cAsciiString const& name) = 0;
    /// The read position, by which a reader can tell whether a load has consumed anything; kNoPosition
    /// unless overridden.
    virtual unsigned int currentPos() const;

    /// Whether those who may have written labels have left them out; false at first.
    bool noLabelsPreferred() const noexcept { return mbNoLabelsPreferred; }
    /// Sets noLabelsPreferred().
    void setPreferNoLabels(bool prefer) noexcept { mbNoLabelsPreferred = prefer; }

private:
    bool mbNoLabelsPreferred = false;
};

} // namespace nsa
