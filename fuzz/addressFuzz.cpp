#include "fuzz/fuzzInput.h"

#include "nel_core/ncs/cComponentLocation.h"
#include "nel_core/ncs/cInterfaceDesc.h"
#include "nel_core/ncs/cModuleInfo.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/sa/cSerializeBinary.h"

namespace {

// A text that is refused changes nothing; an accepted one gives a value whose own text gives it again.
template<typename T>
void parse(nstd::cAsciiString const& text)
{
    T const blank;
    T value = blank;
    try {
        value.fromString(text);
    } catch (nstd::cAbstractException const&) {
        FUZZ_CHECK(value == blank);
        return;
    }
    FUZZ_CHECK(T(value.toString()) == value);
}

template<typename T>
nsa::cDeserializeBinary::tBytes bytesOf(T const& value, bool preferNoLabels)
{
    nsa::cSerializeBinary serializer;
    serializer.setPreferNoLabels(preferNoLabels);
    value >> serializer;
    return serializer.ownData();
}

// Bytes that are refused change nothing; accepted ones give a value whose own stored form gives it again.
template<typename T>
void load(nsa::cDeserializeBinary& stream, bool preferNoLabels)
{
    T value;
    auto const blank = bytesOf(value, preferNoLabels);
    stream.setPreferNoLabels(preferNoLabels);
    try {
        value << stream;
    } catch (nstd::cAbstractException const&) {
        FUZZ_CHECK(isSame(bytesOf(value, preferNoLabels), blank));
        return;
    }
    auto const stored = bytesOf(value, preferNoLabels);
    nsa::cDeserializeBinary copy(stored);
    copy.setPreferNoLabels(preferNoLabels);
    T again;
    again << copy;
    FUZZ_CHECK(isSame(bytesOf(again, preferNoLabels), stored) && copy.currentPos() == stored.length());
}

} // namespace

// The first byte chooses what the others are: a text, or the stored form of something.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    if (size == 0)
        return 0;
    cFuzzInput input(data + 1, size - 1);
    npi::system();
    cMemoryBound const bound(size);
    switch (data[0] % 6) {
    case 0: parse<ncs::cComponentAddr>(nstd::cAsciiString(input.bytes)); break;
    case 1: parse<ncs::cComponentLocation>(nstd::cAsciiString(input.bytes)); break;
    case 2: load<ncs::cComponentLocation>(input.stream, false); break;
    case 3: load<ncs::cComponentLocation>(input.stream, true); break;
    case 4: load<ncs::cModuleInfo>(input.stream, true); break;
    default: load<ncs::cInterfaceDesc>(input.stream, true);
    }
    return 0;
}
