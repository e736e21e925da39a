#include "nel_core/ucs/cString.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <utility>

#include "nel_core/pi/cAbstractOut.h"
#include "nel_core/sa/cAbstractDeserializer.h"
#include "nel_core/sa/cAbstractSerializer.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cNumberConversion.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/ucs/cAbstractEnDec.h"

namespace nucs {
namespace {

constexpr unsigned int kGrowStep = 2;
constexpr unsigned int kSpace = 32;
constexpr unsigned int kCaseDistance = 'a' - 'A';

unsigned int narrow(std::size_t length)
{
    return nstd::tBounds::narrow(length, "tArray", "append");
}

unsigned int lengthOf(char const* text)
{
    return text ? narrow(std::strlen(text)) : 0;
}

unsigned int lengthOf(wchar_t const* text)
{
    return text ? narrow(std::wcslen(text)) : 0;
}

unsigned int codePointOf(char byte)
{
    return static_cast<unsigned char>(byte);
}

nstd::cNumberConversionFormat const& defaultFormat()
{
    return nstd::cNumberConversionFormat::getGlobalDefaultNumberConversionFormat();
}

// Rendered apart from any text, because a fixed width and "nan" count for the whole of their target.
template<typename Number>
cString rendered(Number number, nstd::cNumberConversionFormat const& format)
{
    cString text;
    nstd::cNumberConversion::toString(text, number, format);
    return text;
}

cString rendered(double number, nstd::cNumberConversionFormat const& format)
{
    cString text;
    nstd::cNumberConversion::toStringFromDouble(text, number, format);
    return text;
}

} // namespace

cString::cString()
{
    setGrowStep(kGrowStep);
    setFitOnErase(false);
}

cString::cString(cString&& other) noexcept : cString()
{
    swap(other);
}

cString::cString(wchar_t const* text) : cString()
{
    auto const count = lengthOf(text);
    appendElements(count);
    if (count != 0)
        std::memcpy(data(), text, count * sizeof(wchar_t));
}

cString::cString(char const* text) : cString()
{
    appendC(text);
}

cString::cString(nstd::cAsciiString const& text, char replacement) : cString()
{
    fromAscii(text, codePointOf(replacement));
}

cString::cString(std::u32string_view text) : cString()
{
    auto const count = narrow(text.size());
    appendElements(count);
    if (count != 0)
        std::memcpy(data(), text.data(), count * sizeof(char32_t));
}

cString::~cString() = default;

cString& cString::operator=(cString&& other) noexcept
{
    cString taken(std::move(other));
    swap(taken);
    return *this;
}

cString& cString::operator=(tArrayType const& codePoints)
{
    if (&codePoints == this)
        return *this;
    if (codePoints.length() == 0)
        truncate(0);
    else
        setData(codePoints.data(), codePoints.length());
    return *this;
}

cString& cString::operator=(char const* text)
{
    auto const count = lengthOf(text);
    setSize(count);
    std::transform(text, text + count, data(true), codePointOf);
    return *this;
}

void cString::fromAscii(nstd::cAsciiString const& text, unsigned int replacement)
{
    auto const count = text.length();
    setSize(count);
    auto const codePointOrReplacement = [=](char byte) {
        auto const codePoint = codePointOf(byte);
        return codePoint < 0x80 ? codePoint : replacement;
    };
    std::transform(text.c_str(), text.c_str() + count, data(true), codePointOrReplacement);
}

void cString::toAscii(nstd::cAsciiString& target, char replacement) const
{
    auto const at = target.appendElements(length());
    auto const byteOrReplacement = [=](unsigned int codePoint) {
        return codePoint < 0x80 ? static_cast<char>(codePoint) : replacement;
    };
    std::transform(data(true), data(true) + length(), target.data() + at, byteOrReplacement);
}

nstd::cAsciiString cString::ascii(char replacement) const
{
    nstd::cAsciiString text;
    toAscii(text, replacement);
    return text;
}

cString::operator std::u32string_view() const
{
    return std::u32string_view(reinterpret_cast<char32_t const*>(data(true)), length());
}

unsigned int cString::appendC(char const* text)
{
    return appendC(text, lengthOf(text));
}

unsigned int cString::appendC(char const* text, unsigned int count)
{
    auto const at = appendElements(count);
    if (count != 0)
        std::transform(text, text + count, data() + at, codePointOf);
    return at;
}

void cString::addString(cString const& other)
{
    if (other.length() != 0)
        append(other.data(), other.length());
}

cString& cString::operator+=(cString const& other)
{
    addString(other);
    return *this;
}

cString cString::operator+(cString const& other) const
{
    cString sum(*this);
    sum.addString(other);
    return sum;
}

bool cString::operator==(cString const& other) const
{
    return length() == other.length() && std::equal(data(true), data(true) + length(), other.data(true));
}

bool cString::operator==(wchar_t const* text) const
{
    auto const same = [](unsigned int codePoint, wchar_t unit) {
        return codePoint == static_cast<unsigned int>(unit);
    };
    return text && std::wcslen(text) == length() && std::equal(data(true), data(true) + length(), text, same);
}

bool cString::ccs(char const* text) const
{
    auto const same = [](unsigned int codePoint, char byte) { return codePoint == codePointOf(byte); };
    return text && std::strlen(text) == length() && std::equal(data(true), data(true) + length(), text, same);
}

bool cString::operator==(nstd::cAsciiString const& text) const
{
    return ccs(text.c_str());
}

void cString::setNum32(int number)
{
    setNum32(number, defaultFormat());
}

void cString::setNum32(int number, nstd::cNumberConversionFormat const& format)
{
    setNum(static_cast<long long>(number), format);
}

void cString::setUNum32(unsigned int number)
{
    setUNum32(number, defaultFormat());
}

void cString::setUNum32(unsigned int number, nstd::cNumberConversionFormat const& format)
{
    setUNum(static_cast<unsigned long long>(number), format);
}

void cString::setNum(long long number)
{
    setNum(number, defaultFormat());
}

void cString::setNum(long long number, nstd::cNumberConversionFormat const& format)
{
    *this = rendered(number, format).array();
}

void cString::setUNum(unsigned long long number)
{
    setUNum(number, defaultFormat());
}

void cString::setUNum(unsigned long long number, nstd::cNumberConversionFormat const& format)
{
    *this = rendered(number, format).array();
}

void cString::setDouble(double number)
{
    setDouble(number, defaultFormat());
}

void cString::setDouble(double number, nstd::cNumberConversionFormat const& format)
{
    *this = rendered(number, format).array();
}

void cString::addNum32(int number)
{
    addNum32(number, defaultFormat());
}

void cString::addNum32(int number, nstd::cNumberConversionFormat const& format)
{
    addNum(static_cast<long long>(number), format);
}

void cString::addUNum32(unsigned int number)
{
    addUNum32(number, defaultFormat());
}

void cString::addUNum32(unsigned int number, nstd::cNumberConversionFormat const& format)
{
    addUNum(static_cast<unsigned long long>(number), format);
}

void cString::addNum(long long number)
{
    addNum(number, defaultFormat());
}

void cString::addNum(long long number, nstd::cNumberConversionFormat const& format)
{
    addString(rendered(number, format));
}

void cString::addUNum(unsigned long long number)
{
    addUNum(number, defaultFormat());
}

void cString::addUNum(unsigned long long number, nstd::cNumberConversionFormat const& format)
{
    addString(rendered(number, format));
}

void cString::addDouble(double number)
{
    addDouble(number, defaultFormat());
}

void cString::addDouble(double number, nstd::cNumberConversionFormat const& format)
{
    addString(rendered(number, format));
}

long long cString::toInt() const
{
    return toInt(defaultFormat());
}

long long cString::toInt(nstd::cNumberConversionFormat const& format) const
{
    return nstd::cNumberConversion::fromString(*this, format);
}

unsigned long long cString::toUInt() const
{
    return toUInt(defaultFormat());
}

unsigned long long cString::toUInt(nstd::cNumberConversionFormat const& format) const
{
    return static_cast<unsigned long long>(toInt(format));
}

double cString::toDouble() const
{
    return toDouble(defaultFormat());
}

double cString::toDouble(nstd::cNumberConversionFormat const& format) const
{
    return nstd::cNumberConversion::fromStringToDouble(*this, format);
}

unsigned int cString::upperCase(unsigned int codePoint)
{
    return codePoint >= 'a' && codePoint <= 'z' ? codePoint - kCaseDistance : codePoint;
}

unsigned int cString::lowerCase(unsigned int codePoint)
{
    return codePoint >= 'A' && codePoint <= 'Z' ? codePoint + kCaseDistance : codePoint;
}

void cString::upperCase()
{
    for (unsigned int i = 0; i < length(); ++i)
        (*this)[i] = upperCase((*this)[i]);
}

void cString::lowerCase()
{
    for (unsigned int i = 0; i < length(); ++i)
        (*this)[i] = lowerCase((*this)[i]);
}

void cString::ltrim()
{
    unsigned int spaces = 0;
    while (spaces < length() && (*this)[spaces] == kSpace)
        ++spaces;
    if (spaces != 0)
        erase(0, spaces);
}

void cString::rtrim()
{
    auto end = length();
    while (end != 0 && (*this)[end - 1] == kSpace)
        --end;
    if (end != length())
        truncate(end);
}

void cString::trim()
{
    rtrim();
    ltrim();
}

void cString::leftAdjust(unsigned int width, unsigned int fill)
{
    if (length() < width)
        pad(0, width - length(), fill);
}

void cString::rightAdjust(unsigned int width, unsigned int fill)
{
    if (length() < width)
        pad(width - length(), 0, fill);
}

void cString::adjust(unsigned int width, unsigned int fill)
{
    if (length() >= width)
        return;
    auto const missing = width - length();
    pad(missing / 2, missing - missing / 2, fill);
}

void cString::setFixedLength(unsigned int length, cString const& suffix, unsigned int fill)
{
    auto const fixed = std::max(length, suffix.length());
    if (this->length() <= fixed)
        return leftAdjust(fixed, fill);
    std::copy_n(suffix.data(true), suffix.length(), data() + (fixed - suffix.length()));
    truncate(fixed);
}

nsa::cAbstractSerializer& cString::operator>>(nsa::cAbstractSerializer& serializer) const
{
    serializer.store(*this);
    return serializer;
}

nsa::cAbstractDeserializer& cString::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    deserializer.load(*this);
    return deserializer;
}

// Makes all the room at once, so that a failure changes nothing.
void cString::pad(unsigned int before, unsigned int behind, unsigned int fill)
{
    auto const old = appendElements(before + behind, fill);
    std::copy_backward(data(), data() + old, data() + old + before);
    std::fill_n(data(), before, fill);
}

npi::cAbstractOut& operator<<(npi::cAbstractOut& out, cString const& text)
{
    auto const* const enDec = out.hasEnDec();
    if (!enDec)
        return out << text.ascii();

    nstd::tArray<char> bytes;
    enDec->encode(text, bytes);
    return out << nstd::cAsciiString(nstd::tConstArrayRef<char>(bytes));
}

} // namespace nucs
