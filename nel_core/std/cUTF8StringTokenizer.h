#pragma once

#include "nel_core/export.h"
#include "nel_core/std/cUTF8StringTokenizerContext.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/std/tTokenizer.h"
#include "nel_core/ucs/fwd.h"

namespace nstd {

/// Cuts UTF-8 text into Unicode strings at the specials of a context of its own.
///
/// The text is viewed, not copied, and outlives the tokenizer unchanged; only a temporary array or string or
/// a literal is kept here. A token that is no valid UTF-8 raises "Unicode decode error!"; it has been passed
/// then, and the caller's string is as it was.
class NEL_EXPORT cUTF8StringTokenizer : public tTokenizer<tConstArrayRef<char>, tArray<char>> {
public:
    typedef tConstArrayRef<char> tView;
    typedef tTokenizer<tView, tArray<char>> tBase;
    using tBase::operator>>;

    explicit cUTF8StringTokenizer(tArray<char> const& text);
    explicit cUTF8StringTokenizer(tArray<char>&& text);
    explicit cUTF8StringTokenizer(cAsciiString&& text);
    /// Null is the empty text.
    explicit cUTF8StringTokenizer(char const* text);
    explicit cUTF8StringTokenizer(tView const& text);
    explicit cUTF8StringTokenizer(tAbstractConstArrayProxy<char> const& text);
    ~cUTF8StringTokenizer();

    /// Our own context, which is in use unless setContext() has chosen another.
    cUTF8StringTokenizerContext& context() { return moOwnContext; }

    /// The next token and the id of a key, or 0. At the end the result is false and the token stays as it
    /// was.
    bool getNextToken(nucs::cString& token, unsigned int& keyId);
    /// As getNextToken(); at the end the token stays as it was.
    cUTF8StringTokenizer& operator>>(nucs::cString& token);
    /// The next token; gives the id of a key, or 0. Raises throwUnexpectedEndOfInput() when there is none.
    unsigned int expectToken(nucs::cString& token);
    /// Deletes the escape texts from `text`; of a doubled one the second stays.
    void removeQuotes(nucs::cString& text) const;
    /// Reads on to the end just to count the specials.
    void process();

private:
    tArray<char> maOwnText;
    cUTF8StringTokenizerContext moOwnContext;
};

} // namespace nstd
