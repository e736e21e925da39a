#include "nel_core/std/cAsciiStringStream.h"

#include "nel_core/std/cNumberConversion.h"
#include "nel_core/std/cNumberConversionFormat.h"

namespace nstd {

cAsciiString& operator<<(cAsciiString& out, cAsciiString const& text)
{
    return out += text;
}

cAsciiString& operator<<(cAsciiString& out, char const* sCat)
{
    NEL_ASSERT(sCat != 0);
    return out += sCat;
}

cAsciiString& operator<<(cAsciiString& out, int value)
{
    return out << static_cast<long long>(value);
}

cAsciiString& operator<<(cAsciiString& out, unsigned int value)
{
    return out << static_cast<unsigned long long>(value);
}

cAsciiString& operator<<(cAsciiString& out, long long value)
{
    cNumberConversion::toString(out, value, cNumberConversionFormat(10));
    return out;
}

cAsciiString& operator<<(cAsciiString& out, unsigned long long value)
{
    cNumberConversion::toString(out, value, cNumberConversionFormat(10));
    return out;
}

cAsciiString hex(long long value)
{
    cAsciiString result("0x");
    cNumberConversion::toString(result, value, cNumberConversionFormat(16));
    return result;
}

} // namespace nstd
