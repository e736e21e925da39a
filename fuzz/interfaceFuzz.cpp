#include "fuzz/fuzzInput.h"

#include "nel_core/rmi/cAbstractRMIFactory.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/rmi/cPublicSignal.h"
#include "nel_core/rmi/cPublicSlot.h"
#include "nel_core/rmi/localSignal.h"
#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tAutoPtr.h"

namespace {

// Substitutes that do nothing: a stream describes slots and signals, the transport makes them.
class cFactory : public nrmi::cAbstractRMIFactory {
public:
    nstd::tAutoPtr<nrmi::cAbstractSlotCall> createRemoteSlotCall(nrmi::cConnectable& object) override
    {
        return nstd::tAutoPtr<nrmi::cAbstractSlotCall>(new nrmi::cAbstractSlotCall(object, nullptr));
    }
    nrmi::cAbstractSignal& createRemoteSignal(unsigned int) override { return mSignal; }

private:
    nrmi::localSignal0<piVoid> mSignal;
};

template<typename Description>
void checkStoredForm(Description const& description, nsa::cDeserializeBinary::tBytes const& bytes,
                     unsigned int start, unsigned int end)
{
    nsa::cSerializeBinary stored;
    description >> stored;
    // Labels and long forms in the input may make it longer, never shorter.
    FUZZ_CHECK(stored.data().length() <= end - start && end <= bytes.length());
}

} // namespace

// Registers slots (after an even first byte) or signals from their descriptions, until one is refused.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    if (size == 0)
        return 0;
    cFuzzInput input(data + 1, size - 1);
    cMemoryBound const bound(size);
    cFactory factory;
    nrmi::cConnectable object;
    try {
        for (;;) {
            unsigned int const start = input.stream.currentPos();
            if (data[0] % 2 == 0)
                checkStoredForm(object.registerRemoteSlot(input.stream, factory), input.bytes, start,
                                input.stream.currentPos());
            else
                checkStoredForm(object.registerRemoteSignal(input.stream, factory), input.bytes, start,
                                input.stream.currentPos());
        }
    } catch (nstd::cAbstractException const&) {
    }
    object.clear();
    return 0;
}
