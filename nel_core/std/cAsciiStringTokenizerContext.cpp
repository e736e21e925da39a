#include "nel_core/std/cAsciiStringTokenizerContext.h"

namespace nstd {

cAsciiStringTokenizerContext::cAsciiStringTokenizerContext() = default;

cAsciiStringTokenizerContext::~cAsciiStringTokenizerContext() = default;

auto cAsciiStringTokenizerContext::addSeparator(cAsciiString const& text) -> cTokenSpec&
{
    return addSeparator(text, 0);
}

auto cAsciiStringTokenizerContext::addKey(cAsciiString const& text, unsigned int id) -> cTokenSpec&
{
    return addKey(text, id, 0);
}

} // namespace nstd
