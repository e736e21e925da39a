#pragma once

#include "nel_core/export.h"
#include "nel_core/pi/fwd.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/ucs/fwd.h"

namespace npi {

/// How a platform names its files.
class NEL_EXPORT cAbstractPlatformInfo {
public:
    cAbstractPlatformInfo() = default;
    cAbstractPlatformInfo(cAbstractPlatformInfo const&) = delete;
    cAbstractPlatformInfo& operator=(cAbstractPlatformInfo const&) = delete;
    virtual ~cAbstractPlatformInfo();

    virtual nstd::cAsciiString platformName() const = 0;
    /// Makes the file name of a shared object of a plain module name, with or without a directory: adds the
    /// prefix and the suffix that are not there yet, and replaces the extension.
    virtual void osSpecificSOName(nucs::cString& name) const;
    /// With its ".".
    virtual nstd::cAsciiString osSharedObjectFileExtension() const = 0;
    virtual nstd::cAsciiString osSharedObjectFilePrefix() const = 0;
    virtual nstd::cAsciiString osSharedObjectFileSuffix() const = 0;
    /// With its ".".
    virtual nstd::cAsciiString osAppFileExtension() const = 0;
};

} // namespace npi
