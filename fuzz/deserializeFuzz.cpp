#include "fuzz/fuzzInput.h"

#include "nel_core/sa/cContext.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tList.h"
#include "nel_core/ucs/cString.h"

// Walks the stream by the types found in it: every item is loaded as what it says it is.
namespace {

using nsa::cContext;
using nsa::cDeserializeBinary;
using nsa::cSerializeBinaryShared;

template<typename T>
void load(cDeserializeBinary& stream)
{
    T value{};
    value << stream;
}

void loadBlock(cDeserializeBinary& stream)
{
    unsigned int position = 0;
    unsigned int size = 0;
    stream.getNextBlockInfo(position, size);
    cDeserializeBinary::tBytes block;
    stream.loadBlock(block);
    FUZZ_CHECK(block.length() == size && stream.currentPos() == position + size);
}

void loadLabel(cDeserializeBinary& stream)
{
    static_cast<void>(stream.getNextLabelName());
    stream.skipItem();
}

void loadItem(cDeserializeBinary& stream)
{
    switch (stream.peekTypeId()) {
    case cSerializeBinaryShared::ptUChar: return load<unsigned char>(stream);
    case cSerializeBinaryShared::ptChar: return load<signed char>(stream);
    case cSerializeBinaryShared::ptUInt16: return load<unsigned short>(stream);
    case cSerializeBinaryShared::ptInt16: return load<short>(stream);
    case cSerializeBinaryShared::ptUInt32: return load<unsigned int>(stream);
    case cSerializeBinaryShared::ptInt32: return load<int>(stream);
    case cSerializeBinaryShared::ptUInt64: return load<unsigned long long>(stream);
    case cSerializeBinaryShared::ptInt64: return load<long long>(stream);
    case cSerializeBinaryShared::ptBool: return load<bool>(stream);
    case cSerializeBinaryShared::ptDouble: return load<double>(stream);
    case cSerializeBinaryShared::ptAsciiString: return load<nstd::cAsciiString>(stream);
    case cSerializeBinaryShared::ptString:
    case cSerializeBinaryShared::ptStringUTF8: return load<nucs::cString>(stream);
    case cSerializeBinaryShared::ptRawBytes:
    case cSerializeBinaryShared::ptRawBytes64: return loadBlock(stream);
    case cSerializeBinaryShared::ptLabel: return loadLabel(stream);
    default: return stream.skipItem();
    }
}

// The open contexts, left from the inside out whatever happens.
class cOpenContexts {
public:
    cOpenContexts() = default;
    cOpenContexts(cOpenContexts const&) = delete;
    cOpenContexts& operator=(cOpenContexts const&) = delete;
    ~cOpenContexts()
    {
        while (!mOpen.empty())
            leave();
    }
    bool isInside() const { return !mOpen.empty(); }
    void enter(nsa::cContextRef context) { mOpen.append(new cContext(std::move(context))); }
    void release()
    {
        (*mOpen.last())->release();
        leave();
    }

private:
    void leave()
    {
        delete *mOpen.last();
        mOpen.erase(mOpen.last());
    }

    nstd::tList<cContext*> mOpen; // owned
};

void enterOrLoad(cDeserializeBinary& stream, cOpenContexts& contexts)
{
    unsigned int const before = stream.currentPos();
    try {
        if (stream.isContext()) {
            static_cast<void>(stream.getNextContextTypeName());
            contexts.enter(stream.getContext(nullptr));
        } else {
            loadItem(stream);
        }
    } catch (nstd::cAbstractException const&) {
        FUZZ_CHECK(stream.currentPos() == before);
        throw;
    }
    FUZZ_CHECK(stream.currentPos() > before);
}

void walk(cDeserializeBinary& stream)
{
    cOpenContexts contexts;
    for (;;) {
        while (stream.eocMayBeLabels() && contexts.isInside())
            contexts.release();
        if (stream.eocMayBeLabels())
            return;
        enterOrLoad(stream, contexts);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    cFuzzInput input(data, size);
    cMemoryBound const bound(size);
    try {
        walk(input.stream);
    } catch (nstd::cAbstractException const&) {
    }
    for (char const* const label : {"label", "Data"}) {
        try {
            input.stream.rewind();
            input.stream.findLabel(label);
        } catch (nstd::cAbstractException const&) {
        }
    }
    return 0;
}
