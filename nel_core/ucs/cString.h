#pragma once

#include <string_view>

#include "nel_core/export.h"
#include "nel_core/pi/fwd.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/tArray.h"
#include "nel_core/ucs/fwd.h"

namespace nucs {

/// Unicode text: a growable array of 32-bit code points, with every operation of the array.
///
/// Lengths, widths and indices count code points. The pool grows in steps of four and never shrinks when
/// text is removed. Text comes in and goes out through the codecs (cAbstractEnDec), or byte by byte: as code
/// points 0 to 255 (the `char const*` operations) or as ASCII with a replacement for everything else. A null
/// pointer given as text is the empty text. Belongs to one thread at a time.
class NEL_EXPORT cString : public nstd::tArray<unsigned int, nstd::tArrayByteLevelTraits<unsigned int>> {
public:
    typedef nstd::tArray<unsigned int, nstd::tArrayByteLevelTraits<unsigned int>> tArrayType;

    /// The empty string; takes no memory.
    cString();
    cString(cString const& other) = default;
    /// Takes the text over and leaves `other` empty.
    cString(cString&& other) noexcept;
    /// Copies the code points up to the terminating zero.
    cString(wchar_t const* text);
    /// Each byte up to the terminating zero becomes the code point of its unsigned value.
    cString(char const* text);
    /// As fromAscii().
    cString(nstd::cAsciiString const& text, char replacement);
    explicit cString(std::u32string_view text);
    ~cString() override;

    cString& operator=(cString const& other) = default;
    cString& operator=(cString&& other) noexcept;
    /// Copies the code points; the growth settings of this string stay.
    cString& operator=(tArrayType const& codePoints);
    cString& operator=(char const* text);

    /// Replaces the content: bytes below 0x80 become that code point, all others become `replacement`.
    void fromAscii(nstd::cAsciiString const& text, unsigned int replacement);
    /// Appends the text to `target`: code points up to 127 become that byte, all others `replacement`.
    void toAscii(nstd::cAsciiString& target, char replacement) const;
    /// The text as toAscii() writes it.
    nstd::cAsciiString ascii(char replacement = '?') const;
    /// The code points, valid until the next change of the string.
    operator std::u32string_view() const;

    /// Appends bytes as code points 0 to 255, up to the terminating zero or `count` of them. Gives the former
    /// length.
    unsigned int appendC(char const* text);
    unsigned int appendC(char const* text, unsigned int count);
    /// Append the other text, or give both as a new one.
    void addString(cString const& other);
    cString& operator+=(cString const& other);
    cString operator+(cString const& other) const;

    /// Equality is equal length and equal code points; no terminator and no normalisation takes part.
    bool operator==(cString const& other) const;
    bool operator!=(cString const& other) const { return !(*this == other); }
    /// Against a zero-terminated text; false for a null pointer.
    bool operator==(wchar_t const* text) const;
    bool operator!=(wchar_t const* text) const { return !(*this == text); }
    /// Against the bytes of a zero-terminated text taken as code points 0 to 255; false for a null pointer.
    bool ccs(char const* text) const;
    bool operator==(char const* text) const { return ccs(text); }
    bool operator!=(char const* text) const { return !ccs(text); }
    /// Against the text up to its first zero byte, as ccs().
    bool operator==(nstd::cAsciiString const& text) const;
    bool operator!=(nstd::cAsciiString const& text) const { return !(*this == text); }

    /// Replace the text by a number, written with the given format or the system's default one.
    void setNum32(int number);
    void setNum32(int number, nstd::cNumberConversionFormat const& format);
    void setUNum32(unsigned int number);
    void setUNum32(unsigned int number, nstd::cNumberConversionFormat const& format);
    void setNum(long long number);
    void setNum(long long number, nstd::cNumberConversionFormat const& format);
    void setUNum(unsigned long long number);
    void setUNum(unsigned long long number, nstd::cNumberConversionFormat const& format);
    void setDouble(double number);
    void setDouble(double number, nstd::cNumberConversionFormat const& format);

    /// Append a number. A fixed width of the format counts the number's own characters.
    void addNum32(int number);
    void addNum32(int number, nstd::cNumberConversionFormat const& format);
    void addUNum32(unsigned int number);
    void addUNum32(unsigned int number, nstd::cNumberConversionFormat const& format);
    void addNum(long long number);
    void addNum(long long number, nstd::cNumberConversionFormat const& format);
    void addUNum(unsigned long long number);
    void addUNum(unsigned long long number, nstd::cNumberConversionFormat const& format);
    void addDouble(double number);
    void addDouble(double number, nstd::cNumberConversionFormat const& format);

    /// The whole text as a number; raises cSTDExceptions::throwInvalidDecimal at a character that is none.
    long long toInt() const;
    long long toInt(nstd::cNumberConversionFormat const& format) const;
    unsigned long long toUInt() const;
    unsigned long long toUInt(nstd::cNumberConversionFormat const& format) const;
    double toDouble() const;
    double toDouble(nstd::cNumberConversionFormat const& format) const;

    /// Map the ASCII letters only; every other code point is returned as it is.
    static unsigned int upperCase(unsigned int codePoint);
    static unsigned int lowerCase(unsigned int codePoint);
    /// Map every character in place.
    void upperCase();
    void lowerCase();

    /// Remove leading, trailing or both runs of the space character (32), and of no other.
    void ltrim();
    void rtrim();
    void trim();

    /// Pad with `fill` up to `width`; longer text stays as it is. leftAdjust() pads behind the text,
    /// rightAdjust() in front, adjust() on both sides with the odd character behind.
    void leftAdjust(unsigned int width, unsigned int fill);
    void rightAdjust(unsigned int width, unsigned int fill);
    void adjust(unsigned int width, unsigned int fill);
    /// Brings the text to `length` or the suffix's length, whichever is larger: longer text is cut so that it
    /// ends with `suffix` exactly there, shorter text is padded behind with `fill`.
    void setFixedLength(unsigned int length, cString const& suffix, unsigned int fill);

    /// The string as its array type.
    tArrayType& array() { return *this; }
    tArrayType const& array() const { return *this; }

    /// Store and load the string as the serializer's own kind of value. A failed load changes nothing.
    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);

private:
    void pad(unsigned int before, unsigned int behind, unsigned int fill);
};

/// Writes the text in the output's encoding, or, when it has none, as ASCII with "?" for the rest.
NEL_EXPORT npi::cAbstractOut& operator<<(npi::cAbstractOut& out, cString const& text);

} // namespace nucs
