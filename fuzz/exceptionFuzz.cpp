#include "fuzz/fuzzInput.h"

#include "nel_core/ncs/cRMIException.h"
#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/std/cAbstractExceptionFactory.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/ucs/cString.h"

namespace {

class cFactory : public nstd::cAbstractExceptionFactory {
public:
    nstd::tAutoPtr<nstd::cAbstractException>
    createException(nstd::cAsciiString const& typeName) const override
    {
        nstd::tAutoPtr<nstd::cAbstractException> made;
        if (typeName == "cBugException")
            made.reset(new nstd::cBugException, nstd::tAutoPtrType::ptObject);
        else if (typeName == "cRuntimeException")
            made.reset(new nstd::cRuntimeException, nstd::tAutoPtrType::ptObject);
        else if (typeName == "cRMIException")
            made.reset(new ncs::cRMIException, nstd::tAutoPtrType::ptObject);
        return made;
    }
};

nstd::tAutoPtr<nstd::cAbstractException> rebuilt(nsa::cDeserializeBinary& stream)
{
    return nstd::cAbstractException::createFromStream(stream, cFactory());
}

// What has been rebuilt is stored and rebuilt without loss.
void checkStoredForm(nstd::cAbstractException const& chain)
{
    nsa::cSerializeBinary stored;
    chain.storeRecursive(stored);
    nsa::cDeserializeBinary stream(stored.data());
    nsa::cSerializeBinary again;
    rebuilt(stream)->storeRecursive(again);
    FUZZ_CHECK(stream.eocMayBeLabels() && isSame(again.ownData(), stored.ownData()));
}

} // namespace

// Rebuilds a chain, shows it, copies it and sends it on.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    cFuzzInput input(data, size);
    cMemoryBound const bound(size);
    try {
        auto const chain = rebuilt(input.stream);
        if (!chain)
            return 0;
        FUZZ_CHECK(chain->type() <= nstd::cAbstractException::tyRuntime);
        nucs::cString text;
        chain->createMessage(text, nucs::cString(", "),
                             nstd::cAbstractException::mfHistory | nstd::cAbstractException::mfIndent,
                             nullptr);
        nstd::tAutoPtr<nstd::cAbstractException> const copy(chain->createObject());
        FUZZ_CHECK(copy->hasOutOfMemoryCondition() == chain->hasOutOfMemoryCondition());
        checkStoredForm(*copy);
    } catch (nstd::cAbstractException const&) {
    }
    return 0;
}
