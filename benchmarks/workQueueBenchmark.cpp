// What a pass costs for each work that is not due, and a one-shot work from scheduling to its end.

#include <deque>
#include <malloc.h>

#include <benchmark/benchmark.h>

#include "benchmarks/countedAllocations.h"
#include "nel_core/pi/cAbstractProcessEvents.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/cWorkQueue.h"

namespace {

constexpr unsigned int kHour = 3600 * 1000; // milliseconds
constexpr unsigned int kCaches = 4096;      // bytes that the allocator may keep in its caches

// Never waits.
class cNoWait : public npi::cAbstractProcessEvents {
public:
    bool supportsAIO() const override { return true; }
    bool isAsynchronous() const override { return false; }
    void yield(unsigned int, nstd::tList<nstd::tSharedObject<npi::cWork>>&, unsigned int) override { }
    void wakeUp() override { }
};

class cCounter : public nrmi::cConnectable {
public:
    piVoid sltCount()
    {
        ++miCount;
        return piVoid();
    }

    long long miCount = 0;
};

void setTimeForEach(benchmark::State& state, double count)
{
    state.counters["each"] = benchmark::Counter(count, benchmark::Counter::kIsIterationInvariantRate
                                                           | benchmark::Counter::kInvert);
}

void passOverIdleWorks(benchmark::State& state)
{
    npi::cWorkQueue queue;
    queue.setEvents(nstd::tAutoPtr<npi::cAbstractProcessEvents>(new cNoWait));
    std::deque<npi::cWork> works(static_cast<std::size_t>(state.range(0)));
    for (auto& work : works) {
        queue.addJob(work);
        work.start(kHour, npi::cWork::Periodic);
    }
    queue.processEvents(true);
    queue.processEvents(true); // remembers what the first one has found

    auto const allocations = gAllocations;
    auto const memory = mallinfo2().uordblks;
    for (auto _ : state) {
        if (queue.processEvents(true) != works.size())
            state.SkipWithError("a pass missed a work");
    }
    if (gAllocations != allocations || mallinfo2().uordblks != memory)
        state.SkipWithError("a pass allocated memory");
    setTimeForEach(state, static_cast<double>(works.size()));
}

void scheduleAndRun(cCounter& counter, long long count)
{
    for (long long i = 0; i < count; ++i)
        npi::schedule(nrmi::slot(&counter, &cCounter::sltCount), 0, "x");
    npi::cSystem::exec();
}

void oneShotWorks(benchmark::State& state)
{
    cCounter counter;
    scheduleAndRun(counter, state.range(0)); // fills the allocator's caches
    auto const memory = mallinfo2().uordblks;
    for (auto _ : state)
        scheduleAndRun(counter, state.range(0));
    if (counter.miCount != static_cast<long long>(state.iterations() + 1) * state.range(0))
        state.SkipWithError("a work was not run once");
    if (!npi::system().workQueue.jobs().empty() || mallinfo2().uordblks > memory + kCaches)
        state.SkipWithError("memory has not come back");
    setTimeForEach(state, static_cast<double>(state.range(0)));
}

BENCHMARK(passOverIdleWorks)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(oneShotWorks)->Arg(1)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);

} // namespace
