#include "nel_core/pi/cPosixProcessEvents.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <poll.h>
#include <sys/select.h>

#include "nel_core/pi/cFDAIOData.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/pi/workChanges.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tList.h"
#include "nel_core/std/tSharedObject.h"
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

void sleepFor(unsigned int ms)
{
    timeval time;
    time.tv_sec = static_cast<decltype(time.tv_sec)>(ms / 1000);
    time.tv_usec = static_cast<decltype(time.tv_usec)>(ms % 1000 * 1000);
    ::select(0, nullptr, nullptr, nullptr, &time);
}

// Empties an array and keeps its pool, unless the last content used little of it.
template<typename T>
void reuse(nstd::tArray<T>& array)
{
    bool const isTooLarge = array._poolSize() / 4 > array.length() + 1024;
    array.truncate(0);
    if (isTooLarge)
        array.optimizeMemory();
}

} // namespace

// The descriptors that the works of a queue wait for. Each stands once in the table of poll(), however many
// works wait for it: the kernel refuses a table that is longer than the number of descriptors allowed. The
// table serves one wait after the other as long as no work changes.
class cPosixProcessEvents::cDescriptorTable {
public:
    cDescriptorTable()
    {
        configure(maTable);
        configure(maLast);
        configure(maRequests);
        configure(maPlaces);
    }

    // Looks at all works, if need be. Raises a bug for data that names no descriptors.
    void collect(cJobs const& jobs)
    {
        if (mpJobs == &jobs && miKnown == workChanges())
            return;
        forget();
        miKnown = workChanges(); // before: a derived class may change works while it is asked
        bool isExposed = false;
        for (auto at = jobs.begin(); at != jobs.end(); ++at) {
            if (at.node()->isFlagged()) // idle, says the queue
                continue;
            cWork* const work = at->get();
            if (!work || !work->isStarted() || work->type() != cWork::AsynchronousIO)
                continue;
            cFDAIOData& data = work->aioData().fdAIOData();
            isExposed = isExposed || data.isExposed();
            for (tFdInfo const& info : static_cast<cFDAIOData const&>(data).fds())
                add(info.fd, pollEventsOf(info.events), data);
        }
        mpJobs = isExposed ? nullptr : &jobs;
    }

    bool empty() const { return maTable.length() == 0; }

    // Marks what is ready within the time; nothing when works changed while they were asked: the next wait is
    // told the same.
    void wait(unsigned int timeout)
    {
        int const clamped = static_cast<int>(std::min<unsigned int>(timeout, INT_MAX));
        int const ready = ::poll(maTable.data(), maTable.length(), clamped);
        if (ready < 0 && errno != EINTR)
            sleepFor(std::min(timeout, kBackOff));
        if (ready > 0 && miKnown == workChanges())
            markReady(ready);
    }

private:
    static constexpr unsigned int kNone = 0xFFFFFFFFu;
    static constexpr unsigned int kGrowStep = 10;   // by 1024 entries
    static constexpr int kIndexedEnd = 1024 * 1024; // a larger descriptor would take too much memory

    // What one work waits for at one descriptor.
    struct cRequest {
        cFDAIOData* data;
        unsigned int previous; ///< the request before for the same descriptor
        short events;
    };

    template<typename T>
    static void configure(nstd::tArray<T>& array)
    {
        array.setGrowStep(kGrowStep);
        array.setFitOnErase(false);
    }

    void forget()
    {
        mpJobs = nullptr;
        for (pollfd const& entry : maTable) {
            if (entry.fd >= 0 && entry.fd < kIndexedEnd)
                maPlaces[static_cast<unsigned int>(entry.fd)] = kNone;
        }
        reuse(maTable);
        reuse(maLast);
        reuse(maRequests);
    }

    void add(int fd, short events, cFDAIOData& data)
    {
        unsigned int const place = placeOf(fd);
        maTable[place].events = static_cast<short>(maTable[place].events | events);
        maRequests.append(cRequest{&data, maLast[place], events});
        maLast[place] = maRequests.length() - 1;
    }

    unsigned int placeOf(int fd)
    {
        bool const isIndexed = fd >= 0 && fd < kIndexedEnd;
        auto const index = static_cast<unsigned int>(fd);
        if (isIndexed) {
            while (maPlaces.length() <= index)
                maPlaces.append(kNone);
            if (maPlaces[index] != kNone)
                return maPlaces[index];
        }
        unsigned int const place = maTable.length();
        maLast.append(kNone);
        maTable.append(pollfd{fd, 0, 0});
        if (isIndexed)
            maPlaces[index] = place;
        return place;
    }

    void markReady(int ready) const
    {
        for (unsigned int place = 0; ready != 0 && place < maTable.length(); ++place) {
            int const reported = maTable[place].revents;
            if (reported == 0)
                continue;
            --ready;
            for (unsigned int at = maLast[place]; at != kNone; at = maRequests[at].previous) {
                if (reported & (maRequests[at].events | POLLERR | POLLHUP | POLLNVAL))
                    maRequests[at].data->setEvent(true);
            }
        }
    }

    cJobs const* mpJobs = nullptr;  ///< whose works these are; null: to be collected anew
    unsigned long long miKnown = 0; ///< the workChanges() for which they are
    nstd::tArray<pollfd> maTable;
    nstd::tArray<unsigned int> maLast; ///< for each place of the table, its last request
    nstd::tArray<cRequest> maRequests;
    nstd::tArray<unsigned int> maPlaces; ///< for each descriptor, its place in the table
};

cPosixProcessEvents::cPosixProcessEvents() : mpTable(new cDescriptorTable) { }

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
    mpTable->collect(jobs);
    if (mpTable->empty())
        sleepFor(timeout);
    else
        mpTable->wait(timeout);
    sigFinished(); // last: the table may serve a wait inside
}

void cPosixProcessEvents::wakeUp() { }

} // namespace npi
