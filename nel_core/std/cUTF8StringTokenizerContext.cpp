#include "nel_core/std/cUTF8StringTokenizerContext.h"

#include "nel_core/ucs/cEnDecUTF8.h"
#include "nel_core/ucs/cString.h"

namespace nstd {
namespace {

tArray<char> bytesOf(char const* text)
{
    return tArray<char>(text == nullptr ? "" : text);
}

tArray<char> bytesOf(nucs::cString const& text)
{
    tArray<char> bytes;
    nucs::cEnDecUTF8().encode(text, bytes);
    return bytes;
}

} // namespace

cUTF8StringTokenizerContext::cUTF8StringTokenizerContext() = default;

cUTF8StringTokenizerContext::~cUTF8StringTokenizerContext() = default;

auto cUTF8StringTokenizerContext::addSeparator(char const* text) -> cTokenSpec&
{
    return addSeparator(bytesOf(text), 0);
}

auto cUTF8StringTokenizerContext::addSeparator(nucs::cString const& text) -> cTokenSpec&
{
    return addSeparator(bytesOf(text), 0);
}

auto cUTF8StringTokenizerContext::addKey(char const* text, unsigned int id) -> cTokenSpec&
{
    return addKey(bytesOf(text), id, 0);
}

auto cUTF8StringTokenizerContext::addKey(nucs::cString const& text, unsigned int id) -> cTokenSpec&
{
    return addKey(bytesOf(text), id, 0);
}

void cUTF8StringTokenizerContext::setSingleQuote(char const* text)
{
    setSingleQuote(bytesOf(text));
}

void cUTF8StringTokenizerContext::setSingleQuote(nucs::cString const& text)
{
    setSingleQuote(bytesOf(text));
}

} // namespace nstd
