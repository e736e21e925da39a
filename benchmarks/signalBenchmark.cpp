// Signals beside a std::vector of std::function that hold the same object and member function.

#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include <benchmark/benchmark.h>

#include "benchmarks/countedAllocations.h"
#include "nel_core/rmi/localSignal.h"

namespace {

using cSignal = nrmi::localSignal1<piVoid, int>;
using cFunctions = std::vector<std::function<void(int)>>;

class cReceiver : public nrmi::cConnectable {
public:
    piVoid sltAdd(int value)
    {
        miSum += value;
        return piVoid();
    }

    long long miSum = 0;
};

// Opaque to the optimiser, as a slot normally is.
auto memberOf()
{
    auto member = &cReceiver::sltAdd;
    benchmark::DoNotOptimize(member);
    return member;
}

std::function<void(int)> functionOf(cReceiver& receiver)
{
    return [object = &receiver, member = memberOf()](int value) { (object->*member)(value); };
}

void checkCalls(benchmark::State& state, std::deque<cReceiver> const& receivers)
{
    for (auto const& receiver : receivers) {
        if (receiver.miSum != static_cast<long long>(state.iterations()))
            state.SkipWithError("a slot was not called once an emission");
    }
}

void callFunctions(benchmark::State& state)
{
    std::deque<cReceiver> receivers(static_cast<std::size_t>(state.range(0)));
    cFunctions functions;
    for (auto& receiver : receivers)
        functions.push_back(functionOf(receiver));
    for (auto _ : state) {
        for (auto const& function : functions)
            function(1);
        benchmark::ClobberMemory();
    }
    checkCalls(state, receivers);
}

void emitSignal(benchmark::State& state)
{
    std::deque<cReceiver> receivers(static_cast<std::size_t>(state.range(0)));
    cSignal signal;
    for (auto& receiver : receivers)
        signal.connect(nrmi::slot(&receiver, memberOf()));
    for (auto _ : state) {
        signal(1);
        benchmark::ClobberMemory();
    }
    checkCalls(state, receivers);

    auto const allocations = gAllocations;
    for (int i = 0; i < 1000; ++i)
        signal(1);
    if (gAllocations != allocations)
        state.SkipWithError("an emission allocated memory");
}

void pushAndErase(benchmark::State& state)
{
    std::deque<cReceiver> receivers(static_cast<std::size_t>(state.range(0)));
    cFunctions functions;
    for (auto& receiver : receivers)
        functions.push_back(functionOf(receiver));
    cReceiver receiver;
    for (auto _ : state) {
        functions.push_back(functionOf(receiver));
        benchmark::ClobberMemory();
        functions.erase(functions.end() - 1);
    }
}

void connectAndDisconnect(benchmark::State& state)
{
    std::deque<cReceiver> receivers(static_cast<std::size_t>(state.range(0)));
    cSignal signal;
    for (auto& receiver : receivers)
        signal.connect(nrmi::slot(&receiver, memberOf()));
    cReceiver receiver;
    for (auto _ : state) {
        signal.connect(nrmi::slot(&receiver, memberOf()));
        benchmark::ClobberMemory();
        signal.disconnect(receiver);
    }
}

// The time a signal must not depend on the number of signals that the one receiver is attached to.
void connectAndDestroyMany(benchmark::State& state)
{
    auto const count = static_cast<std::size_t>(state.range(0));
    cReceiver receiver;
    for (auto _ : state) {
        std::deque<cSignal> signals(count);
        for (auto& signal : signals)
            signal.connect(nrmi::slot(&receiver, memberOf()));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(callFunctions)->Arg(1)->Arg(10);
BENCHMARK(emitSignal)->Arg(1)->Arg(10);
BENCHMARK(pushAndErase)->Arg(0)->Arg(10);
BENCHMARK(connectAndDisconnect)->Arg(0)->Arg(10);
BENCHMARK(connectAndDestroyMany)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);

} // namespace
