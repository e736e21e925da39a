#pragma once

#include <string_view>

#include "nel_core/export.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tConstArrayRef.h"

namespace nstd {

/// A mutable string of bytes, always followed by a zero byte: identifiers, type names, numbers as text.
///
/// It is an array of characters with all operations of one, in no particular encoding; zero bytes inside
/// are allowed but end the zero-terminated view. Every string owns a pool, an empty one too, unless its text
/// has been moved away: then it takes one again with the next text. Not synchronised.
class NEL_EXPORT cAsciiString : public tArray<char, tArrayAsciiStringTraits<char>> {
public:
    typedef tArray<char, tArrayAsciiStringTraits<char>> cCharArray;

    cAsciiString();
    /// Copies the characters before the terminating zero; null gives the empty string.
    cAsciiString(char const* text);
    cAsciiString(cAsciiString const& other);
    /// Takes pool and text over and leaves `other` empty, with its settings.
    cAsciiString(cAsciiString&& other) noexcept;
    cAsciiString(cCharArray const& other);
    /// The tail of `other` from `start`; raises out-of-bounds ("tArray", "data") beyond its end.
    cAsciiString(cAsciiString const& other, unsigned int start);
    /// Copies the viewed bytes, reading them through their proxy.
    cAsciiString(tConstArrayRef<char> const& view);
    template<typename Traits>
    cAsciiString(tConstArrayRef<char, Traits> const& view);
    /// Raises out-of-bounds for a text whose length does not fit into 32 bits.
    explicit cAsciiString(std::string_view text);
    ~cAsciiString() override;

    /// Replaces the content. A string that was not empty gives its pool up for one that fits the grow step;
    /// grow step and fit-on-erase stay its own. Null gives the empty string.
    cAsciiString& operator=(char const* text);
    cAsciiString& operator=(cCharArray const& other);
    cAsciiString& operator=(cAsciiString const& other);
    /// Takes pool and text over and leaves `other` empty; both keep their settings.
    cAsciiString& operator=(cAsciiString&& other) noexcept;

    /// The characters and a terminating zero, valid until the next change; never null. After destroy() it
    /// asserts.
    char const* c_str() const { return miPoolSize == 0 ? "" : data(); }
    operator std::string_view() const { return std::string_view(data(true), length()); }

    /// Append; null appends nothing, and the text may be our own.
    cAsciiString& operator+=(char c);
    cAsciiString& operator+=(char const* text);
    cAsciiString& operator+=(cAsciiString const& text);
    void addString(cAsciiString const& text);
    /// Both texts as a new string.
    cAsciiString operator+(cAsciiString const& text) const;

    /// Append a number. The layout, a fixed width included, applies to the number alone, not to what stands
    /// before it. Without a format they use the system's default one.
    void addNum32(int value);
    void addNum32(int value, cNumberConversionFormat const& format);
    void addUNum32(unsigned int value);
    void addUNum32(unsigned int value, cNumberConversionFormat const& format);
    void addNum(long long value);
    void addNum(long long value, cNumberConversionFormat const& format);
    void addUNum(unsigned long long value);
    void addUNum(unsigned long long value, cNumberConversionFormat const& format);
    void addDouble(double value);
    void addDouble(double value, cNumberConversionFormat const& format);

    /// Replace the content by a number.
    void setNum32(int value);
    void setNum32(int value, cNumberConversionFormat const& format);
    void setUNum32(unsigned int value);
    void setUNum32(unsigned int value, cNumberConversionFormat const& format);
    void setNum(long long value);
    void setNum(long long value, cNumberConversionFormat const& format);
    void setUNum(unsigned long long value);
    void setUNum(unsigned long long value, cNumberConversionFormat const& format);
    void setDouble(double value);
    void setDouble(double value, cNumberConversionFormat const& format);

    /// The number that the whole text spells; cNumberConversion tells the grammar and the errors. Without a
    /// format they use the system's default one. toUInt() gives the 64 bits of toInt() unsigned.
    long long toInt() const;
    long long toInt(cNumberConversionFormat const& format) const;
    unsigned long long toUInt() const;
    unsigned long long toUInt(cNumberConversionFormat const& format) const;
    double toDouble() const;
    double toDouble(cNumberConversionFormat const& format) const;

    /// Fills up to `width` characters; a text as long as that stays. The text ends on the left.
    void leftAdjust(unsigned int width, char fill);
    /// As leftAdjust(), the text ends on the right.
    void rightAdjust(unsigned int width, char fill);
    /// As leftAdjust(), with half of the fill, rounded down, before the text and the rest behind it.
    void adjust(unsigned int width, char fill);
    /// Makes the text `width` characters long, or as long as `suffix` if that is longer: a shorter text is
    /// filled at its end, a longer one is cut so that it ends with the suffix.
    void setFixedLength(unsigned int width, cAsciiString const& suffix, char fill);
    /// Remove spaces (0x20 only) at the start, at the end, or at both.
    void ltrim();
    void rtrim();
    void trim();

    /// Map a to z and A to Z onto each other; any other byte stays.
    static char upperCase(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
    static char lowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
    /// Whether `c` lies between 0x20 and 0x7E.
    static bool isPrintable(char c) { return c >= 0x20 && c <= 0x7E; }
    /// Map every character in place.
    void toUpper();
    void toLower();
    /// An upper-case copy.
    cAsciiString upperCase() const;

    /// Compare lengths and characters, without any terminator. Nothing equals null.
    bool operator==(char const* text) const;
    bool operator!=(char const* text) const { return !(*this == text); }
    bool operator==(cAsciiString const& other) const;
    bool operator!=(cAsciiString const& other) const { return !(*this == other); }

    /// Store and load the string as the serializer's own kind of value. A failed load changes nothing.
    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);

private:
    void assign(char const* source, unsigned int count);
    void appendFrom(tAbstractConstArrayProxy<char> const& source);
    void pad(unsigned int before, unsigned int after, char fill);
};

template<typename Traits>
cAsciiString::cAsciiString(tConstArrayRef<char, Traits> const& view)
{
    appendFrom(view);
}

} // namespace nstd
