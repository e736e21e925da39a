#pragma once

#include "nel_core/export.h"
#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

namespace nstd {

/// How a number is written as text and read from it: base, digit symbols, width, prefixes, precision.
///
/// A plain value. Every conversion without an explicit format uses the process-wide default one.
class NEL_EXPORT cNumberConversionFormat {
public:
    /// Which letters stand for the digits from 10 on.
    enum DigitCase : unsigned int {
        dcUpper = 0, ///< A to Z
        dcLower = 1, ///< a to z
    };

    /// Lower-case digits, no fixed width, leading spaces ignored, base prefixes detected, a precision of
    /// 14 with trailing zeros removed. Raises as setBase() does.
    explicit cNumberConversionFormat(unsigned int base);
    cNumberConversionFormat(cNumberConversionFormat const& other);
    cNumberConversionFormat& operator=(cNumberConversionFormat const& other);
    virtual ~cNumberConversionFormat();

    /// The format of all conversions without an explicit one: that of the system object, which this call
    /// creates when there is none; a fixed base-10 format while the system is being built or torn down.
    static cNumberConversionFormat const& getGlobalDefaultNumberConversionFormat();

    /// Looks for a base prefix at the start of `text`: "0x" and "0h" (16), "0d" (10), "0b" (2), and
    /// "<base:N>" with one or two decimal digits N from 1 to 36. Texts shorter than three characters have
    /// none. Gives the base and the number of characters of the prefix; both stay as they are when false.
    static bool detectBase(cAsciiString const& text, unsigned int& base, unsigned int& prefixLength);
    static bool detectBase(nucs::cString const& text, unsigned int& base, unsigned int& prefixLength);
    static bool detectBase(tConstArrayRef<char> const& text, unsigned int& base, unsigned int& prefixLength);
    template<typename Traits>
    static bool detectBase(tConstArrayRef<char, Traits> const& text, unsigned int& base,
                           unsigned int& prefixLength);

    /// The base of integers, from 2 to 36.
    unsigned int base() const { return miBase; }
    /// Raises the invalid-base runtime error for a base outside of 2 to 36.
    void setBase(unsigned int base);

    /// The least number of characters of a written integer, sign included; 0 for none.
    unsigned int fixedWidth() const { return miFixedWidth; }
    void setFixedWidth(unsigned int width) { miFixedWidth = width; }

    /// What fills a number up to the fixed width.
    char leadingDigit() const { return mcLeadingDigit; }
    void setLeadingDigit(char digit) { mcLeadingDigit = digit; }

    DigitCase digitCase() const { return meDigitCase; }
    /// Replaces all 36 digit symbols by 0 to 9 and the letters of that case.
    void setDigitCase(DigitCase digitCase);

    /// Whether spaces (0x20 only) before a number are skipped when it is read.
    bool ignoreLeadingSpaces() const { return mbIgnoreLeadingSpaces; }
    void setIgnoreLeadingSpaces(bool ignore) { mbIgnoreLeadingSpaces = ignore; }

    /// Whether a prefix of the read text overrides the base.
    bool baseDetectionEnabled() const { return mbBaseDetection; }
    void setBaseDetectionEnabled(bool enabled) { mbBaseDetection = enabled; }

    /// The 36 digit symbols and a terminating zero, valid as long as the format.
    char const* getDigitSymbolSet() const { return mcDigitSymbols; }
    /// Symbol `i`; 36 is the terminator. Raises out-of-range ("DigitSymbols", "at") for a larger one.
    char digitChar(unsigned int i) const;
    /// Replaces symbol `i`. Raises as digitChar().
    void setDigitSymbol(unsigned int i, char symbol);

    /// The number of fraction digits of a written double.
    unsigned int precision() const { return miPrecision; }
    void setPrecision(unsigned int precision) { miPrecision = precision; }

    /// Whether the zeros at the end of a fraction are left out.
    bool isRemoveTrainlingZeros() const { return mbRemoveTrailingZeros; }
    void setRemoveTrailingZeros(bool remove) { mbRemoveTrailingZeros = remove; }

    /// Whether sign and integer part of a double are written.
    bool isAddIntegerPart() const { return mbAddIntegerPart; }
    void addIntegerPart(bool add) { mbAddIntegerPart = add; }

    /// Whether the fraction of a double is written.
    bool isAddFractionalPart() const { return mbAddFractionalPart; }
    void addFractionalPart(bool add) { mbAddFractionalPart = add; }

private:
    static constexpr unsigned int kSymbolCount = 36;

    unsigned int miBase;
    unsigned int miFixedWidth = 0;
    char mcLeadingDigit = '0';
    DigitCase meDigitCase = dcLower;
    bool mbIgnoreLeadingSpaces = true;
    bool mbBaseDetection = true;
    char mcDigitSymbols[kSymbolCount + 1] = "0123456789abcdefghijklmnopqrstuvwxyz";
    unsigned int miPrecision = 14;
    bool mbRemoveTrailingZeros = true;
    bool mbAddIntegerPart = true;
    bool mbAddFractionalPart = true;
};

} // namespace nstd
