#include "fuzz/fuzzInput.h"

#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/ucs/cLIMessage.h"
#include "nel_core/ucs/cString.h"

// Loads a message, shows it, binds one more value and stores it again.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    cFuzzInput input(data, size);
    cMemoryBound const bound(size);
    nucs::cLIMessage message;
    try {
        message << input.stream;
    } catch (nstd::cAbstractException const&) {
        // what was loaded before the error stays, and must be sound as well
    }
    nucs::cString text;
    nucs::cString translated;
    message.untranslated(text);
    message.translate(nucs::cString(message.key(), '?'), translated);
    FUZZ_CHECK(translated == text);

    nsa::cSerializeBinary stored;
    message >> stored;
    nsa::cDeserializeBinary stream(stored.data());
    nucs::cLIMessage loaded;
    loaded << stream;
    nsa::cSerializeBinary again;
    loaded >> again;
    loaded.untranslated(translated);
    FUZZ_CHECK(isSame(again.ownData(), stored.ownData()) && translated == text);
    message << 7 << "more";
    return 0;
}
