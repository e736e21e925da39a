#pragma once

#include "cTcpIpv4Extension.h"
#include "nel_core/ncs/cAbstractPlugIn.h"

namespace nnet {

/// The module.
class cTcpIpv4PlugIn final : public ncs::cAbstractPlugIn {
public:
    explicit cTcpIpv4PlugIn(nsa::cReferenceFrame& frame);
    ~cTcpIpv4PlugIn() override;

    bool isCoreExtension() const override;
    nce::cAbstractCoreExtension const& coreExtension() const override;
    nstd::cAsciiString pluginTypeName() const override;

private:
    cTcpIpv4Extension mExtension;
};

} // namespace nnet
