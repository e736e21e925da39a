#pragma once

#include "nel_core/nce/net++/cNetAbstractAddress.h"
#include "nel_core/nce/net++/cNetAbstractConnection.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/rmi/signal0.h"
#include "nel_core/std/cLife.h"

namespace nce {

/// The connecting side of a transport. Network extensions derive from it and emit its signal.
class NEL_EXPORT cNetAbstractClient : public nrmi::cConnectable {
public:
    /// The connection is established: connection() has it.
    nrmi::signal0<piVoid> sigConnected;

    /// Works run in `queue`, null for the system's.
    explicit cNetAbstractClient(npi::cWorkQueue* queue);
    ~cNetAbstractClient() override;

    /// Starts to connect, for at most that time unless it is 0.
    virtual void connect(unsigned int timeoutMs) = 0;
    /// Whether the connection is established and was not handed over yet.
    virtual bool isConnected() const = 0;
    [[nodiscard]] virtual nstd::tAutoPtr<cNetAbstractConnection> connection() = 0;
    virtual cNetAbstractAddress const& targetAddress() const = 0;
    /// Goes on with connecting, which may take a moment. Raises what makes it fail.
    virtual void processConnect() = 0;

    /// The queue in which works run.
    npi::cWorkQueue& wq() const;
    /// The time-out work fires once in that many milliseconds.
    void startTimeout(unsigned int milliseconds);
    void stopTimeout();
    /// Connects without turning the queue and returns the connection; raises what makes it fail. Returns an
    /// empty handle when a slot deletes the client.
    [[nodiscard]] nstd::tAutoPtr<cNetAbstractConnection> waitConnection();

    /// Connected to the time-out work; raises nstd::cRuntimeException.
    piVoid sltTimeout();

protected:
    npi::cWork& timeoutWork() noexcept { return mTimeout; }

private:
    npi::cWork mTimeout;
    npi::cWorkQueue* mpQueue;       ///< not owned
    nstd::cLife* mpLives = nullptr; ///< tells calls on the stack whether this still lives
};

} // namespace nce
