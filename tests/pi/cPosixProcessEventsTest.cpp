#include "nel_core/pi/cPosixProcessEvents.h"

#include <stdexcept>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

#include "nel_core/std/cBugException.h"
#include "tests/support/cQueueFixture.h"

namespace {

using npi::cWork;
using npi::tFdInfo;
using cFds = std::vector<tFdInfo>;
using cData = nstd::tAutoPtr<npi::cAbstractAIOData>;

constexpr unsigned int kAtOnce = 10000; // milliseconds; the test would take as long if the wait did not end

// Two connected sockets.
class cSockets {
public:
    cSockets()
    {
        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, mEnds) != 0)
            throw std::runtime_error("no sockets");
    }
    ~cSockets()
    {
        close(0);
        close(1);
    }
    int operator[](int end) const { return mEnds[end]; }
    void close(int end)
    {
        if (mEnds[end] >= 0)
            ::close(mEnds[end]);
        mEnds[end] = -1;
    }

private:
    int mEnds[2];
};

void limitDescriptors(rlim_t limit)
{
    rlimit limits;
    ::getrlimit(RLIMIT_NOFILE, &limits);
    limits.rlim_cur = limit;
    ::setrlimit(RLIMIT_NOFILE, &limits);
}

class cPosixProcessEventsTest : public ntest::tEventsFixture<npi::cPosixProcessEvents> {
public:
    nstd::tSharedObject<cWork> add(npi::cAbstractAIOData* data)
    {
        nstd::tSharedObject<cWork> const work(new cWork);
        work->setAIOData(cData(data));
        jobs.append(work);
        return work;
    }
    nstd::tSharedObject<cWork> watch(cFds const& fds)
    {
        auto* const data = new npi::cFDAIOData;
        for (tFdInfo const& info : fds)
            data->addFd(info.fd, info.events);
        return add(data);
    }
};

// Beside a quiet descriptor and one that is none.
TEST_F(cPosixProcessEventsTest, aWorkIsReadyWhenOneOfItsDescriptorsIs)
{
    struct {
        char const* name;
        std::vector<unsigned int> masks;
        void (*prepare)(cSockets&);
        bool isReady;
    } const rows[] = {
        {"nothing to read", {1}, [](cSockets&) {}, false},
        {"one of several masks", {1, 4, 2}, [](cSockets&) {}, true},
        {"hung up, whatever is asked", {0}, [](cSockets& s) { s.close(1); }, true},
        {"closed", {2}, [](cSockets& s) { s.close(0); }, true},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        cSockets quiet, sockets;
        cFds fds{{quiet[0], 1}, {-1, 7}};
        for (auto const mask : row.masks)
            fds.push_back({sockets[0], mask});
        auto const work = watch(fds);
        row.prepare(sockets);
        finished = 0;
        EXPECT_LT(wait(row.isReady ? kAtOnce : 1), 5000);
        EXPECT_EQ(work->aioData().isEvent(), row.isReady);
        EXPECT_EQ(finished, 1u);
        jobs.clear();
    }
}

TEST_F(cPosixProcessEventsTest, onlyStartedIOWorksTakePart)
{
    cSockets sockets;
    auto const idle = watch({{sockets[0], tFdInfo::evWritable}});
    idle->markDone();
    auto const timed = watch({{sockets[0], tFdInfo::evWritable}});
    timed->start(0, cWork::Periodic);
    jobs.append(nstd::tSharedObject<cWork>());
    EXPECT_GE(wait(20), 20);
    EXPECT_FALSE(idle->aioData().isEvent());
    EXPECT_FALSE(timed->aioData().isEvent());
}

TEST_F(cPosixProcessEventsTest, worksThatShareADescriptorAreMarkedByTheirOwnMasks)
{
    cSockets sockets;
    auto const reader = watch({{sockets[0], tFdInfo::evReadable}});
    auto const writer = watch({{sockets[0], tFdInfo::evWritable}});
    wait(0);
    EXPECT_EQ(finished, 0u) << "without time there is no wait";
    EXPECT_FALSE(writer->aioData().isEvent());
    wait(kAtOnce);
    EXPECT_FALSE(reader->aioData().isEvent());
    EXPECT_TRUE(writer->aioData().isEvent());
}

TEST_F(cPosixProcessEventsTest, theLimitOfDescriptorsCountsEachOnce)
{
    cSockets sockets;
    auto const work = watch(cFds(200, {sockets[0], tFdInfo::evWritable}));
    rlimit before;
    ::getrlimit(RLIMIT_NOFILE, &before);
    limitDescriptors(64);
    wait(kAtOnce);
    EXPECT_TRUE(work->aioData().isEvent());

    // Too many all the same: the wait fails, but not at full speed.
    for (int fd = 1000; fd < 1200; ++fd)
        watch({{fd, tFdInfo::evReadable}});
    work->aioData().setEvent(false);
    EXPECT_GE(wait(20), 9);
    limitDescriptors(before.rlim_cur);
    EXPECT_FALSE(work->aioData().isEvent());
    EXPECT_EQ(finished, 2u);
}

TEST_F(cPosixProcessEventsTest, aWorkThatGoesBeforeTheResultIsSteppedOver)
{
    struct cDeadly : npi::cFDAIOData {
        npi::cFDAIOData* isFDAIOData() override
        {
            victim.invalidateObject();
            return this;
        }
        nstd::tSharedObject<cWork> victim;
    };
    cSockets sockets;
    auto const first = watch({{sockets[0], tFdInfo::evWritable}});
    auto* const data = new cDeadly;
    data->victim = first;
    data->addFd(sockets[1], tFdInfo::evWritable);
    auto const second = add(data);
    wait(kAtOnce);
    EXPECT_FALSE(first);
    wait(kAtOnce);
    EXPECT_TRUE(second->aioData().isEvent());
}

TEST_F(cPosixProcessEventsTest, otherDataIsRefused)
{
    cSockets sockets;
    auto const good = watch({{sockets[0], tFdInfo::evWritable}});
    add(new npi::cAbstractAIOData);
    auto const error = ntest::raisedBy<nstd::cBugException>([this] { wait(kAtOnce); });
    ASSERT_TRUE(error);
    EXPECT_EQ(ntest::messageOf(*error), "Asynchronous I/O data does not have file descriptor information!");
    EXPECT_FALSE(good->aioData().isEvent());
}

} // namespace
