#pragma once

#include "nel_core/export.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tTokenizerContext.h"

namespace nstd {

/// The specials of a tokenizer of 8-bit text.
class NEL_EXPORT cAsciiStringTokenizerContext : public tTokenizerContext<cAsciiString> {
public:
    using tTokenizerContext<cAsciiString>::addKey;
    using tTokenizerContext<cAsciiString>::addSeparator;

    cAsciiStringTokenizerContext();
    ~cAsciiStringTokenizerContext() override;

    /// Add a special of priority 0.
    cTokenSpec& addSeparator(cAsciiString const& text);
    cTokenSpec& addKey(cAsciiString const& text, unsigned int id);
};

} // namespace nstd
