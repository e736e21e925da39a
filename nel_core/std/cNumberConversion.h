#pragma once

#include "nel_core/export.h"
#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

namespace nstd {

/// Numbers to text and back, in the bases and layouts that a format describes.
///
/// Text is an ASCII string, a Unicode string, or bytes: a byte array or a view onto one, read and written
/// through its proxy. Writing appends unless said otherwise. Any failure leaves the text as it was.
class NEL_EXPORT cNumberConversion {
public:
    cNumberConversion() = delete;

    /// Appends `value` in the base of the format. With a fixed width the WHOLE text, earlier content
    /// included, is then filled on the left up to that width, and the sign moves to the very front.
    static void toString(cAsciiString& out, long long value, cNumberConversionFormat const& format);
    static void toString(nucs::cString& out, long long value, cNumberConversionFormat const& format);
    static void toString(tArray<char>& out, long long value, cNumberConversionFormat const& format);
    static void toString(tArrayRef<char>& out, long long value, cNumberConversionFormat const& format);
    static void toString(cAsciiString& out, unsigned long long value, cNumberConversionFormat const& format);
    static void toString(nucs::cString& out, unsigned long long value, cNumberConversionFormat const& format);
    static void toString(tArray<char>& out, unsigned long long value, cNumberConversionFormat const& format);
    static void toString(tArrayRef<char>& out, unsigned long long value,
                         cNumberConversionFormat const& format);
    template<typename T>
    static void toString(T& out, int value, cNumberConversionFormat const& format)
    {
        toString(out, static_cast<long long>(value), format);
    }
    template<typename T>
    static void toString(T& out, unsigned int value, cNumberConversionFormat const& format)
    {
        toString(out, static_cast<unsigned long long>(value), format);
    }
    /// The number as a new string.
    static cAsciiString toString(int value, cNumberConversionFormat const& format);
    static cAsciiString toString(unsigned int value, cNumberConversionFormat const& format);
    static cAsciiString toString(long long value, cNumberConversionFormat const& format);
    static cAsciiString toString(unsigned long long value, cNumberConversionFormat const& format);

    /// Appends `value` in decimal, rounded to the precision of the format and without exponent. What is
    /// not finite replaces the whole text by "nan", "+inf" or "-inf". Digits come from binary arithmetic:
    /// those beyond the fifteenth significant one are noise.
    static void toStringFromDouble(cAsciiString& out, double value, cNumberConversionFormat const& format);
    static void toStringFromDouble(nucs::cString& out, double value, cNumberConversionFormat const& format);
    static void toStringFromDouble(tArray<char>& out, double value, cNumberConversionFormat const& format);
    static void toStringFromDouble(tArrayRef<char>& out, double value, cNumberConversionFormat const& format);
    /// The number as a new string.
    static cAsciiString toStringFromDouble(double value, cNumberConversionFormat const& format);

    /// The integer that the whole text spells; 0 for an empty text or one of ignored spaces.
    ///
    /// Spaces, a '-', a base prefix ("0x", "0h", "0d", "0b" or "<N>" with N from 1 to 36, at least one
    /// character following "0x" and its like), then digits in either case; each further '-' before the
    /// first digit flips the sign. Any other character raises the invalid-decimal runtime error with its
    /// index in the whole text. Overflow is not detected: the result is taken modulo 2^64.
    static long long fromString(char const* text, cNumberConversionFormat const& format);
    static long long fromString(cAsciiString const& text, cNumberConversionFormat const& format);
    static long long fromString(nucs::cString const& text, cNumberConversionFormat const& format);
    static long long fromString(tConstArrayRef<char> const& text, cNumberConversionFormat const& format);
    template<typename Traits>
    static long long fromString(tConstArrayRef<char, Traits> const& text,
                                cNumberConversionFormat const& format);

    /// The decimal number that the whole text spells, as in "-12.5e-3"; 0 for an empty text or one of
    /// ignored spaces. At least one digit stands before a '.', 'e' or 'E'. Any other character raises the
    /// invalid-decimal runtime error with its index in the whole text. Beyond the range of a double the
    /// result is infinite or 0.
    static double fromStringToDouble(char const* text, cNumberConversionFormat const& format);
    static double fromStringToDouble(cAsciiString const& text, cNumberConversionFormat const& format);
    static double fromStringToDouble(nucs::cString const& text, cNumberConversionFormat const& format);
    static double fromStringToDouble(tConstArrayRef<char> const& text, cNumberConversionFormat const& format);
    template<typename Traits>
    static double fromStringToDouble(tConstArrayRef<char, Traits> const& text,
                                     cNumberConversionFormat const& format);
};

} // namespace nstd
