#include "nel_core/nce/net++/cNetAbstractClient.h"

#include "nel_core/pi/cSystem.h"
#include "tests/support/cFakeClock.h"
#include "tests/support/cMemorySocket.h"
#include "tests/support/cQueueFixture.h"
#include "tests/support/expectMessage.h"

namespace {

class cMemoryClient : public nce::cNetAbstractClient {
public:
    cMemoryClient(npi::cWorkQueue* queue, ntest::cWire& wire)
        : cNetAbstractClient(queue),
          mWire(wire),
          mTarget("target")
    {
    }

    void connect(unsigned int timeoutMs) override { startTimeout(timeoutMs); }
    bool isConnected() const override { return miSteps == 0; }
    nstd::tAutoPtr<nce::cNetAbstractConnection> connection() override
    {
        return nstd::tAutoPtr<nce::cNetAbstractConnection>(new nce::cNetAbstractConnection(
            nstd::tAutoPtr<nce::cNetAbstractSocket>(new ntest::cMemorySocket(mWire))));
    }
    nce::cNetAbstractAddress const& targetAddress() const override { return mTarget; }
    void processConnect() override
    {
        if (mbFails)
            ntest::fail("refused");
        --miSteps;
    }

    unsigned int miSteps = 3; ///< until it is connected
    bool mbFails = false;

private:
    ntest::cWire& mWire;
    ntest::cNamedAddress mTarget;
};

class cNetAbstractClientTest : public ntest::cQueueFixture {
public:
    ntest::cWire wire;
};

TEST_F(cNetAbstractClientTest, waitsUntilItIsConnected)
{
    EXPECT_EQ(&cMemoryClient(nullptr, wire).wq(), &npi::system().workQueue);
    cMemoryClient client(queue.get(), wire);
    auto const connection = client.waitConnection();
    EXPECT_EQ(client.miSteps, 0u);
    EXPECT_EQ(&connection->peer(), &wire.socket->remoteAddress());

    client.miSteps = 1;
    client.mbFails = true;
    ntest::expectMessage<nstd::cRuntimeException>([&] { (void)client.waitConnection(); }, "refused");
}

TEST_F(cNetAbstractClientTest, aTimeoutLeavesThroughTheQueueUnlessItIsStopped)
{
    ntest::cFakeClock clock;
    cMemoryClient client(queue.get(), wire);
    client.connect(100);
    queue->process();
    EXPECT_LE(lastTimeout(), 100u);
    clock.advance(101);
    ntest::expectMessage<nstd::cRuntimeException>([&] { queue->process(); },
                                                  "Timeout while establish network connection to target!");
    client.connect(100);
    client.stopTimeout();
    clock.advance(101);
    queue->process();
}

} // namespace
