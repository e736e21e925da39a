#include <charconv>
#include <climits>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cNumberConversion.h"
#include "nel_core/std/cNumberConversionFormat.h"

// Each conversion beside the one of the standard library for the same numbers. Writing and reading integers
// may take three times as long as std::to_chars and std::from_chars.

namespace {

constexpr std::size_t kCount = 1024;

// Numbers of 1 to `digits` decimal digits, all lengths equally often, half of them negative.
std::vector<long long> numbers(long long digits)
{
    std::mt19937_64 random(1);
    std::vector<long long> result;
    while (result.size() < kCount) {
        unsigned long long greatest = 9;
        for (auto i = static_cast<long long>(random() % 64) % digits; i > 0; --i)
            greatest = greatest < LLONG_MAX / 10 ? greatest * 10 + 9 : LLONG_MAX;
        auto const value = static_cast<long long>(greatest / 10 + 1 + random() % (greatest - greatest / 10));
        result.push_back(result.size() % 2 == 0 ? value : -value);
    }
    return result;
}

template<typename Text>
std::vector<Text> texts(std::vector<long long> const& values, unsigned int base)
{
    std::vector<Text> result;
    for (long long value : values) {
        char text[80] = {};
        std::to_chars(text, text + sizeof text, value, static_cast<int>(base));
        result.push_back(text);
    }
    return result;
}

void countItems(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kCount));
}

// Arguments of all: the base and the greatest number of decimal digits.

// All numbers one after the other into the same memory.

void writeWithStandardLibrary(benchmark::State& state)
{
    auto const values = numbers(state.range(1));
    std::string text(kCount * 64, ' ');
    for (auto _ : state) {
        char* end = text.data();
        for (long long value : values)
            end = std::to_chars(end, end + 64, value, static_cast<int>(state.range(0))).ptr;
        benchmark::DoNotOptimize(end);
        benchmark::ClobberMemory();
    }
    countItems(state);
}

void write(benchmark::State& state)
{
    auto const values = numbers(state.range(1));
    nstd::cNumberConversionFormat const format(static_cast<unsigned int>(state.range(0)));
    nstd::cAsciiString text;
    text.setFitOnErase(false);
    for (auto _ : state) {
        text.truncate(0);
        for (long long value : values)
            nstd::cNumberConversion::toString(text, value, format);
        benchmark::ClobberMemory();
    }
    std::string expected;
    for (auto const& number : texts<std::string>(values, format.base()))
        expected += number;
    if (text != expected.c_str())
        state.SkipWithError("the text differs");
    countItems(state);
}

void readWithStandardLibrary(benchmark::State& state)
{
    auto const values = numbers(state.range(1));
    auto const sources = texts<std::string>(values, static_cast<unsigned int>(state.range(0)));
    for (auto _ : state) {
        for (auto const& source : sources) {
            long long value = 0;
            std::from_chars(source.data(), source.data() + source.size(), value,
                            static_cast<int>(state.range(0)));
            benchmark::DoNotOptimize(value);
        }
    }
    countItems(state);
}

void read(benchmark::State& state)
{
    auto const values = numbers(state.range(1));
    auto const sources = texts<nstd::cAsciiString>(values, static_cast<unsigned int>(state.range(0)));
    nstd::cNumberConversionFormat const format(static_cast<unsigned int>(state.range(0)));
    long long sum = 0;
    for (auto _ : state) {
        sum = 0;
        for (auto const& source : sources) {
            long long const value = nstd::cNumberConversion::fromString(source, format);
            benchmark::DoNotOptimize(value);
            sum += value;
        }
    }
    for (long long value : values)
        sum -= value;
    if (sum != 0)
        state.SkipWithError("the sum of the numbers differs");
    countItems(state);
}

void caseOfBaseAndDigits(benchmark::internal::Benchmark* measured)
{
    measured->ArgNames({"base", "digits"})->Args({10, 4})->Args({10, 19})->Args({16, 19});
}

BENCHMARK(writeWithStandardLibrary)->Apply(caseOfBaseAndDigits);
BENCHMARK(write)->Apply(caseOfBaseAndDigits);
BENCHMARK(readWithStandardLibrary)->Apply(caseOfBaseAndDigits);
BENCHMARK(read)->Apply(caseOfBaseAndDigits);

} // namespace
