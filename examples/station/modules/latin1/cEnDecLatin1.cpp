#include "cEnDecLatin1.h"

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cString.h"
#include "nel_core/ucs/cUCSExceptions.h"

namespace {

constexpr unsigned int kMaxCodePoint = 0xFF;

[[noreturn]] void throwNoLatin1(unsigned int codePoint)
{
    nucs::cLIMessage message;
    message << "$MTR$There is no code point %codepoint% in ISO-8859-1!" << codePoint;
    cUCSExceptions::throwUSCEncodeError(nstd::cRuntimeException(message));
}

} // namespace

cEnDecLatin1::~cEnDecLatin1() = default;

nstd::cAsciiString cEnDecLatin1::name() const
{
    return "Endec-ISO-8859-1";
}

void cEnDecLatin1::encode(nucs::cString const& source, nstd::tArray<char>& target) const
{
    for (unsigned int const codePoint : source) {
        if (codePoint > kMaxCodePoint)
            throwNoLatin1(codePoint);
    }
    for (unsigned int const codePoint : source)
        target.append(static_cast<char>(codePoint));
}

void cEnDecLatin1::decode(nstd::tConstArrayRef<char> const& source, nucs::cString& target) const
{
    for (unsigned int i = 0; i < source.length(); ++i)
        target.append(static_cast<unsigned char>(source.proxyAt(i)));
}
