// The binary format beside memcpy of the same bytes, and calls by name beside a map of functions.

#include <cstring>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include <benchmark/benchmark.h>

#include "nel_core/rmi/publicSlotCall.h"
#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/ucs/cString.h"

namespace {

using nsa::cContext;

// What an application stores of one thing.
struct cRecord {
    unsigned int id = 7;
    long long stamp = -1;
    bool flag = true;
    double value = 0.25;
    nstd::cAsciiString name{"0123456789abcdef"};
    nucs::cString text{"0123456789abcdef0123456789abcdef"};
    nstd::tList<unsigned int> numbers;
    int x = 1, y = 2, z = 3;

    void fill()
    {
        for (unsigned int i = 0; i < 100; ++i)
            numbers.append(i);
    }
    void store(nsa::cAbstractSerializer& s) const
    {
        id >> s, stamp >> s, flag >> s, value >> s, name >> s, text >> s, numbers >> s;
        cContext context(s.newContext(nullptr));
        x >> s, y >> s, z >> s;
        context.release();
    }
    void load(nsa::cAbstractDeserializer& d)
    {
        id << d, stamp << d, flag << d, value << d, name << d, text << d, numbers << d;
        cContext context(d.getContext(nullptr));
        x << d, y << d, z << d;
        context.release();
    }
};

std::string bytesOf(nsa::cSerializeBinary& serializer)
{
    auto const& bytes = serializer.ownData();
    return std::string(bytes.begin(), bytes.end());
}

void copyBytes(benchmark::State& state)
{
    cRecord record;
    record.fill();
    nsa::cSerializeBinary serializer;
    record.store(serializer);
    std::string const source = bytesOf(serializer);
    std::string target(source.size(), '\0');
    for (auto _ : state) {
        std::memcpy(target.data(), source.data(), source.size());
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<long long>(state.iterations() * source.size()));
}
BENCHMARK(copyBytes);

void writeRecord(benchmark::State& state)
{
    cRecord record;
    record.fill();
    nsa::cSerializeBinary serializer;
    record.store(serializer);
    unsigned int const size = serializer.currentPos();
    for (auto _ : state) {
        serializer.rewind();
        record.store(serializer);
        benchmark::ClobberMemory();
    }
    if (serializer.currentPos() != size)
        state.SkipWithError("the record has another size each time");
    state.SetBytesProcessed(static_cast<long long>(state.iterations()) * size);
}
BENCHMARK(writeRecord);

void readRecord(benchmark::State& state)
{
    cRecord record;
    record.fill();
    nsa::cSerializeBinary serializer;
    record.store(serializer);
    nsa::cDeserializeBinary deserializer(serializer.data());
    cRecord loaded;
    for (auto _ : state) {
        deserializer.rewind();
        loaded.load(deserializer);
        benchmark::ClobberMemory();
    }
    if (!deserializer.eoc() || loaded.numbers.size() != 100 || loaded.text != record.text || loaded.z != 3)
        state.SkipWithError("the record that was read is another one");
    state.SetBytesProcessed(static_cast<long long>(state.iterations()) * serializer.currentPos());
}
BENCHMARK(readRecord);

// Numbers and short strings in turns, as fields are.
void skipToLabel(benchmark::State& state)
{
    nsa::cSerializeBinary serializer;
    for (long i = 0; i < state.range(0); i += 2) {
        1U >> serializer;
        nstd::cAsciiString("text") >> serializer;
    }
    serializer.newLabel("here");
    5U >> serializer;
    nsa::cDeserializeBinary deserializer(serializer.data());
    nstd::cAsciiString const label("here");
    unsigned int found = 0;
    for (auto _ : state) {
        deserializer.rewind();
        found << deserializer.findLabel(label);
        benchmark::DoNotOptimize(found);
    }
    if (found != 5)
        state.SkipWithError("the label leads to another value");
    state.SetItemsProcessed(static_cast<long long>(state.iterations()) * state.range(0));
}
BENCHMARK(skipToLabel)->Arg(1000)->Arg(10000)->Arg(100000);

class cAdder : public nrmi::cConnectable {
public:
    int sltAdd(int a, int b) { return a + b; }
};

char const* const kNames[] = {"open", "close", "read", "write", "add", "status", "reset", "seek"};

void callByMap(benchmark::State& state)
{
    cAdder adder;
    std::unordered_map<std::string, std::function<int(int, int)>> slots;
    for (char const* const name : kNames)
        slots[name] = [&adder](int a, int b) { return adder.sltAdd(a, b); };
    std::string const wanted("add");
    int sum = 0;
    for (auto _ : state) {
        sum += slots.find(wanted)->second(2, 3);
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(callByMap);

void callByName(benchmark::State& state)
{
    cAdder adder;
    for (char const* const name : kNames)
        nrmi::publishSlot(&adder, name, &cAdder::sltAdd, "");
    nstd::cAsciiString const wanted("add");
    int a = 2;
    int b = 3;
    int sum = 0;
    long long total = 0;
    for (auto _ : state) {
        nsa::cReferenceFrame frame;
        frame.addRef(a, false, true).addRef(b, false, true).addRef(sum, true, false);
        adder.invokeIndirectSlot(wanted, frame);
        total += sum;
    }
    if (total != 5 * static_cast<long long>(state.iterations()))
        state.SkipWithError("the sum is wrong");
}
BENCHMARK(callByName);

// A caller that makes the same call again keeps the frame.
void callByNameAgain(benchmark::State& state)
{
    cAdder adder;
    for (char const* const name : kNames)
        nrmi::publishSlot(&adder, name, &cAdder::sltAdd, "");
    nstd::cAsciiString const wanted("add");
    int a = 2;
    int b = 3;
    int sum = 0;
    nsa::cReferenceFrame frame;
    frame.addRef(a, false, true).addRef(b, false, true).addRef(sum, true, false);
    for (auto _ : state) {
        adder.invokeIndirectSlot(wanted, frame);
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(callByNameAgain);

} // namespace
