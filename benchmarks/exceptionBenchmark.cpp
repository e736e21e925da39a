#include <benchmark/benchmark.h>

#include "nel_core/std/cBugException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/ucs/cUCSExceptions.h"

namespace {

void makeBugException(benchmark::State& state)
{
    for (auto step : state) {
        static_cast<void>(step);
        nstd::cBugException const error;
        benchmark::DoNotOptimize(error.backtrace());
    }
}
BENCHMARK(makeBugException);

// The trace is captured and not resolved.
void throwAndCatch(benchmark::State& state)
{
    for (auto step : state) {
        static_cast<void>(step);
        try {
            cSTDExceptions::throwOutOfBounds("tArray", "append");
        } catch (nstd::cBugException const& error) {
            benchmark::DoNotOptimize(error.backtrace());
        }
    }
}
BENCHMARK(throwAndCatch);

void throwAndCatchWithCause(benchmark::State& state)
{
    nstd::cRuntimeException const cause;
    for (auto step : state) {
        static_cast<void>(step);
        try {
            cUCSExceptions::throwUCSDecodeError(cause);
        } catch (nstd::cRuntimeException const& error) {
            benchmark::DoNotOptimize(error.history());
        }
    }
}
BENCHMARK(throwAndCatchWithCause);

// A chain of so many exceptions, copied and destroyed.
void copyChain(benchmark::State& state)
{
    nstd::cRuntimeException chain;
    for (auto left = state.range(0); left > 1; --left)
        chain.link(new nstd::cRuntimeException);
    for (auto step : state) {
        static_cast<void>(step);
        nstd::cRuntimeException const copy(chain);
        benchmark::DoNotOptimize(copy.history());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(copyChain)->Arg(1)->Arg(10)->Arg(100);

} // namespace
