#include "nel_core/std/cNumberConversion.h"

#include <cmath>
#include <cstring>

#include "nel_core/std/basePrefix.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/ucs/cString.h"

// The half of the class that reads numbers from text.

namespace nstd {
namespace {

unsigned int codeOf(char c)
{
    return static_cast<unsigned char>(c);
}

unsigned int codeOf(unsigned int codePoint)
{
    return codePoint;
}

constexpr unsigned int upperCaseOf(unsigned int code)
{
    return code >= 'a' && code <= 'z' ? code - 'a' + 'A' : code;
}

// What the bytes are worth as digits and letters in either case.
struct cStandardDigits {
    constexpr cStandardDigits()
    {
        for (unsigned int code = 0; code < 256; ++code) {
            unsigned int const upper = upperCaseOf(code);
            if (code >= '0' && code <= '9')
                values[code] = static_cast<unsigned char>(code - '0');
            else if (upper >= 'A' && upper <= 'Z')
                values[code] = static_cast<unsigned char>(10 + upper - 'A');
            else
                values[code] = kNoDigit;
        }
    }

    static constexpr unsigned char kNoDigit = 0xFF;
    unsigned char values[256] = {};
};
constexpr cStandardDigits kStandardDigits;

// What characters are worth in a base, looked up in a table as long as the format has the standard symbols.
class cDigitValues {
public:
    cDigitValues(char const* symbols, unsigned int base)
        : mpSymbols(symbols),
          miBase(base),
          mbStandard(areStandard(symbols, base))
    {
    }

    // Anything from the base on is no digit.
    unsigned int valueOf(unsigned int code) const
    {
        if (mbStandard)
            return code < 256 ? kStandardDigits.values[code] : cStandardDigits::kNoDigit;
        return search(upperCaseOf(code));
    }

private:
    static bool areStandard(char const* symbols, unsigned int base)
    {
        return areEqual<10>(symbols, "0123456789")
               && (base <= 10 || areEqual<26>(symbols + 10, "abcdefghijklmnopqrstuvwxyz")
                   || areEqual<26>(symbols + 10, "ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
    }

    // In pieces that the compiler compares in registers: this is done for every number.
    template<unsigned int Count>
    static bool areEqual(char const* left, char const* right)
    {
        unsigned int at = 0;
        for (; at + 8 <= Count; at += 8) {
            if (std::memcmp(left + at, right + at, 8) != 0)
                return false;
        }
        return std::memcmp(left + at, right + at, Count % 8) == 0;
    }

    unsigned int search(unsigned int upperCode) const
    {
        unsigned int value = 0;
        while (value < miBase && upperCaseOf(codeOf(mpSymbols[value])) != upperCode)
            ++value;
        return value;
    }

    char const* mpSymbols;
    unsigned int miBase;
    bool mbStandard;
};

template<typename Element>
unsigned int skipSpaces(Element const* text, unsigned int length, cNumberConversionFormat const& format)
{
    unsigned int at = 0;
    while (format.ignoreLeadingSpaces() && at < length && text[at] == ' ')
        ++at;
    return at;
}

// The parsers give the index of the first character that does not belong to the number: the length of the
// text when all is well.

template<typename Element>
unsigned int parse(Element const* text, unsigned int length, cNumberConversionFormat const& format,
                   long long& value)
{
    unsigned int at = skipSpaces(text, length, format);
    bool negative = false;
    if (at < length && text[at] == '-') {
        negative = true;
        ++at;
    }
    unsigned int base = format.base();
    if (format.baseDetectionEnabled())
        at += basePrefix(text + at, length - at, "<", base);
    for (; at < length && text[at] == '-'; ++at)
        negative = !negative;

    cDigitValues const digits(format.getDigitSymbolSet(), base);
    unsigned long long magnitude = 0;
    for (; at < length; ++at) {
        unsigned int const digit = digits.valueOf(codeOf(text[at]));
        if (digit >= base)
            break;
        magnitude = magnitude * base + digit;
    }
    value = static_cast<long long>(negative ? 0 - magnitude : magnitude);
    return at;
}

// A decimal number, taken in character by character.
class cDecimalReader {
public:
    // False when the character cannot stand here.
    bool take(unsigned int code);
    double value() const;

private:
    enum class Part { mantissa, fraction, exponent };

    static constexpr unsigned int kMaxExponent = 100000; // far beyond any double

    void takeDigit(unsigned int digit);
    bool takeSign(unsigned int code);
    bool start(Part part);

    Part mePart = Part::mantissa;
    bool mbNegative = false;
    bool mbNegativeExponent = false;
    bool mbDigitSeen = false;
    bool mbExponentDigitSeen = false;
    double mdMantissa = 0.0;
    double mdFractionScale = 1.0;
    unsigned int miExponent = 0;
};

bool cDecimalReader::take(unsigned int code)
{
    if (code - '0' < 10) {
        takeDigit(code - '0');
        return true;
    }
    switch (code) {
    case '+':
    case '-': return takeSign(code);
    case '.': return start(Part::fraction);
    case 'e':
    case 'E': return start(Part::exponent);
    default: return false;
    }
}

void cDecimalReader::takeDigit(unsigned int digit)
{
    switch (mePart) {
    case Part::mantissa:
        mdMantissa = mdMantissa * 10.0 + digit;
        mbDigitSeen = true;
        break;
    case Part::fraction:
        mdFractionScale *= 10.0;
        mdMantissa += digit / mdFractionScale;
        break;
    case Part::exponent:
        miExponent = miExponent * 10 + digit;
        if (miExponent > kMaxExponent)
            miExponent = kMaxExponent;
        mbExponentDigitSeen = true;
        break;
    }
}

// From the first digit on the sign is that of the exponent, with or without an 'e'.
bool cDecimalReader::takeSign(unsigned int code)
{
    if (mbExponentDigitSeen)
        return false;
    bool& negative = mbDigitSeen ? mbNegativeExponent : mbNegative;
    negative = negative != (code == '-');
    return true;
}

bool cDecimalReader::start(Part part)
{
    if (!mbDigitSeen || mbExponentDigitSeen)
        return false;
    mePart = part;
    mdFractionScale = 1.0;
    return true;
}

double cDecimalReader::value() const
{
    double const mantissa = mbNegative ? -mdMantissa : mdMantissa;
    if (mantissa == 0.0 || !std::isfinite(mantissa))
        return mantissa; // whatever the exponent: zero times infinity would be no number
    double result = 1.0;
    double power = mbNegativeExponent ? 0.1 : 10.0;
    for (unsigned int rest = miExponent; rest != 0; rest >>= 1) {
        if ((rest & 1) != 0)
            result *= power;
        power *= power;
    }
    return mantissa * result;
}

template<typename Element>
unsigned int parse(Element const* text, unsigned int length, cNumberConversionFormat const& format,
                   double& value)
{
    cDecimalReader reader;
    unsigned int at = skipSpaces(text, length, format);
    while (at < length && reader.take(codeOf(text[at])))
        ++at;
    value = reader.value();
    return at;
}

[[noreturn]] void throwInvalid(char const* text, unsigned int length, unsigned int at)
{
    nucs::cString string;
    string.appendC(text, length);
    cSTDExceptions::throwInvalidDecimal(string, at);
}

[[noreturn]] void throwInvalid(unsigned int const* text, unsigned int length, unsigned int at)
{
    nucs::cString string;
    string.append(text, length);
    cSTDExceptions::throwInvalidDecimal(string, at);
}

template<typename Number, typename Element>
Number read(Element const* text, unsigned int length, cNumberConversionFormat const& format)
{
    Number value = 0;
    unsigned int const end = parse(text, length, format, value);
    if (end != length)
        throwInvalid(text, length, end);
    return value;
}

// A view is read where it lies, unless its proxy hands out pieces only.
template<typename Number, typename Traits>
Number readView(tConstArrayRef<char, Traits> const& view, cNumberConversionFormat const& format)
{
    unsigned int const length = view.length();
    if (length == 0)
        return 0;
    if (view.proxyPreferredBlockSize() == 0)
        return read<Number>(view.proxyProvideData(0, length), length, format);
    tArray<char> copy(length);
    view.proxyCopyPartTo(copy.data(), 0, length);
    return read<Number>(copy.data(), length, format);
}

} // namespace

long long cNumberConversion::fromString(char const* text, cNumberConversionFormat const& format)
{
    return fromString(cAsciiString(text), format);
}

long long cNumberConversion::fromString(cAsciiString const& text, cNumberConversionFormat const& format)
{
    return read<long long>(text.data(true), text.length(), format);
}

long long cNumberConversion::fromString(nucs::cString const& text, cNumberConversionFormat const& format)
{
    return read<long long>(text.data(true), text.length(), format);
}

long long cNumberConversion::fromString(tConstArrayRef<char> const& text,
                                        cNumberConversionFormat const& format)
{
    return readView<long long>(text, format);
}

template<typename Traits>
long long cNumberConversion::fromString(tConstArrayRef<char, Traits> const& text,
                                        cNumberConversionFormat const& format)
{
    return readView<long long>(text, format);
}

double cNumberConversion::fromStringToDouble(char const* text, cNumberConversionFormat const& format)
{
    return fromStringToDouble(cAsciiString(text), format);
}

double cNumberConversion::fromStringToDouble(cAsciiString const& text, cNumberConversionFormat const& format)
{
    return read<double>(text.data(true), text.length(), format);
}

double cNumberConversion::fromStringToDouble(nucs::cString const& text, cNumberConversionFormat const& format)
{
    return read<double>(text.data(true), text.length(), format);
}

double cNumberConversion::fromStringToDouble(tConstArrayRef<char> const& text,
                                             cNumberConversionFormat const& format)
{
    return readView<double>(text, format);
}

template<typename Traits>
double cNumberConversion::fromStringToDouble(tConstArrayRef<char, Traits> const& text,
                                             cNumberConversionFormat const& format)
{
    return readView<double>(text, format);
}

using cTextView = tConstArrayRef<char, tArrayAsciiStringTraits<char>>;
template NEL_EXPORT long long cNumberConversion::fromString(cTextView const&, cNumberConversionFormat const&);
template NEL_EXPORT double cNumberConversion::fromStringToDouble(cTextView const&,
                                                                 cNumberConversionFormat const&);

} // namespace nstd
