#include "nel_core/nce/cUnsupportedExtensionException.h"

#include <utility>

#include "nel_core/std/raise.h"

namespace nce {

cUnsupportedExtensionException::cUnsupportedExtensionException(nstd::cAsciiString const& className,
                                                               nstd::cAsciiString const& extensionName,
                                                               bool othersFound)
    : tExceptionLeaf(
        nstd::makeMessage("$MTR$No %s% of type \"%specialized%\" found!", className, extensionName)),
      msClassName(className),
      msExtensionName(extensionName),
      mbOthersFound(othersFound)
{
}

cUnsupportedExtensionException::cUnsupportedExtensionException(nstd::cAsciiString const& className,
                                                               nstd::cAsciiString const& extensionName)
    : tExceptionLeaf(nstd::makeMessage("$MTR$Extension type \"%type%\" not supported in \"%extension%\"!",
                                       className, extensionName)),
      msClassName(className),
      msExtensionName(extensionName),
      mbOthersFound(false)
{
}

cUnsupportedExtensionException::~cUnsupportedExtensionException() = default;

cUnsupportedExtensionException&
cUnsupportedExtensionException::operator=(cUnsupportedExtensionException other) noexcept
{
    swap(other);
    return *this;
}

void cUnsupportedExtensionException::swap(cUnsupportedExtensionException& other) noexcept
{
    nstd::cBugException::swap(other);
    msClassName.swap(other.msClassName);
    msExtensionName.swap(other.msExtensionName);
    std::swap(mbOthersFound, other.mbOthersFound);
}

} // namespace nce
