#pragma once

#include "nel_core/export.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tTokenizerContext.h"
#include "nel_core/ucs/fwd.h"

namespace nstd {

/// The specials of a tokenizer of UTF-8 text. They are matched as bytes: a `char const*` as it stands, a
/// Unicode string encoded to UTF-8.
class NEL_EXPORT cUTF8StringTokenizerContext : public tTokenizerContext<tArray<char>> {
public:
    using tTokenizerContext<tArray<char>>::addKey;
    using tTokenizerContext<tArray<char>>::addSeparator;
    using tTokenizerContext<tArray<char>>::setSingleQuote;

    cUTF8StringTokenizerContext();
    ~cUTF8StringTokenizerContext() override;

    /// Add a special of priority 0. A null text is an empty one.
    cTokenSpec& addSeparator(char const* text);
    cTokenSpec& addSeparator(nucs::cString const& text);
    cTokenSpec& addKey(char const* text, unsigned int id);
    cTokenSpec& addKey(nucs::cString const& text, unsigned int id);
    void setSingleQuote(char const* text);
    void setSingleQuote(nucs::cString const& text);
};

} // namespace nstd
