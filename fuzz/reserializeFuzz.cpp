#include "fuzz/fuzzInput.h"

#include "nel_core/sa/cSerializeBinary.h"

// Copies the stream, and the copy once more: the second copy must be the first one.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    cFuzzInput input(data, size);
    cMemoryBound const bound(size);
    nsa::cSerializeBinary copy;
    copy.setPreferNoLabels(size % 2 != 0);
    try {
        input.stream.reserialize(copy);
    } catch (nstd::cAbstractException const&) {
    }
    FUZZ_CHECK(input.stream.currentPos() == 0);

    nsa::cDeserializeBinary stream(copy.data());
    nsa::cSerializeBinary again;
    again.setPreferNoLabels(copy.noLabelsPreferred());
    stream.reserialize(again);
    FUZZ_CHECK(isSame(again.ownData(), copy.ownData()));
    return 0;
}
