#include "nel_core/sa/cDeserializeBinary.h"

#include <utility>

#include "nel_core/sa/cAbstractSerializer.h"
#include "nel_core/sa/cBinaryItems.h"
#include "nel_core/sa/cContext.h"
#include "nel_core/std/tArray.h"
#include "nel_core/ucs/cString.h"

// What reserialize() needs.
namespace nsa {
namespace {

// Puts a read position back.
class cKeptPosition {
public:
    explicit cKeptPosition(unsigned int& position) : miPosition(position), miKept(position) { }
    cKeptPosition(cKeptPosition const&) = delete;
    cKeptPosition& operator=(cKeptPosition const&) = delete;
    ~cKeptPosition() { miPosition = miKept; }

private:
    unsigned int& miPosition;
    unsigned int const miKept;
};

// The contexts that a copy has open in its target, on the heap: how deep they nest is up to the stream.
class cOpenCopies {
public:
    cOpenCopies() = default;
    cOpenCopies(cOpenCopies const&) = delete;
    cOpenCopies& operator=(cOpenCopies const&) = delete;
    // What is still open is abandoned, from the inside out.
    ~cOpenCopies()
    {
        while (mpInnermost)
            drop();
    }

    bool isOpen() const { return mpInnermost != nullptr; }
    // `outerLimit`: where the reading of the context around it ends.
    void open(cContextRef context, unsigned int outerLimit)
    {
        mpInnermost = new cLevel{cContext(std::move(context)), outerLimit, mpInnermost};
    }
    // Completes the innermost one and gives the limit of the one around it.
    unsigned int close()
    {
        mpInnermost->context.release();
        unsigned int const outerLimit = mpInnermost->outerLimit;
        drop();
        return outerLimit;
    }

private:
    struct cLevel {
        cContext context;
        unsigned int outerLimit;
        cLevel* outer;
    };

    void drop()
    {
        cLevel const* const dropped = mpInnermost;
        mpInnermost = dropped->outer;
        delete dropped;
    }

    cLevel* mpInnermost = nullptr;
};

} // namespace

template<typename T>
void cDeserializeBinary::copyValue(cAbstractSerializer& target)
{
    T value{};
    load(value);
    target.store(value);
}

void cDeserializeBinary::copyBlock(cAbstractSerializer& target)
{
    cBinaryItems const items(*this);
    cRun const bytes = nextBlock(items);
    if (char const* const block = items.at(bytes))
        return target.storeBlock(block, bytes.length);
    tBytes fetched;
    items.copyTo(bytes, fetched);
    target.storeBlock(fetched.data(true), fetched.length());
}

// The read position stands at the item, which is no context.
void cDeserializeBinary::copyItem(PrivatedTypeIDs id, cAbstractSerializer& target)
{
    switch (id) {
    case cSerializeBinaryShared::ptUChar: return copyValue<unsigned char>(target);
    case cSerializeBinaryShared::ptChar: return copyValue<signed char>(target);
    case cSerializeBinaryShared::ptUInt16: return copyValue<unsigned short>(target);
    case cSerializeBinaryShared::ptInt16: return copyValue<short>(target);
    case cSerializeBinaryShared::ptUInt32: return copyValue<unsigned int>(target);
    case cSerializeBinaryShared::ptInt32: return copyValue<int>(target);
    case cSerializeBinaryShared::ptUInt64: return copyValue<unsigned long long>(target);
    case cSerializeBinaryShared::ptInt64: return copyValue<long long>(target);
    case cSerializeBinaryShared::ptBool: return copyValue<bool>(target);
    case cSerializeBinaryShared::ptDouble: return copyValue<double>(target);
    case cSerializeBinaryShared::ptAsciiString: return copyValue<nstd::cAsciiString>(target);
    case cSerializeBinaryShared::ptString:
    case cSerializeBinaryShared::ptStringUTF8: return copyValue<nucs::cString>(target);
    case cSerializeBinaryShared::ptRawBytes:
    case cSerializeBinaryShared::ptRawBytes64: return copyBlock(target);
    case cSerializeBinaryShared::ptLabel:
        if (!target.noLabelsPreferred())
            target.newLabel(getNextLabelName());
        return;
    default: return; // nothing to copy
    }
}

// The bytes are looked up anew for each item: they move when the target writes into the array that is read.
void cDeserializeBinary::reserialize(cAbstractSerializer& target)
{
    cKeptPosition const kept(miPosition);
    cOpenCopies copies;
    unsigned int limit = end();
    for (;;) {
        while (miPosition == limit && copies.isOpen())
            limit = copies.close();
        if (miPosition >= limit)
            return;
        cBinaryItems const items(*this, limit);
        cItem const item = items.itemAt(miPosition);
        if (item.isContext()) {
            cBinaryItems::cHeader const header = items.header(item);
            nstd::cAsciiString const name = items.text(header.name);
            copies.open(target.newContext(header.isNamed ? name.c_str() : nullptr), limit);
            limit = header.end;
            miPosition = header.bodyStart;
        } else {
            unsigned int const next = items.endOf(item); // raises for one that reaches out of its context
            copyItem(item.id, target);
            miPosition = next;
        }
    }
}

} // namespace nsa
