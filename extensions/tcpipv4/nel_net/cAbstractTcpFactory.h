#pragma once

#include "nel_core/export.h"
#include "nel_core/nce/net++/cNetAbstractClient.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_net/cAbstractTcpServer.h"

namespace nnet {

/// Makes the two sides of a transport over TCP.
///
/// The extension of the address family is one, under its name:
///
///     auto const* factory = dynamic_cast<nnet::cAbstractTcpFactory const*>(
///         npi::system().coreExtensions.hasExtension("TcpIpv4"));
///
/// What it makes must be gone before the extension is unloaded.
class NEL_EXPORT cAbstractTcpFactory {
public:
    /// A server for the address, not yet listening; port 0 lets the system choose one. Works run in `queue`,
    /// null for the system's. Raises an unsupported operation for an address of another family.
    [[nodiscard]] virtual nstd::tAutoPtr<cAbstractTcpServer>
    createServer(nce::cNetAbstractAddress const& local, npi::cWorkQueue* queue) const = 0;
    /// A client for the address, not yet connecting. The rest as for a server.
    [[nodiscard]] virtual nstd::tAutoPtr<nce::cNetAbstractClient>
    createClient(nce::cNetAbstractAddress const& target, npi::cWorkQueue* queue) const = 0;

protected:
    ~cAbstractTcpFactory() = default;
};

} // namespace nnet
