#include "nel_core/pi/platform/dependend/native_linux/osError.h"

#include <cerrno>
#include <cstring>

#include "nel_core/std/cOSErrorException.h"
#include "nel_core/ucs/cAbstractEnDec.h"
#include "nel_core/ucs/cString.h"

namespace npi {

void throwOSError(char const* operation, int code)
{
    throw nstd::cOSErrorException(operation, code);
}

void throwOSError(char const* operation, int code, nucs::cString const& path)
{
    throw nstd::cOSErrorException(operation, code, path);
}

tEncodedName encodedName(nucs::cString const& path, nucs::cAbstractEnDec const& codec, char const* operation)
{
    auto name = encodedUnchecked(path, codec);
    if (!isWholeName(name))
        throwOSError(operation, EINVAL, path);
    return name;
}

tEncodedName encodedUnchecked(nucs::cString const& path, nucs::cAbstractEnDec const& codec)
{
    tEncodedName name;
    codec.encode(path, name);
    name.append('\0');
    return name;
}

bool isWholeName(tEncodedName const& name)
{
    return std::memchr(name.data(), 0, name.length() - 1) == nullptr;
}

} // namespace npi
