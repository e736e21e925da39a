#include "nel_core/std/cUTF8StringTokenizer.h"

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/ucs/cEnDecUTF8.h"
#include "nel_core/ucs/cString.h"

namespace nstd {

cUTF8StringTokenizer::cUTF8StringTokenizer(tArray<char> const& text) : cUTF8StringTokenizer(tView(text)) { }

cUTF8StringTokenizer::cUTF8StringTokenizer(tArray<char>&& text) : cUTF8StringTokenizer(tView())
{
    maOwnText.swap(text);
    set(maOwnText);
}

cUTF8StringTokenizer::cUTF8StringTokenizer(cAsciiString&& text)
    : cUTF8StringTokenizer(tArray<char>(text.c_str(), text.length()))
{
}

cUTF8StringTokenizer::cUTF8StringTokenizer(char const* text)
    : cUTF8StringTokenizer(tArray<char>(text == nullptr ? "" : text))
{
}

cUTF8StringTokenizer::cUTF8StringTokenizer(tView const& text) : tBase(text)
{
    setContext(&moOwnContext);
}

cUTF8StringTokenizer::cUTF8StringTokenizer(tAbstractConstArrayProxy<char> const& text)
    : cUTF8StringTokenizer(tView(text))
{
}

cUTF8StringTokenizer::~cUTF8StringTokenizer() = default;

bool cUTF8StringTokenizer::getNextToken(nucs::cString& token, unsigned int& keyId)
{
    tView view;
    if (!getNext(view, keyId))
        return false;
    nucs::cString text;
    nucs::cEnDecUTF8().decode(view, text);
    token.swap(text);
    return true;
}

cUTF8StringTokenizer& cUTF8StringTokenizer::operator>>(nucs::cString& token)
{
    unsigned int keyId = 0;
    getNextToken(token, keyId);
    return *this;
}

unsigned int cUTF8StringTokenizer::expectToken(nucs::cString& token)
{
    unsigned int keyId = 0;
    if (!getNextToken(token, keyId) || token.empty())
        cSTDExceptions::throwUnexpectedEndOfInput();
    return keyId;
}

void cUTF8StringTokenizer::removeQuotes(nucs::cString& text) const
{
    if (currentContext() == nullptr || currentContext()->singleQuote().empty())
        return;
    nucs::cString quote;
    nucs::cEnDecUTF8().decode(currentContext()->singleQuote(), quote);
    unquote(text, quote);
}

void cUTF8StringTokenizer::process()
{
    for (tView token; getNext(token);) { }
}

} // namespace nstd
