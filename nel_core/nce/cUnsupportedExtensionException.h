#pragma once

#include "nel_core/std/cBugException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace nce {

/// No core extension does what was asked for.
class NEL_EXPORT cUnsupportedExtensionException
    : public nstd::tExceptionLeaf<cUnsupportedExtensionException, nstd::cBugException> {
public:
    /// No extension of the kind `className` supports the name; `othersFound` tells whether there are others
    /// of that kind.
    cUnsupportedExtensionException(nstd::cAsciiString const& className,
                                   nstd::cAsciiString const& extensionName, bool othersFound);
    /// The extension exists and has nothing of the kind `className`.
    cUnsupportedExtensionException(nstd::cAsciiString const& className,
                                   nstd::cAsciiString const& extensionName);
    cUnsupportedExtensionException(cUnsupportedExtensionException const&) = default;
    cUnsupportedExtensionException(cUnsupportedExtensionException&&) = default;
    ~cUnsupportedExtensionException() override;
    cUnsupportedExtensionException& operator=(cUnsupportedExtensionException other) noexcept;
    void swap(cUnsupportedExtensionException& other) noexcept;

    /// The kind of extension, such as "Encoder / Decoder".
    nstd::cAsciiString const& className() const { return msClassName; }
    /// The name that was asked for.
    nstd::cAsciiString const& extensionName() const { return msExtensionName; }
    /// Whether there are extensions of that kind with other names.
    bool otherExtensionsFound() const { return mbOthersFound; }

private:
    nstd::cAsciiString msClassName;
    nstd::cAsciiString msExtensionName;
    bool mbOthersFound;
};

} // namespace nce
