#include "fuzz/fuzzInput.h"
#include "tools/nel-dump/cStreamDump.h"

// Shows the stream as text; the text must stay in proportion to the bytes.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    cFuzzInput input(data, size);
    cMemoryBound const bound(size);
    std::size_t written = 0;
    cStreamDump dump(cStreamDump::tBytesRef(input.bytes), [&](std::string_view text) {
        written += text.size();
        return true;
    });
    FUZZ_CHECK(dump.run() != cStreamDump::rsNotWritten);
    FUZZ_CHECK(written <= 100 * size + 1000);
    return 0;
}
