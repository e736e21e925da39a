#pragma once

#include "nel_core/export.h"
#include "nel_core/std/cAsciiStringTokenizerContext.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/std/tTokenizer.h"

namespace nstd {

/// Cuts 8-bit text into strings at the specials of a context of its own.
///
/// The text is viewed, not copied, and outlives the tokenizer unchanged; only a temporary string or a literal
/// is kept here.
class NEL_EXPORT cAsciiStringTokenizer
    : public tTokenizer<tConstArrayRef<char, tArrayAsciiStringTraits<char>>, cAsciiString> {
public:
    typedef tConstArrayRef<char, tArrayAsciiStringTraits<char>> tView;
    typedef tTokenizer<tView, cAsciiString> tBase;
    using tBase::operator>>;

    explicit cAsciiStringTokenizer(cAsciiString const& text);
    explicit cAsciiStringTokenizer(cAsciiString&& text);
    /// Null is the empty text.
    explicit cAsciiStringTokenizer(char const* text);
    explicit cAsciiStringTokenizer(tView const& text);
    explicit cAsciiStringTokenizer(tAbstractConstArrayProxy<char> const& text);
    ~cAsciiStringTokenizer();

    /// Our own context, which is in use unless setContext() has chosen another.
    cAsciiStringTokenizerContext& context() { return moOwnContext; }

    /// The next token and the id of a key, or 0. At the end the result is false and the token stays as it
    /// was.
    bool getNextToken(cAsciiString& token, unsigned int& keyId);
    /// As getNextToken(); at the end the token stays as it was.
    cAsciiStringTokenizer& operator>>(cAsciiString& token);
    /// The next token; gives the id of a key, or 0. Raises throwUnexpectedEndOfInput() when there is none.
    unsigned int expectToken(cAsciiString& token);
    /// Deletes the escape texts from `text`; of a doubled one the second stays.
    void removeQuotes(cAsciiString& text) const;
    /// Reads on to the end just to count the specials.
    void process();

private:
    cAsciiString msOwnText;
    cAsciiStringTokenizerContext moOwnContext;
};

} // namespace nstd
