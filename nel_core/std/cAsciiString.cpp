#include "nel_core/std/cAsciiString.h"

#include <cmath>
#include <cstring>
#include <utility>

#include "nel_core/sa/cAbstractDeserializer.h"
#include "nel_core/sa/cAbstractSerializer.h"
#include "nel_core/std/cNumberConversion.h"
#include "nel_core/std/cNumberConversionFormat.h"

namespace nstd {
namespace {

cNumberConversionFormat const& defaultFormat()
{
    return cNumberConversionFormat::getGlobalDefaultNumberConversionFormat();
}

char const* orEmpty(char const* text)
{
    return text == nullptr ? "" : text;
}

unsigned int lengthOf(char const* text)
{
    return text == nullptr ? 0 : tBounds::narrow(std::strlen(text), "tArray", "append");
}

unsigned int checkedStart(cAsciiString const& text, unsigned int start)
{
    if (start > text.length())
        cSTDExceptions::throwOutOfBounds("tArray", "data");
    return start;
}

// A conversion fills the whole text up to a fixed width, so a number that has one is written on its own.
template<typename Number>
void addInteger(cAsciiString& out, Number value, cNumberConversionFormat const& format)
{
    if (format.fixedWidth() == 0)
        cNumberConversion::toString(out, value, format);
    else
        out += cNumberConversion::toString(value, format);
}

} // namespace

cAsciiString::cAsciiString() = default;

cAsciiString::cAsciiString(char const* text) : cCharArray(orEmpty(text), lengthOf(text)) { }

cAsciiString::cAsciiString(cAsciiString const& other) = default;

cAsciiString::cAsciiString(cAsciiString&& other) noexcept : cCharArray(other.settings())
{
    swap(other);
}

cAsciiString::cAsciiString(cCharArray const& other) : cCharArray(other) { }

cAsciiString::cAsciiString(cAsciiString const& other, unsigned int start)
    : cCharArray(other.c_str() + checkedStart(other, start), other.length() - start)
{
}

cAsciiString::cAsciiString(tConstArrayRef<char> const& view)
{
    appendFrom(view);
}

cAsciiString::cAsciiString(std::string_view text)
    : cCharArray(orEmpty(text.data()), tBounds::narrow(text.size(), "tArray", "append"))
{
}

cAsciiString::~cAsciiString() = default;

// Assigning and appending
// -------------------------------------------------------------------------------------

cAsciiString& cAsciiString::operator=(char const* text)
{
    assign(text, lengthOf(text));
    return *this;
}

cAsciiString& cAsciiString::operator=(cCharArray const& other)
{
    if (&other != this)
        assign(other.data(true), other.length());
    return *this;
}

cAsciiString& cAsciiString::operator=(cAsciiString const& other)
{
    return *this = static_cast<cCharArray const&>(other);
}

cAsciiString& cAsciiString::operator=(cAsciiString&& other) noexcept
{
    cAsciiString taken(std::move(other));
    swap(taken);
    setGrowStep(taken.growStep());
    setFitOnErase(taken.fitOnErase());
    return *this;
}

// Leaves the pool that emptying it exactly and appending to it would leave, but cannot fail halfway.
void cAsciiString::assign(char const* source, unsigned int count)
{
    if (mpPool == nullptr) { // after a move, or destroy(), which keeps the numbers
        miLength = miPoolSize = 0;
        resizePool(0, false);
    }
    if (length() == 0) {
        append(source, count);
        return;
    }
    if (isInside(source)) {
        cCharArray const copy(source, count);
        assign(copy.data(), count);
        return;
    }
    if (count > 1)
        resizePool(count, false);
    tArrayAsciiStringTraits<char>::copy(mpPool, source, count);
    setLength(count);
    auto const poolSize = count > 1 ? sizeToSectors(count) : 1;
    if (_poolSize() > poolSize)
        resizePool(static_cast<unsigned int>(poolSize), true);
}

void cAsciiString::appendFrom(tAbstractConstArrayProxy<char> const& source)
{
    unsigned int const count = source.proxyLength();
    if (count == 0)
        return;
    unsigned int const start = appendElements(count);
    source.proxyCopyPartTo(data() + start, 0, count);
}

cAsciiString& cAsciiString::operator+=(char c)
{
    append(c);
    return *this;
}

cAsciiString& cAsciiString::operator+=(char const* text)
{
    append(text, lengthOf(text));
    return *this;
}

cAsciiString& cAsciiString::operator+=(cAsciiString const& text)
{
    addString(text);
    return *this;
}

void cAsciiString::addString(cAsciiString const& text)
{
    unsigned int const count = text.proxyLength();
    if (count != 0)
        append(text.proxyProvideData(0, count), count);
}

cAsciiString cAsciiString::operator+(cAsciiString const& text) const
{
    cAsciiString result;
    result.reserve(tBounds::sum(length(), text.length(), "tArray", "append"));
    result.addString(*this);
    result.addString(text);
    return result;
}

// Numbers
// -----------------------------------------------------------------------------------------------------

void cAsciiString::addNum32(int value)
{
    addNum(value, defaultFormat());
}

void cAsciiString::addNum32(int value, cNumberConversionFormat const& format)
{
    addNum(value, format);
}

void cAsciiString::addUNum32(unsigned int value)
{
    addUNum(value, defaultFormat());
}

void cAsciiString::addUNum32(unsigned int value, cNumberConversionFormat const& format)
{
    addUNum(value, format);
}

void cAsciiString::addNum(long long value)
{
    addNum(value, defaultFormat());
}

void cAsciiString::addNum(long long value, cNumberConversionFormat const& format)
{
    addInteger(*this, value, format);
}

void cAsciiString::addUNum(unsigned long long value)
{
    addUNum(value, defaultFormat());
}

void cAsciiString::addUNum(unsigned long long value, cNumberConversionFormat const& format)
{
    addInteger(*this, value, format);
}

void cAsciiString::addDouble(double value)
{
    addDouble(value, defaultFormat());
}

void cAsciiString::addDouble(double value, cNumberConversionFormat const& format)
{
    if (std::isfinite(value))
        cNumberConversion::toStringFromDouble(*this, value, format);
    else // which would replace our text
        addString(cNumberConversion::toStringFromDouble(value, format));
}

void cAsciiString::setNum32(int value)
{
    setNum(value, defaultFormat());
}

void cAsciiString::setNum32(int value, cNumberConversionFormat const& format)
{
    setNum(value, format);
}

void cAsciiString::setUNum32(unsigned int value)
{
    setUNum(value, defaultFormat());
}

void cAsciiString::setUNum32(unsigned int value, cNumberConversionFormat const& format)
{
    setUNum(value, format);
}

void cAsciiString::setNum(long long value)
{
    setNum(value, defaultFormat());
}

void cAsciiString::setNum(long long value, cNumberConversionFormat const& format)
{
    *this = cNumberConversion::toString(value, format);
}

void cAsciiString::setUNum(unsigned long long value)
{
    setUNum(value, defaultFormat());
}

void cAsciiString::setUNum(unsigned long long value, cNumberConversionFormat const& format)
{
    *this = cNumberConversion::toString(value, format);
}

void cAsciiString::setDouble(double value)
{
    setDouble(value, defaultFormat());
}

void cAsciiString::setDouble(double value, cNumberConversionFormat const& format)
{
    *this = cNumberConversion::toStringFromDouble(value, format);
}

long long cAsciiString::toInt() const
{
    return toInt(defaultFormat());
}

long long cAsciiString::toInt(cNumberConversionFormat const& format) const
{
    return cNumberConversion::fromString(*this, format);
}

unsigned long long cAsciiString::toUInt() const
{
    return toUInt(defaultFormat());
}

unsigned long long cAsciiString::toUInt(cNumberConversionFormat const& format) const
{
    return static_cast<unsigned long long>(toInt(format));
}

double cAsciiString::toDouble() const
{
    return toDouble(defaultFormat());
}

double cAsciiString::toDouble(cNumberConversionFormat const& format) const
{
    return cNumberConversion::fromStringToDouble(*this, format);
}

// Layout
// ------------------------------------------------------------------------------------------------------

void cAsciiString::leftAdjust(unsigned int width, char fill)
{
    if (length() < width)
        pad(0, width - length(), fill);
}

void cAsciiString::rightAdjust(unsigned int width, char fill)
{
    if (length() < width)
        pad(width - length(), 0, fill);
}

void cAsciiString::adjust(unsigned int width, char fill)
{
    if (length() >= width)
        return;
    unsigned int const missing = width - length();
    pad(missing / 2, missing - missing / 2, fill);
}

void cAsciiString::pad(unsigned int before, unsigned int after, char fill)
{
    unsigned int const oldLength = appendElements(before + after, fill);
    std::memmove(data() + before, data(), oldLength);
    std::memset(data(), fill, before);
}

void cAsciiString::setFixedLength(unsigned int width, cAsciiString const& suffix, char fill)
{
    unsigned int const suffixLength = suffix.length();
    unsigned int const target = width < suffixLength ? suffixLength : width;
    if (length() > target) { // and so the suffix is another string
        truncate(target);
        proxyPatchData(target - suffixLength, suffixLength, suffix.c_str());
    } else
        leftAdjust(target, fill);
}

void cAsciiString::ltrim()
{
    unsigned int count = 0;
    while (count < length() && (*this)[count] == ' ')
        ++count;
    if (count != 0)
        erase(0, count);
}

void cAsciiString::rtrim()
{
    unsigned int count = length();
    while (count != 0 && (*this)[count - 1] == ' ')
        --count;
    if (count != length())
        truncate(count);
}

void cAsciiString::trim()
{
    rtrim();
    ltrim();
}

// Case and comparison
// -----------------------------------------------------------------------------------------

void cAsciiString::toUpper()
{
    for (char& c : *this)
        c = upperCase(c);
}

void cAsciiString::toLower()
{
    for (char& c : *this)
        c = lowerCase(c);
}

cAsciiString cAsciiString::upperCase() const
{
    cAsciiString result(*this);
    result.toUpper();
    return result;
}

bool cAsciiString::operator==(char const* text) const
{
    return text != nullptr && std::strlen(text) == length() && isEqual(text, length());
}

bool cAsciiString::operator==(cAsciiString const& other) const
{
    return other.length() == length() && isEqual(other.c_str(), length());
}

nsa::cAbstractSerializer& cAsciiString::operator>>(nsa::cAbstractSerializer& serializer) const
{
    serializer.store(*this);
    return serializer;
}

nsa::cAbstractDeserializer& cAsciiString::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    deserializer.load(*this);
    return deserializer;
}

} // namespace nstd
