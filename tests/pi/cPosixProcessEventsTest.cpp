#include "nel_core/pi/cPosixProcessEvents.h"

#include <chrono>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

#include "nel_core/pi/cFDAIOData.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/tList.h"
#include "nel_core/std/tSharedObject.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

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
    // Makes the other end readable.
    void write(int end) const { EXPECT_EQ(::write(mEnds[end], "x", 1), 1); }
    // Until no more goes in.
    void fill(int end) const
    {
        char const bytes[4096] = {};
        while (::write(mEnds[end], bytes, sizeof(bytes)) > 0)
            continue;
    }

private:
    int mEnds[2];
};

// A smaller limit of descriptors while it lives.
class cDescriptorLimit {
public:
    explicit cDescriptorLimit(rlim_t limit)
    {
        ::getrlimit(RLIMIT_NOFILE, &mOld);
        rlimit const lower = {limit, mOld.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &lower);
    }
    ~cDescriptorLimit() { ::setrlimit(RLIMIT_NOFILE, &mOld); }

private:
    rlimit mOld;
};

class cPosixProcessEventsTest : public ntest::cSystemFixture, public nrmi::cConnectable {
public:
    cPosixProcessEventsTest()
    {
        events.sigFinished.connect(nrmi::slot(this, &cPosixProcessEventsTest::sltFinished));
    }
    piVoid sltFinished()
    {
        ++finished;
        return piVoid();
    }

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
    // The milliseconds that a wait takes.
    long long wait(unsigned int timeout)
    {
        auto const begin = std::chrono::steady_clock::now();
        events.yield(0, jobs, timeout);
        auto const time = std::chrono::steady_clock::now() - begin;
        return std::chrono::duration_cast<std::chrono::milliseconds>(time).count();
    }

    npi::cPosixProcessEvents events;
    nstd::tList<nstd::tSharedObject<cWork>> jobs;
    unsigned int finished = 0;
};

TEST_F(cPosixProcessEventsTest, aWorkIsReadyWhenOneOfItsDescriptorsIs)
{
    struct {
        char const* name;
        cFds (*prepare)(cSockets&, cSockets&);
        bool isReady;
    } const rows[] = {
        {"nothing to read",
         [](cSockets& a, cSockets&) {
             return cFds{{a[0], 1}};
         },
         false},
        {"writable",
         [](cSockets& a, cSockets&) {
             return cFds{{a[0], 2}};
         },
         true},
        {"one of several masks",
         [](cSockets& a, cSockets&) {
             return cFds{{a[0], 1}, {a[0], 4}, {a[0], 2}};
         },
         true},
        {"no descriptor",
         [](cSockets&, cSockets&) {
             return cFds{{-1, 7}};
         },
         false},
        {"the second of two",
         [](cSockets& a, cSockets& b) {
             b.write(1);
             return cFds{{a[0], 1}, {b[0], 1}};
         },
         true},
        {"full",
         [](cSockets& a, cSockets&) {
             a.fill(0);
             return cFds{{a[0], 2}};
         },
         false},
        {"hung up, whatever is asked",
         [](cSockets& a, cSockets&) {
             a.close(1);
             return cFds{{a[0], 0}};
         },
         true},
        {"closed",
         [](cSockets& a, cSockets&) {
             cFds const fds{{a[0], 2}};
             a.close(0);
             return fds;
         },
         true},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        cSockets a, b;
        auto const work = watch(row.prepare(a, b));
        finished = 0;
        EXPECT_LT(wait(row.isReady ? kAtOnce : 1), 5000);
        EXPECT_EQ(work->aioData().isEvent(), row.isReady);
        EXPECT_EQ(finished, 1u);
        jobs.clear();
    }
}

TEST_F(cPosixProcessEventsTest, withoutATimeOutNothingHappens)
{
    cSockets sockets;
    auto const work = watch({{sockets[0], tFdInfo::evWritable}});
    wait(0);
    EXPECT_FALSE(work->aioData().isEvent());
    EXPECT_EQ(finished, 0u);
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
    EXPECT_EQ(finished, 1u);
    EXPECT_FALSE(idle->aioData().isEvent());
    EXPECT_FALSE(timed->aioData().isEvent());
}

TEST_F(cPosixProcessEventsTest, worksThatShareADescriptorAreMarkedByTheirOwnMasks)
{
    cSockets sockets;
    auto const reader = watch({{sockets[0], tFdInfo::evReadable}});
    auto const writer = watch({{sockets[0], tFdInfo::evWritable}});
    wait(kAtOnce);
    EXPECT_FALSE(reader->aioData().isEvent());
    EXPECT_TRUE(writer->aioData().isEvent());
    sockets.write(1);
    writer->aioData().setEvent(false);
    wait(kAtOnce);
    EXPECT_TRUE(reader->aioData().isEvent());
    EXPECT_TRUE(writer->aioData().isEvent());
}

TEST_F(cPosixProcessEventsTest, theLimitOfDescriptorsCountsEachOnce)
{
    cSockets sockets;
    auto const work = watch(cFds(200, {sockets[0], tFdInfo::evWritable}));
    {
        cDescriptorLimit const limit(64);
        wait(kAtOnce);
    }
    EXPECT_TRUE(work->aioData().isEvent());

    // Too many all the same: the wait fails, but not at full speed.
    for (int fd = 1000; fd < 1200; ++fd)
        watch({{fd, tFdInfo::evReadable}});
    work->aioData().setEvent(false);
    cDescriptorLimit const limit(64);
    EXPECT_GE(wait(20), 9);
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
    EXPECT_TRUE(second->aioData().isEvent());
}

TEST_F(cPosixProcessEventsTest, otherDataIsRefused)
{
    cSockets sockets;
    auto const good = watch({{sockets[0], tFdInfo::evWritable}});
    auto const bad = add(new npi::cAbstractAIOData);
    auto const error = ntest::raisedBy<nstd::cBugException>([this] { wait(kAtOnce); });
    ASSERT_TRUE(error);
    EXPECT_EQ(ntest::messageOf(*error), "Asynchronous I/O data does not have file descriptor information!");
    EXPECT_FALSE(good->aioData().isEvent());
    EXPECT_TRUE(bad->isStarted());
    EXPECT_EQ(finished, 0u);
}

TEST_F(cPosixProcessEventsTest, theSystemsLoopRunsAWorkInTheCycleInWhichItsDataComes)
{
    cSockets sockets;
    struct cReader : nrmi::cConnectable {
        piVoid sltRead()
        {
            char c = 0;
            while (::read(fd, &c, 1) == 1)
                text += c;
            return piVoid();
        }
        int fd;
        std::string text;
    } reader;
    reader.fd = sockets[0];
    cWork work;
    work.sigAction.connect(nrmi::slot(&reader, &cReader::sltRead));
    cData data(new npi::cFDAIOData);
    data->fdAIOData().addFd(sockets[0], tFdInfo::evReadable);
    npi::schedule(work).setAIOData(data);
    sockets.write(1);
    npi::cSystem::exec();
    EXPECT_EQ(reader.text, "x");
}

} // namespace
