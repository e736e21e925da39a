#include "nel_core/std/cNumberConversion.h"

#include <cmath>
#include <cstring>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tArrayRef.h"
#include "nel_core/ucs/cString.h"

namespace nstd {
namespace {

// `Element` is that of the text: char, or unsigned int for code points.

template<typename Element>
Element elementOf(char c)
{
    return static_cast<Element>(static_cast<unsigned char>(c));
}

unsigned int countDigits(unsigned long long value, unsigned int base)
{
    unsigned int count = 1;
    for (unsigned long long const square = 1ULL * base * base; value >= square; value /= square)
        count += 2;
    return value < base ? count : count + 1;
}

unsigned int countDecimals(unsigned long long value)
{
    for (unsigned int count = 1;; count += 4, value /= 10000) {
        if (value < 10000)
            return count + (value >= 10 ? 1 : 0) + (value >= 100 ? 1 : 0) + (value >= 1000 ? 1 : 0);
    }
}

unsigned int countDigitsOfBits(unsigned long long value, unsigned int bitsPerDigit)
{
    auto const bits = 64 - static_cast<unsigned int>(__builtin_clzll(value | 1));
    return (bits + bitsPerDigit - 1) / bitsPerDigit;
}

// The number of bits of a digit in a base that is a power of two, otherwise 0.
constexpr unsigned int bitsOf(unsigned int base)
{
    switch (base) {
    case 2: return 1;
    case 4: return 2;
    case 8: return 3;
    case 16: return 4;
    case 32: return 5;
    default: return 0;
    }
}

unsigned int lengthInBase(unsigned long long value, unsigned int base)
{
    if (base == 10)
        return countDecimals(value);
    unsigned int const bits = bitsOf(base);
    return bits == 0 ? countDigits(value, base) : countDigitsOfBits(value, bits);
}

template<typename Element>
void writeDecimal(Element* end, unsigned long long value, char const* symbols)
{
    for (; value >= 100; value /= 100) {
        auto const two = static_cast<unsigned int>(value % 100);
        *--end = elementOf<Element>(symbols[two % 10]);
        *--end = elementOf<Element>(symbols[two / 10]);
    }
    auto rest = static_cast<unsigned int>(value);
    if (rest >= 10) {
        *--end = elementOf<Element>(symbols[rest % 10]);
        rest /= 10;
    }
    *--end = elementOf<Element>(symbols[rest]);
}

// Writes the digits so that the last one stands before `end`.
template<typename Element>
void writeDigits(Element* end, unsigned long long value, cNumberConversionFormat const& format)
{
    char const* const symbols = format.getDigitSymbolSet();
    unsigned int const base = format.base();
    if (base == 10)
        return writeDecimal(end, value, symbols);
    unsigned int const bits = bitsOf(base);
    do {
        unsigned long long const rest = bits == 0 ? value / base : value >> bits;
        *--end = elementOf<Element>(symbols[value - rest * base]);
        value = rest;
    } while (value != 0);
}

// Grows the text once, and then cannot fail: what stands in it moves up by the filling in front.
template<typename Element, typename Traits>
void appendInteger(tArray<Element, Traits>& out, bool negative, unsigned long long magnitude,
                   cNumberConversionFormat const& format, unsigned int width)
{
    unsigned int const oldLength = out.length();
    unsigned int const signLength = negative ? 1 : 0;
    unsigned int const numberLength = signLength + lengthInBase(magnitude, format.base());
    unsigned int const unfilled = tBounds::sum(oldLength, numberLength, "tArray", "append");
    unsigned int const fillLength = unfilled < width ? width - unfilled : 0;
    out.appendElements(fillLength + numberLength);

    Element* const text = out.data();
    Element* const number = text + fillLength + oldLength;
    if (fillLength != 0) {
        Traits::move(text + fillLength, text, oldLength);
        Traits::fill(text, elementOf<Element>(format.leadingDigit()), fillLength);
    }
    if (negative) { // the sign stands before the filling, which takes its place before the digits
        *number = elementOf<Element>(format.leadingDigit());
        *(fillLength == 0 ? number : text) = '-';
    }
    writeDigits(number + numberLength, magnitude, format);
}

template<typename Element, typename Traits>
void appendInteger(tArray<Element, Traits>& out, bool negative, unsigned long long magnitude,
                   cNumberConversionFormat const& format)
{
    appendInteger(out, negative, magnitude, format, format.fixedWidth());
}

// A view is written through its proxy: the new end at once, and what a filling moves in place afterwards.
void appendInteger(tArrayRef<char>& out, bool negative, unsigned long long magnitude,
                   cNumberConversionFormat const& format)
{
    bool const mayFill = out.length() < format.fixedWidth();
    unsigned int const oldLength = mayFill ? out.length() : 0;
    tArray<char> result(oldLength);
    if (oldLength != 0)
        out.proxyCopyPartTo(result.data(), 0, oldLength);
    appendInteger(result, negative, magnitude, format, mayFill ? format.fixedWidth() : 0);
    out.append(result.data() + oldLength, result.length() - oldLength);
    if (oldLength != 0)
        out.proxyPatchData(0, oldLength, result.data());
}

template<typename Text>
void appendSigned(Text& out, long long value, cNumberConversionFormat const& format)
{
    auto const bits = static_cast<unsigned long long>(value);
    appendInteger(out, value < 0, value < 0 ? 0 - bits : bits, format);
}

// A finite double as text: everything but the zeros that the fraction still needs to have all its digits.
struct cDoubleText {
    char text[1024]; // sign, 309 integer digits, point, at most 633 fraction digits that can be computed
    unsigned int length = 0;
    unsigned int missingZeros = 0;

    void add(char c) { text[length++] = c; }
    void addIntegerPart(double value, char const* symbols);
    void addFraction(double value, cNumberConversionFormat const& format);
};

unsigned int lastDigitOf(double value)
{
    return static_cast<unsigned int>(std::fmod(value, 10.0));
}

void cDoubleText::addIntegerPart(double value, char const* symbols)
{
    if (value < 1.0)
        return add('0');
    char reversed[320];
    unsigned int count = 0;
    for (; value >= 1.0; value /= 10.0)
        reversed[count++] = symbols[lastDigitOf(value)];
    while (count != 0)
        add(reversed[--count]);
}

void cDoubleText::addFraction(double value, cNumberConversionFormat const& format)
{
    char const* const symbols = format.getDigitSymbolSet();
    unsigned int const lengthBefore = length;
    if (format.isAddIntegerPart())
        add('.');
    unsigned int used = lengthBefore; // up to the last digit that is not zero
    unsigned int count = 0;
    for (; count < format.precision(); ++count) {
        value *= 10.0;
        if (value == 0.0 || !std::isfinite(value))
            break; // all further digits are zeros
        unsigned int const digit = lastDigitOf(value);
        add(symbols[digit]);
        if (digit != 0)
            used = length;
    }
    if (format.isRemoveTrainlingZeros())
        length = used;
    else
        missingZeros = format.precision() - count;
}

double roundedMagnitude(double value, unsigned int precision)
{
    double half = 0.5;
    for (unsigned int i = 0; i < precision && half > 0.0; ++i)
        half /= 10.0;
    return std::fabs(value) + half;
}

template<typename Text>
void appendText(Text& out, char const* source, unsigned int count)
{
    out.append(source, count);
}

void appendText(nucs::cString& out, char const* source, unsigned int count)
{
    out.appendC(source, count);
}

template<typename Text>
void appendFinite(Text& out, double value, cNumberConversionFormat const& format)
{
    cDoubleText result;
    double const rounded = roundedMagnitude(value, format.precision());
    if (format.isAddIntegerPart()) {
        if (value < 0.0)
            result.add('-');
        result.addIntegerPart(rounded, format.getDigitSymbolSet());
    }
    if (format.isAddFractionalPart() && format.precision() > 0)
        result.addFraction(rounded, format);
    if (result.missingZeros == 0)
        return appendText(out, result.text, result.length);

    tArray<char> whole(result.text, result.length);
    whole.appendElements(result.missingZeros, format.getDigitSymbolSet()[0]);
    appendText(out, whole.data(), whole.length());
}

template<typename Text>
void appendDouble(Text& out, double value, cNumberConversionFormat const& format)
{
    if (std::isfinite(value))
        return appendFinite(out, value, format);
    unsigned int const oldLength = out.length();
    char const* const name = std::isnan(value) ? "nan" : (value > 0.0 ? "+inf" : "-inf");
    appendText(out, name, static_cast<unsigned int>(std::strlen(name)));
    if (oldLength != 0)
        out.erase(0, oldLength);
}

} // namespace

void cNumberConversion::toString(cAsciiString& out, long long value, cNumberConversionFormat const& format)
{
    appendSigned(out, value, format);
}

void cNumberConversion::toString(nucs::cString& out, long long value, cNumberConversionFormat const& format)
{
    appendSigned(out, value, format);
}

void cNumberConversion::toString(tArray<char>& out, long long value, cNumberConversionFormat const& format)
{
    appendSigned(out, value, format);
}

void cNumberConversion::toString(tArrayRef<char>& out, long long value, cNumberConversionFormat const& format)
{
    appendSigned(out, value, format);
}

void cNumberConversion::toString(cAsciiString& out, unsigned long long value,
                                 cNumberConversionFormat const& format)
{
    appendInteger(out, false, value, format);
}

void cNumberConversion::toString(nucs::cString& out, unsigned long long value,
                                 cNumberConversionFormat const& format)
{
    appendInteger(out, false, value, format);
}

void cNumberConversion::toString(tArray<char>& out, unsigned long long value,
                                 cNumberConversionFormat const& format)
{
    appendInteger(out, false, value, format);
}

void cNumberConversion::toString(tArrayRef<char>& out, unsigned long long value,
                                 cNumberConversionFormat const& format)
{
    appendInteger(out, false, value, format);
}

cAsciiString cNumberConversion::toString(int value, cNumberConversionFormat const& format)
{
    return toString(static_cast<long long>(value), format);
}

cAsciiString cNumberConversion::toString(unsigned int value, cNumberConversionFormat const& format)
{
    return toString(static_cast<unsigned long long>(value), format);
}

cAsciiString cNumberConversion::toString(long long value, cNumberConversionFormat const& format)
{
    cAsciiString result;
    toString(result, value, format);
    return result;
}

cAsciiString cNumberConversion::toString(unsigned long long value, cNumberConversionFormat const& format)
{
    cAsciiString result;
    toString(result, value, format);
    return result;
}

void cNumberConversion::toStringFromDouble(cAsciiString& out, double value,
                                           cNumberConversionFormat const& format)
{
    appendDouble(out, value, format);
}

void cNumberConversion::toStringFromDouble(nucs::cString& out, double value,
                                           cNumberConversionFormat const& format)
{
    appendDouble(out, value, format);
}

void cNumberConversion::toStringFromDouble(tArray<char>& out, double value,
                                           cNumberConversionFormat const& format)
{
    appendDouble(out, value, format);
}

void cNumberConversion::toStringFromDouble(tArrayRef<char>& out, double value,
                                           cNumberConversionFormat const& format)
{
    appendDouble(out, value, format);
}

cAsciiString cNumberConversion::toStringFromDouble(double value, cNumberConversionFormat const& format)
{
    cAsciiString result;
    toStringFromDouble(result, value, format);
    return result;
}

} // namespace nstd
