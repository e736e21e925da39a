#include "nel_core/pi/cAbstractOut.h"

#include <cstring>
#include <type_traits>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cNumberConversion.h"
#include "nel_core/std/cNumberConversionFormat.h"

namespace npi {
namespace {

bool isForNextOnly(cAbstractOut::NumberFmt mode)
{
    return mode >= cAbstractOut::nfNextHex16 && mode <= cAbstractOut::nfNextHex2;
}

// The digits that a mode asks for, 0 for one that leaves the width alone.
unsigned int widthOf(cAbstractOut::NumberFmt mode)
{
    switch (mode) {
    case cAbstractOut::nfHex16:
    case cAbstractOut::nfNextHex16: return 16;
    case cAbstractOut::nfHex8:
    case cAbstractOut::nfNextHex8: return 8;
    case cAbstractOut::nfHex4:
    case cAbstractOut::nfNextHex4: return 4;
    case cAbstractOut::nfHex2:
    case cAbstractOut::nfNextHex2: return 2;
    default: return 0;
    }
}

} // namespace

cAbstractOut::cAbstractOut() = default;
cAbstractOut::~cAbstractOut() = default;

void cAbstractOut::flush()
{
    if (mpLinked)
        mpLinked->flush();
}

cAbstractOut& cAbstractOut::debugMessage(char const* file, unsigned int line)
{
    if (mpLinked) {
        mpLinked->debugMessage(file, line);
        return *this;
    }
    mpDebugFileName = file;
    miDebugFileLine = line;
    return *this;
}

template<typename T>
cAbstractOut& cAbstractOut::printInteger(T value)
{
    if (mpLinked) {
        *mpLinked << value;
        return *this;
    }
    using tWide = std::conditional_t<std::is_signed_v<T>, long long, unsigned long long>;
    auto const& format = mpNumberFormat
                             ? *mpNumberFormat
                             : nstd::cNumberConversionFormat::getGlobalDefaultNumberConversionFormat();
    auto const text = nstd::cNumberConversion::toString(static_cast<tWide>(value), format);
    if (isForNextOnly(meNumberFmt)) {
        mpNumberFormat.reset(nullptr, nstd::tAutoPtrType::ptObject);
        meNumberFmt = nfUnchanged;
    }
    printText(text.c_str(), text.length());
    return *this;
}

cAbstractOut& cAbstractOut::operator<<(long long value)
{
    return printInteger(value);
}

cAbstractOut& cAbstractOut::operator<<(unsigned long long value)
{
    return printInteger(value);
}

cAbstractOut& cAbstractOut::operator<<(int value)
{
    return printInteger(value);
}

cAbstractOut& cAbstractOut::operator<<(unsigned int value)
{
    return printInteger(value);
}

cAbstractOut& cAbstractOut::operator<<(char const* text)
{
    if (mpLinked)
        *mpLinked << text;
    else if (text)
        printText(text, std::strlen(text));
    return *this;
}

cAbstractOut& cAbstractOut::operator<<(nstd::cAsciiString const& text)
{
    if (mpLinked)
        *mpLinked << text;
    else
        printText(text.c_str(), text.length());
    return *this;
}

cAbstractOut& cAbstractOut::operator<<(double value)
{
    if (mpLinked) {
        *mpLinked << value;
        return *this;
    }
    auto const& format = nstd::cNumberConversionFormat::getGlobalDefaultNumberConversionFormat();
    auto const text = nstd::cNumberConversion::toStringFromDouble(value, format);
    printText(text.c_str(), text.length());
    return *this;
}

cAbstractOut& cAbstractOut::operator<<(NumberFmt mode)
{
    if (mpLinked) {
        *mpLinked << mode;
        return *this;
    }
    auto& format = ownFormat();
    if (mode <= nfNextHex2)
        format.setBase(16);
    if (widthOf(mode) != 0)
        format.setFixedWidth(widthOf(mode));
    meNumberFmt = mode;
    return *this;
}

cAbstractOut& cAbstractOut::operator<<(nstd::cNumberConversionFormat const& format)
{
    if (mpLinked) {
        *mpLinked << format;
        return *this;
    }
    ownFormat() = format;
    meNumberFmt = nfUnchanged;
    return *this;
}

cAbstractOut& cAbstractOut::operator<<(clearDebugMessage const& marker)
{
    if (mpLinked) {
        *mpLinked << marker;
        return *this;
    }
    mpDebugFileName = nullptr;
    miDebugFileLine = 0;
    return *this;
}

cAbstractOut& cAbstractOut::operator<<(indent const& marker)
{
    if (mpLinked)
        *mpLinked << marker;
    else
        ++miIndentionLevel;
    return *this;
}

cAbstractOut& cAbstractOut::operator<<(unindent const& marker)
{
    if (mpLinked)
        *mpLinked << marker;
    else if (miIndentionLevel > 0)
        --miIndentionLevel;
    return *this;
}

nucs::cAbstractEnDec const* cAbstractOut::hasEnDec() const
{
    return mpLinked ? mpLinked->hasEnDec() : nullptr;
}

void cAbstractOut::link(cAbstractOut* out)
{
    for (auto* at = out; at; at = at->mpLinked) {
        if (at == this)
            return;
    }
    mpLinked = out;
}

void cAbstractOut::printText(char const* text, std::size_t length)
{
    for (std::size_t i = 0; i < length; ++i) {
        if (text[i] == '\n')
            printChar('\r');
        printChar(text[i]);
    }
}

nstd::cNumberConversionFormat& cAbstractOut::ownFormat()
{
    if (!mpNumberFormat)
        mpNumberFormat.reset(new nstd::cNumberConversionFormat(10), nstd::tAutoPtrType::ptObject);
    return *mpNumberFormat;
}

} // namespace npi
