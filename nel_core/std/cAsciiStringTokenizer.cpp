#include "nel_core/std/cAsciiStringTokenizer.h"

#include "nel_core/std/cSTDExceptions.h"

namespace nstd {

cAsciiStringTokenizer::cAsciiStringTokenizer(cAsciiString const& text)
    : cAsciiStringTokenizer(tView(text)) { }

cAsciiStringTokenizer::cAsciiStringTokenizer(cAsciiString&& text) : cAsciiStringTokenizer(tView())
{
    msOwnText.swap(text);
    set(msOwnText);
}

cAsciiStringTokenizer::cAsciiStringTokenizer(char const* text) : cAsciiStringTokenizer(cAsciiString(text)) { }

cAsciiStringTokenizer::cAsciiStringTokenizer(tView const& text) : tBase(text)
{
    setContext(&moOwnContext);
}

cAsciiStringTokenizer::cAsciiStringTokenizer(tAbstractConstArrayProxy<char> const& text)
    : cAsciiStringTokenizer(tView(text))
{
}

cAsciiStringTokenizer::~cAsciiStringTokenizer() = default;

bool cAsciiStringTokenizer::getNextToken(cAsciiString& token, unsigned int& keyId)
{
    tView view;
    if (!getNext(view, keyId))
        return false;
    cAsciiString text(view);
    token.swap(text);
    return true;
}

cAsciiStringTokenizer& cAsciiStringTokenizer::operator>>(cAsciiString& token)
{
    unsigned int keyId = 0;
    getNextToken(token, keyId);
    return *this;
}

unsigned int cAsciiStringTokenizer::expectToken(cAsciiString& token)
{
    unsigned int keyId = 0;
    if (!getNextToken(token, keyId) || token.empty())
        cSTDExceptions::throwUnexpectedEndOfInput();
    return keyId;
}

void cAsciiStringTokenizer::removeQuotes(cAsciiString& text) const
{
    if (currentContext() != nullptr)
        unquote(text, currentContext()->singleQuote());
}

void cAsciiStringTokenizer::process()
{
    for (tView token; getNext(token);) { }
}

} // namespace nstd
