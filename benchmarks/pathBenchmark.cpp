// Normalising a path of eight components: at most a microsecond, from the cache at most 200 ns, beside the
// copy of its text and std::filesystem. Long paths: linear in the number of components.

#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>
#include <string_view>

#include "nel_core/io/cPath.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/tHash.h"

namespace {

char const kPath[] = "/home/builder/./project/library/../source//core/path/tests/";
char const kNormalised[] = "/home/builder/project/source/core/path/tests/";

void require(benchmark::State& state, bool condition)
{
    if (!condition)
        state.SkipWithError("the result is wrong");
}

// Components of all kinds, as many as asked for; every third one goes back by one.
std::string longPath(benchmark::State const& state)
{
    std::string path = "/";
    for (int i = 0; i < state.range(0); ++i)
        path += i % 3 == 2 ? "../" : i % 5 == 4 ? "./" : "component/";
    return path;
}

void copyText(benchmark::State& state)
{
    nucs::cString const path(kPath);
    for (auto _ : state) {
        nucs::cString copy(path);
        benchmark::DoNotOptimize(copy.data());
    }
}

void lexicallyNormal(benchmark::State& state)
{
    std::filesystem::path const path(kPath);
    for (auto _ : state)
        benchmark::DoNotOptimize(path.lexically_normal());
    require(state, path.lexically_normal() == kNormalised);
}

void normalise(benchmark::State& state)
{
    npi::system().caches.clear();
    nucs::cString const path(kPath);
    nucs::cString out;
    for (auto _ : state)
        benchmark::DoNotOptimize(nio::setPath(path, out, true));
    require(state, out == kNormalised);
}

void normaliseFromCache(benchmark::State& state)
{
    auto& cache = npi::system().caches.createPathFixupHash();
    nucs::cString const path(kPath);
    nucs::cString out;
    for (auto _ : state)
        benchmark::DoNotOptimize(nio::setPath(path, out, true));
    require(state, out == kNormalised && cache.size() == 1);
    npi::system().caches.clear();
}

void lexicallyNormalLong(benchmark::State& state)
{
    std::filesystem::path const path(longPath(state));
    for (auto _ : state)
        benchmark::DoNotOptimize(path.lexically_normal());
    state.SetComplexityN(state.range(0));
}

void normaliseLong(benchmark::State& state)
{
    std::string const text = longPath(state);
    nucs::cString const path(text.c_str());
    nucs::cString out;
    for (auto _ : state)
        benchmark::DoNotOptimize(nio::setPath(path, out, true));
    std::string const expected = std::filesystem::path(text).lexically_normal();
    require(state, out == expected.c_str());
    state.SetComplexityN(state.range(0));
}

// Up to the root and down again on the other side.
void makeRelativeLong(benchmark::State& state)
{
    std::string const text = longPath(state);
    nio::cPath const path(("/a" + text).c_str());
    nio::cPath const base(("/b" + text).c_str());
    for (auto _ : state) {
        nio::cPath relative(path);
        relative.makeRelative(base);
        benchmark::DoNotOptimize(relative.unixEquivalent().data());
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(copyText);
BENCHMARK(lexicallyNormal);
BENCHMARK(normalise);
BENCHMARK(normaliseFromCache);
BENCHMARK(lexicallyNormalLong)->RangeMultiplier(10)->Range(1000, 100000)->Complexity();
BENCHMARK(normaliseLong)->RangeMultiplier(10)->Range(1000, 100000)->Complexity();
BENCHMARK(makeRelativeLong)->RangeMultiplier(10)->Range(1000, 100000)->Complexity();

} // namespace
