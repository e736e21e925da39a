// Translates a message with two placeholders from a table of 1,000 keys: at most 2 microseconds. Loads plain
// files, locale files and stored tables, and translates keys of many placeholders, over doubling sizes: in
// linear time.

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>

#include "nel_core/pi/cSystem.h"
#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/ucs/cLILocale.h"
#include "nel_core/ucs/cLIMessage.h"
#include "nel_core/ucs/cLITranslationLoader.h"

namespace {

constexpr long long kFirstSize = 625 << 10;
constexpr long long kLastSize = 10000 << 10;

std::string keyOf(unsigned int number)
{
    return "Unable to read file number " + std::to_string(number) + " (%file%, line %line%)!";
}

// A file that is removed at the end.
class cTextFile {
public:
    explicit cTextFile(std::string const& text)
    {
        int const file = ::mkstemp(msName);
        if (file < 0 || ::close(file) != 0)
            std::abort();
        std::ofstream(msName, std::ios::binary) << text;
    }
    ~cTextFile() { ::unlink(msName); }
    cTextFile(cTextFile const&) = delete;
    cTextFile& operator=(cTextFile const&) = delete;
    nucs::cString path() const { return msName; }

private:
    char msName[32] = "/tmp/nel_locale_XXXXXX";
};

void require(benchmark::State& state, bool condition)
{
    if (!condition)
        state.SkipWithError("the result is wrong");
}

void translate(benchmark::State& state)
{
    nucs::cLILocale locale("benchmark");
    for (unsigned int i = 0; i < 1000; ++i)
        locale.translator().addTranslation(keyOf(i).c_str(),
                                           "Zeile %line% der Datei %file% ist nicht lesbar!");
    nucs::cLIMessage message;
    message << keyOf(999).c_str() << "/etc/hosts" << 12;
    nucs::cString out;
    for (auto _ : state) {
        locale.translate(message, out, nullptr);
        benchmark::DoNotOptimize(out.data());
    }
    require(state, out == "Zeile 12 der Datei /etc/hosts ist nicht lesbar!");
}
BENCHMARK(translate);

// Lines with line feeds only: there is no carriage return to be found.
std::string entries(long long size)
{
    std::string text;
    for (unsigned int i = 0; text.size() < static_cast<std::size_t>(size); ++i)
        text += "\"" + keyOf(i) + "\" = \"Nummer " + std::to_string(i) + "\"\n";
    return text;
}

void finish(benchmark::State& state)
{
    state.SetBytesProcessed(state.range(0) * state.iterations());
    state.SetComplexityN(state.range(0));
}

void loadPlain(benchmark::State& state)
{
    npi::system();
    cTextFile const file(entries(state.range(0)));
    nucs::cLITrTable table;
    for (auto _ : state)
        nucs::cLITranslationLoader::loadFile(file.path(), table);
    require(state, table.hasTranslation(keyOf(7).c_str()) != nullptr);
    finish(state);
}
BENCHMARK(loadPlain)
    ->RangeMultiplier(2)
    ->Range(kFirstSize, kLastSize)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

void loadLocale(benchmark::State& state)
{
    npi::system();
    cTextFile const file(entries(state.range(0)));
    nucs::cLILocale locale("benchmark");
    for (auto _ : state)
        locale.loadFromFile(file.path());
    require(state, locale.translate(keyOf(7).c_str()) == "Nummer 7");
    finish(state);
}
BENCHMARK(loadLocale)
    ->RangeMultiplier(2)
    ->Range(kFirstSize, kLastSize)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

// Quotes that are escaped, and nothing else, in one text.
void loadEscapes(benchmark::State& state)
{
    npi::system();
    std::string text = "\"k\" = \"";
    while (text.size() < static_cast<std::size_t>(state.range(0)))
        text += "\\\"";
    cTextFile const file(text + "\"");
    nucs::cLITrTable table;
    for (auto _ : state)
        nucs::cLITranslationLoader::loadFile(file.path(), table);
    require(state, table.hasTranslation("k") != nullptr);
    finish(state);
}
BENCHMARK(loadEscapes)
    ->RangeMultiplier(2)
    ->Range(kFirstSize, kLastSize)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

void loadStored(benchmark::State& state)
{
    cTextFile const file(entries(state.range(0)));
    nucs::cLITrTable table;
    nucs::cLITranslationLoader::loadFile(file.path(), table);
    nsa::cSerializeBinary stored;
    table >> stored;
    for (auto _ : state) {
        nsa::cDeserializeBinary stream(stored.data());
        table << stream;
    }
    require(state, table.hasTranslation(keyOf(7).c_str()) != nullptr);
    finish(state);
}
BENCHMARK(loadStored)
    ->RangeMultiplier(2)
    ->Range(kFirstSize, kLastSize)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

void manyPlaceholders(benchmark::State& state)
{
    std::string key;
    for (long long i = 0; i < state.range(0) / 8; ++i)
        key += "%p" + std::to_string(100000 + i) + "%";
    nucs::cLITrTable table;
    table.addTranslation(key.c_str(), key.c_str());
    nucs::cString out;
    for (auto _ : state) {
        nucs::cLIMessage message;
        message << key.c_str();
        for (long long i = 0; i < state.range(0) / 8; ++i)
            message << 7;
        table.translation(message, out);
    }
    require(state, out.length() == state.range(0) / 8);
    finish(state);
}
BENCHMARK(manyPlaceholders)
    ->RangeMultiplier(2)
    ->Range(100 << 10, 1600 << 10)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

} // namespace
