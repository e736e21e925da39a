#include "tests/support/cFakeClock.h"

#include <atomic>
#include <ctime>
#include <sys/time.h>

namespace {

std::atomic<long long> gShift{0}; // microseconds

} // namespace

// Stands before the C library's function of the same name.
extern "C" __attribute__((visibility("default"))) int gettimeofday(timeval* time, void*) noexcept
{
    timespec now;
    ::clock_gettime(CLOCK_REALTIME, &now);
    long long const us = static_cast<long long>(now.tv_sec) * 1000000 + now.tv_nsec / 1000 + gShift;
    time->tv_sec = static_cast<decltype(time->tv_sec)>(us / 1000000);
    time->tv_usec = static_cast<decltype(time->tv_usec)>(us % 1000000);
    return 0;
}

namespace ntest {

cFakeClock::~cFakeClock()
{
    gShift = 0;
}

void cFakeClock::advance(long long milliseconds)
{
    gShift += milliseconds * 1000;
}

} // namespace ntest
