#pragma once

#include "nel_core/nce/cNetAbstractAddressExtension.h"
#include "nel_core/std/cBuildInfo.h"
#include "nel_net/cAbstractTcpFactory.h"

namespace nnet {

/// Offers the addresses of TCP over IPv4, and the transport itself.
class cTcpIpv4Extension final : public nce::cNetAbstractAddressExtension, public cAbstractTcpFactory {
public:
    cTcpIpv4Extension();
    ~cTcpIpv4Extension() override;

    nstd::cAsciiString description() const override;
    nstd::cBuildInfo const& buildInfo() const override;
    bool supports(nstd::cAsciiString const& name) const override;
    void provides(nstd::tVector<nstd::cAsciiString>& names) const override;
    [[nodiscard]] nstd::tAutoPtr<nce::cNetAbstractAddress>
    createNetAddress(nstd::cAsciiString const& name) const override;

    [[nodiscard]] nstd::tAutoPtr<cAbstractTcpServer> createServer(nce::cNetAbstractAddress const& local,
                                                                  npi::cWorkQueue* queue) const override;
    [[nodiscard]] nstd::tAutoPtr<nce::cNetAbstractClient> createClient(nce::cNetAbstractAddress const& target,
                                                                       npi::cWorkQueue* queue) const override;

private:
    nstd::cBuildInfo moBuildInfo; ///< the library's: the two are built together
};

} // namespace nnet
