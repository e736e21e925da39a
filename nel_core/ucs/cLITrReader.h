#pragma once

#include "nel_core/std/cUTF8StringTokenizer.h"
#include "nel_core/std/cUTF8StringTokenizerContext.h"
#include "nel_core/std/tArray.h"
#include "nel_core/ucs/cString.h"

namespace nucs {

/// Cuts the text of a translation file into tokens, for the readers of the two formats. Internal to the
/// library.
///
/// Between the statements it stands in the statement context; comments and quoted strings are read in
/// contexts of their own, in which other texts count. Text that is no valid UTF-8 raises "Unicode decode
/// error!".
class cLITrReader {
public:
    enum Format {
        fmPlain,  ///< entries and comments
        fmLocale, ///< with "Name", "Flag", "include" and "fromFile"
    };
    enum Token : unsigned int {
        tkText = 0, ///< everything that is no key
        tkAssign = 1,
        tkQuote = 2,
        tkComment = 4,
        tkInclude = 5,
        tkName = 6,
        tkFlag = 7,
        tkOpen = 40,
        tkClose = 41,
    };

    explicit cLITrReader(Format format);
    cLITrReader(cLITrReader const&) = delete;
    cLITrReader& operator=(cLITrReader const&) = delete;

    /// Reads a file to its end and closes it; its first token is the next one. Raises what
    /// nio::readWholeFile() raises.
    void load(cString const& path);

    /// The next token of a statement; false at the end, with `token` set to tkText.
    bool next(unsigned int& token);
    /// Whether the next token is this key.
    bool accept(Token expected);
    /// The token that was read last, if it was tkText; else empty.
    cString const& text() const { return msText; }
    /// What stands between the quote that has been read and the next one that is not escaped, without
    /// escapes. False when that one is missing or stands right there.
    bool readQuoted(cString& value);
    /// Goes to the end of the line.
    void skipComment();
    /// The current line, from 0: all line breaks outside of quoted strings count.
    unsigned int line() const { return miReturns > miFeeds ? miReturns : miFeeds; }

private:
    using tContext = nstd::cUTF8StringTokenizerContext;

    void addKeys(Format format);

    nstd::tArray<char> maBytes;
    tContext moStatement;
    tContext moComment;
    tContext moString;
    nstd::cUTF8StringTokenizer moTokenizer;
    cString msText;
    unsigned int miReturns = 0;
    unsigned int miFeeds = 0;
};

} // namespace nucs
