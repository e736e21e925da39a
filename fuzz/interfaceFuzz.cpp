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

// Registers what comes next in the stream, checks its stored form against what it has consumed and has it
// read by another object.
template<typename Register>
void registerNext(nrmi::cConnectable& object, nsa::cDeserializeBinary& stream, Register const& read)
{
    nrmi::cConnectable other;
    unsigned int const start = stream.currentPos();
    nsa::cSerializeBinary stored;
    read(object, stream) >> stored;
    // Labels and long forms in the input may make it longer, never shorter.
    FUZZ_CHECK(stored.data().length() <= stream.currentPos() - start);

    nsa::cDeserializeBinary copy(stored.data());
    nsa::cSerializeBinary again;
    read(other, copy) >> again;
    FUZZ_CHECK(isSame(again.ownData(), stored.ownData()));
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
            if (data[0] % 2 == 0)
                registerNext(
                    object, input.stream, [&](auto& owner, auto& stream) -> auto& {
                        return owner.registerRemoteSlot(stream, factory);
                    });
            else
                registerNext(
                    object, input.stream, [&](auto& owner, auto& stream) -> auto& {
                        return owner.registerRemoteSignal(stream, factory);
                    });
        }
    } catch (nstd::cAbstractException const&) {
    }
    object.clear();
    return 0;
}
