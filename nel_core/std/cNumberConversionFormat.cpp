#include "nel_core/std/cNumberConversionFormat.h"

#include <cstring>

#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/cSystemState.h"
#include "nel_core/std/basePrefix.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/ucs/cString.h"

namespace nstd {
namespace {

// Never destroyed: static objects may still write numbers while the program ends.
cNumberConversionFormat const& plainDecimal()
{
    static cNumberConversionFormat const& format = *new cNumberConversionFormat(10);
    return format;
}

template<typename Element>
bool detect(Element const* text, unsigned int length, unsigned int& base, unsigned int& prefixLength)
{
    unsigned int const found = basePrefix(text, length, "<base:", base);
    if (found != 0)
        prefixLength = found;
    return found != 0;
}

template<typename Traits>
bool detect(tConstArrayRef<char, Traits> const& text, unsigned int& base, unsigned int& prefixLength)
{
    char head[sizeof("<base:36>") - 1];
    unsigned int const length = text.length() < sizeof head ? text.length() : sizeof head;
    if (length != 0)
        text.proxyCopyPartTo(head, 0, length);
    return detect(head, length, base, prefixLength);
}

void checkSymbolIndex(unsigned int i, unsigned int last)
{
    if (i > last)
        cSTDExceptions::throwOutOfRange("DigitSymbols", "at", cSTDExceptions::ortIndex, i, 0, last);
}

} // namespace

cNumberConversionFormat::cNumberConversionFormat(unsigned int base) : miBase(base)
{
    setBase(base);
}

cNumberConversionFormat::cNumberConversionFormat(cNumberConversionFormat const& other) = default;

cNumberConversionFormat& cNumberConversionFormat::operator=(cNumberConversionFormat const& other) = default;

cNumberConversionFormat::~cNumberConversionFormat() = default;

cNumberConversionFormat const& cNumberConversionFormat::getGlobalDefaultNumberConversionFormat()
{
    auto const state = npi::systemState();
    if (state == npi::SystemState::building || state == npi::SystemState::teardown)
        return plainDecimal();
    return npi::system().defaults.numberFormat;
}

bool cNumberConversionFormat::detectBase(cAsciiString const& text, unsigned int& base,
                                         unsigned int& prefixLength)
{
    return detect(text.data(true), text.length(), base, prefixLength);
}

bool cNumberConversionFormat::detectBase(nucs::cString const& text, unsigned int& base,
                                         unsigned int& prefixLength)
{
    return detect(text.data(true), text.length(), base, prefixLength);
}

bool cNumberConversionFormat::detectBase(tConstArrayRef<char> const& text, unsigned int& base,
                                         unsigned int& prefixLength)
{
    return detect(text, base, prefixLength);
}

template<typename Traits>
bool cNumberConversionFormat::detectBase(tConstArrayRef<char, Traits> const& text, unsigned int& base,
                                         unsigned int& prefixLength)
{
    return detect(text, base, prefixLength);
}

template NEL_EXPORT bool
cNumberConversionFormat::detectBase(tConstArrayRef<char, tArrayAsciiStringTraits<char>> const&, unsigned int&,
                                    unsigned int&);

void cNumberConversionFormat::setBase(unsigned int base)
{
    if (base < 2 || base > kSymbolCount)
        cSTDExceptions::throwInvalidDecimalBase(static_cast<int>(base), 2, kSymbolCount);
    miBase = base;
}

void cNumberConversionFormat::setDigitCase(DigitCase digitCase)
{
    char const* const symbols = digitCase == dcUpper ? "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                                     : "0123456789abcdefghijklmnopqrstuvwxyz";
    std::memcpy(mcDigitSymbols, symbols, kSymbolCount);
    meDigitCase = digitCase;
}

char cNumberConversionFormat::digitChar(unsigned int i) const
{
    checkSymbolIndex(i, kSymbolCount);
    return mcDigitSymbols[i];
}

void cNumberConversionFormat::setDigitSymbol(unsigned int i, char symbol)
{
    checkSymbolIndex(i, kSymbolCount);
    mcDigitSymbols[i] = symbol;
}

} // namespace nstd
