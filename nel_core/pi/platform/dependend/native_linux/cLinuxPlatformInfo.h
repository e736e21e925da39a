#pragma once

#include "nel_core/pi/cAbstractPlatformInfo.h"

namespace npi {

/// libNAME.so, and applications without an extension.
class NEL_EXPORT cLinuxPlatformInfo : public cAbstractPlatformInfo {
public:
    ~cLinuxPlatformInfo() override;

    nstd::cAsciiString platformName() const override;
    nstd::cAsciiString osSharedObjectFileExtension() const override;
    nstd::cAsciiString osSharedObjectFilePrefix() const override;
    nstd::cAsciiString osSharedObjectFileSuffix() const override;
    nstd::cAsciiString osAppFileExtension() const override;
};

} // namespace npi
