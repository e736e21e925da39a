// UTF-8 to code points and back against iconv: ASCII at least ten times, mixed text at least twice its speed.

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <iconv.h>
#include <string>

#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/ucs/cEnDecUTF8.h"
#include "nel_core/ucs/cString.h"

namespace {

constexpr std::size_t kBytes = 1 << 20;

// One MiB of the sample over and over, without a cut character.
std::string repeated(std::string const& sample)
{
    std::string text;
    while (text.size() + sample.size() <= kBytes)
        text += sample;
    return text;
}

std::string textOf(benchmark::State const& state)
{
    static std::string const samples[] = {
        "The quick brown fox jumps over the lazy dog, and 0123456789 more. ",
        "Größe und Übermaß, naïve café; Съешь ещё этих булок; 朝日 と 夕日 \U0001F600 plain words. ",
        "Съешь же ещё этих мягких французских булок, да выпей чаю. ",
        "天地玄黃宇宙洪荒日月盈昃辰宿列張",
    };
    return repeated(samples[state.range(0)]);
}

void require(benchmark::State& state, bool condition)
{
    if (!condition)
        state.SkipWithError("the result is wrong");
}

// Converts all of `text` into `out` and gives the number of bytes written.
std::size_t convert(iconv_t converter, std::string& text, std::string& out)
{
    char* in = text.data();
    char* to = out.data();
    std::size_t inLeft = text.size();
    std::size_t outLeft = out.size();
    if (iconv(converter, &in, &inLeft, &to, &outLeft) == static_cast<std::size_t>(-1))
        std::abort();
    return out.size() - outLeft;
}

void iconvDecode(benchmark::State& state)
{
    auto text = textOf(state);
    std::string out(4 * text.size(), '\0');
    auto const converter = iconv_open("UTF-32LE", "UTF-8");
    for (auto _ : state)
        benchmark::DoNotOptimize(convert(converter, text, out));
    iconv_close(converter);
    state.SetBytesProcessed(static_cast<long long>(text.size()) * state.iterations());
}

void iconvEncode(benchmark::State& state)
{
    auto text = textOf(state);
    std::string wide(4 * text.size(), '\0');
    std::string out(text.size(), '\0');
    auto converter = iconv_open("UTF-32LE", "UTF-8");
    wide.resize(convert(converter, text, wide));
    iconv_close(converter);
    converter = iconv_open("UTF-8", "UTF-32LE");
    for (auto _ : state)
        benchmark::DoNotOptimize(convert(converter, wide, out));
    iconv_close(converter);
    require(state, out == text);
    state.SetBytesProcessed(static_cast<long long>(text.size()) * state.iterations());
}

void decode(benchmark::State& state)
{
    auto const text = textOf(state);
    nstd::tArray<char> const bytes(text.data(), static_cast<unsigned int>(text.size()));
    nstd::tConstArrayRef<char> const view(bytes);
    nucs::cEnDecUTF8 const enDec;
    nucs::cString out;
    for (auto _ : state) {
        out.truncate(0); // keeps the pool, as iconv keeps its buffer
        enDec.decode(view, out);
        benchmark::DoNotOptimize(out.data());
    }
    nstd::tArray<char> back;
    enDec.encode(out, back);
    require(state, back == bytes);
    state.SetBytesProcessed(static_cast<long long>(text.size()) * state.iterations());
}

void encode(benchmark::State& state)
{
    auto const text = textOf(state);
    nstd::tArray<char> const bytes(text.data(), static_cast<unsigned int>(text.size()));
    nucs::cEnDecUTF8 const enDec;
    nucs::cString source;
    enDec.decode(nstd::tConstArrayRef<char>(bytes), source);
    nstd::tArray<char> out;
    out.setFitOnErase(false);
    for (auto _ : state) {
        out.truncate(0);
        enDec.encode(source, out);
        benchmark::DoNotOptimize(out.data());
    }
    require(state, out == bytes);
    state.SetBytesProcessed(static_cast<long long>(text.size()) * state.iterations());
}

void iconvRoundTrip(benchmark::State& state)
{
    auto text = textOf(state);
    std::string wide(4 * text.size(), '\0');
    std::string out(text.size(), '\0');
    auto const decoder = iconv_open("UTF-32LE", "UTF-8");
    wide.resize(convert(decoder, text, wide));
    auto const encoder = iconv_open("UTF-8", "UTF-32LE");
    for (auto _ : state) {
        convert(decoder, text, wide);
        benchmark::DoNotOptimize(convert(encoder, wide, out));
    }
    iconv_close(encoder);
    iconv_close(decoder);
    require(state, out == text);
    state.SetBytesProcessed(static_cast<long long>(text.size()) * state.iterations());
}

void roundTrip(benchmark::State& state)
{
    auto const text = textOf(state);
    nstd::tArray<char> const bytes(text.data(), static_cast<unsigned int>(text.size()));
    nucs::cEnDecUTF8 const enDec;
    nucs::cString wide;
    nstd::tArray<char> out;
    out.setFitOnErase(false);
    for (auto _ : state) {
        wide.truncate(0);
        out.truncate(0);
        enDec.decode(bytes, wide);
        enDec.encode(wide, out);
        benchmark::DoNotOptimize(out.data());
    }
    require(state, out == bytes);
    state.SetBytesProcessed(static_cast<long long>(text.size()) * state.iterations());
}

// 0: ASCII, 1: mixed, 2: two bytes a character, 3: three bytes a character
BENCHMARK(iconvRoundTrip)->DenseRange(0, 3);
BENCHMARK(roundTrip)->DenseRange(0, 3);
BENCHMARK(iconvDecode)->DenseRange(0, 3);
BENCHMARK(decode)->DenseRange(0, 3);
BENCHMARK(iconvEncode)->DenseRange(0, 3);
BENCHMARK(encode)->DenseRange(0, 3);

} // namespace
