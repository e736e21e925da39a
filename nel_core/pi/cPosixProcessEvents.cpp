#include "nel_core/pi/cPosixProcessEvents.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <poll.h>
#include <sys/select.h>

#include "nel_core/pi/cFDAIOData.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tList.h"
#include "nel_core/std/tSharedObject.h"
#include "nel_core/std/tSharedObjectWatch.h"
#include "nel_core/std/tVector.h"

namespace npi {
namespace {

using cJobs = nstd::tList<nstd::tSharedObject<cWork>>;

constexpr unsigned int kBackOff = 10; // milliseconds

constexpr short pollEventsOf(unsigned int events)
{
    int bits = 0;
    if (events & tFdInfo::evReadable)
        bits |= POLLIN | POLLPRI | POLLRDNORM | POLLRDBAND;
    if (events & tFdInfo::evWritable)
        bits |= POLLOUT | POLLWRNORM | POLLWRBAND;
    if (events & tFdInfo::evError)
        bits |= POLLERR | POLLHUP;
    return static_cast<short>(bits);
}
static_assert(pollEventsOf(1) == 0xc3 && pollEventsOf(2) == 0x304 && pollEventsOf(4) == 0x18,
              "the bits of poll() on this platform");

constexpr bool isSmallerFd(pollfd const& a, pollfd const& b)
{
    return a.fd < b.fd;
}

void sleepFor(unsigned int ms)
{
    timeval time;
    time.tv_sec = static_cast<decltype(time.tv_sec)>(ms / 1000);
    time.tv_usec = static_cast<decltype(time.tv_usec)>(ms % 1000 * 1000);
    ::select(0, nullptr, nullptr, nullptr, &time);
}

// The descriptors of one wait. Each stands once in the table of poll(), which is sorted, however many works
// wait for it: the kernel refuses a table that is longer than the number of descriptors allowed.
class cDescriptorWait {
public:
    explicit cDescriptorWait(cJobs& jobs)
    {
        for (nstd::tSharedObject<cWork> const& job : jobs) {
            cWork* const work = job.get();
            if (work && work->isStarted() && work->type() == cWork::AsynchronousIO)
                add(job, work->aioData().fdAIOData().fds());
        }
        joinEqual();
    }

    bool empty() const { return maTable.length() == 0; }

    // The number of ready descriptors, 0 for a time-out or an interruption.
    int wait(unsigned int timeout)
    {
        int const clamped = static_cast<int>(std::min<unsigned int>(timeout, INT_MAX));
        int const ready = ::poll(maTable.data(), maTable.length(), clamped);
        if (ready < 0 && errno != EINTR)
            sleepFor(std::min(timeout, kBackOff));
        return std::max(ready, 0);
    }

    void markReady() const
    {
        for (cRequest const& request : maRequests) {
            if (!(reported(request.fd) & (request.events | POLLERR | POLLHUP | POLLNVAL)))
                continue;
            nstd::tSharedObject<cWork> const work = maWorks[request.work].lock();
            if (cAbstractAIOData* const data = work ? work->hasAIOData() : nullptr)
                data->setEvent(true);
        }
    }

private:
    struct cRequest {
        int fd;
        short events;
        unsigned int work;
    };

    void add(nstd::tSharedObject<cWork> const& job, nstd::tVector<tFdInfo> const& fds)
    {
        unsigned int const work = maWorks.size();
        maWorks.append(nstd::tSharedObjectWatch<cWork>(job));
        for (tFdInfo const& info : fds) {
            maRequests.append(cRequest{info.fd, pollEventsOf(info.events), work});
            maTable.append(pollfd{info.fd, pollEventsOf(info.events), 0});
        }
    }

    void joinEqual()
    {
        std::sort(maTable.begin(), maTable.end(), isSmallerFd);
        unsigned int count = 0;
        for (pollfd const& entry : maTable) {
            if (count != 0 && maTable[count - 1].fd == entry.fd)
                maTable[count - 1].events = static_cast<short>(maTable[count - 1].events | entry.events);
            else
                maTable[count++] = entry;
        }
        maTable.truncate(count);
    }

    int reported(int fd) const
    {
        return std::lower_bound(maTable.begin(), maTable.end(), pollfd{fd, 0, 0}, isSmallerFd)->revents;
    }

    nstd::tArray<pollfd> maTable;
    nstd::tArray<cRequest> maRequests; ///< in the order of the works and their descriptors
    nstd::tVector<nstd::tSharedObjectWatch<cWork>> maWorks;
};

// Everything that the wait needs is gone before anybody is told of its end.
void waitFor(cJobs& jobs, unsigned int timeout)
{
    cDescriptorWait descriptors(jobs);
    if (descriptors.empty())
        sleepFor(timeout);
    else if (descriptors.wait(timeout) > 0)
        descriptors.markReady();
}

} // namespace

cPosixProcessEvents::cPosixProcessEvents() = default;

cPosixProcessEvents::~cPosixProcessEvents() = default;

bool cPosixProcessEvents::supportsAIO() const
{
    return true;
}

bool cPosixProcessEvents::isAsynchronous() const
{
    return false;
}

void cPosixProcessEvents::yield(unsigned int, cJobs& jobs, unsigned int timeout)
{
    if (timeout == 0)
        return;
    waitFor(jobs, timeout);
    sigFinished();
}

void cPosixProcessEvents::wakeUp() { }

} // namespace npi
