#include "nel_core/sa/cSerializeBinary.h"

#include <cstring>

#include "nel_core/sa/cAbstractTypeReference.h"
#include "nel_core/sa/cSAExceptions.h"
#include "nel_core/sa/littleEndian.h"
#include "nel_core/sa/tBinaryContext.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/tBounds.h"
#include "nel_core/ucs/cEnDecUTF8.h"
#include "nel_core/ucs/cString.h"

namespace nsa {
namespace {

constexpr char kClass[] = "cSerializeBinary";
constexpr unsigned int kOwnGrowStep = 18;
constexpr unsigned int kSizeField = 4;   // of a context, from its start
constexpr unsigned int kHeaderSize = 20; // of a context, without its name
constexpr unsigned int kSmallItem = 256; // what is put together before it is written

} // namespace

// Puts the write position back unless the item has been written whole.
class cSerializeBinary::cWhole {
public:
    explicit cWhole(cSerializeBinary& serializer)
        : mSerializer(serializer),
          miStart(serializer.miPosition) { }
    cWhole(cWhole const&) = delete;
    cWhole& operator=(cWhole const&) = delete;
    ~cWhole()
    {
        if (!mbDone)
            mSerializer.miPosition = miStart;
    }
    void done() { mbDone = true; }

private:
    cSerializeBinary& mSerializer;
    unsigned int miStart;
    bool mbDone = false;
};

cSerializeBinary::cSerializeBinary()
{
    maOwn.setGrowStep(kOwnGrowStep);
    mTarget.set(maOwn, 0);
    setPreferNoLabels(true);
}

cSerializeBinary::cSerializeBinary(tBytesRef const& target) : mTarget(target)
{
    maOwn.setGrowStep(kOwnGrowStep);
    setPreferNoLabels(true);
}

cSerializeBinary::~cSerializeBinary()
{
    tContext::detachAll(*this);
    cRecordPool::abandon(mpRecords);
}

void cSerializeBinary::storeRaw(char const* bytes, unsigned int count)
{
    unsigned int const end = nstd::tBounds::sum(miPosition, count, kClass, "storeRaw");
    unsigned int const there = mTarget.length() - miPosition;
    unsigned int const over = count < there ? count : there;
    if (over != 0)
        mTarget.proxyPatchData(miPosition, over, bytes);
    if (over != count)
        mTarget.append(bytes + over, count - over);
    miPosition = end;
}

template<typename T>
void cSerializeBinary::storeNumber(PrivatedTypeIDs id, T value)
{
    char item[sizeof(unsigned int) + sizeof(T)];
    putNumber(putNumber<unsigned int>(item, id), value);
    storeRaw(item, sizeof(item));
}

// `length` is what the item says of its `size` bytes.
void cSerializeBinary::storeBytes(PrivatedTypeIDs id, unsigned int length, void const* bytes,
                                  unsigned long long size)
{
    char item[kSmallItem];
    char* const payload = putNumber(putNumber<unsigned int>(item, id), length);
    auto const headerSize = static_cast<unsigned int>(payload - item);
    unsigned int const total = nstd::tBounds::narrow(miPosition + headerSize + size, kClass, "storeRaw");
    unsigned int const count = total - miPosition - headerSize;
    if (count <= kSmallItem - headerSize) {
        if (count != 0)
            std::memcpy(payload, bytes, count);
        return storeRaw(item, headerSize + count);
    }
    cWhole whole(*this);
    storeRaw(item, headerSize);
    storeRaw(static_cast<char const*>(bytes), count);
    whole.done();
}

void cSerializeBinary::storeBlock(char const* data, unsigned int size)
{
    if (size != 0xFFFFFFFF)
        return storeBytes(cSerializeBinaryShared::ptRawBytes, size, data, size);
    cWhole whole(*this);
    storeNumber<unsigned long long>(cSerializeBinaryShared::ptRawBytes64, size);
    storeRaw(data, size);
    whole.done();
}

void cSerializeBinary::store(unsigned char value)
{
    storeNumber(cSerializeBinaryShared::ptUChar, value);
}

void cSerializeBinary::store(signed char value)
{
    storeNumber(cSerializeBinaryShared::ptChar, value);
}

void cSerializeBinary::store(unsigned short value)
{
    storeNumber(cSerializeBinaryShared::ptUInt16, value);
}

void cSerializeBinary::store(short value)
{
    storeNumber(cSerializeBinaryShared::ptInt16, value);
}

void cSerializeBinary::store(unsigned int value)
{
    storeNumber(cSerializeBinaryShared::ptUInt32, value);
}

void cSerializeBinary::store(int value)
{
    storeNumber(cSerializeBinaryShared::ptInt32, value);
}

void cSerializeBinary::store(unsigned long long value)
{
    storeNumber(cSerializeBinaryShared::ptUInt64, value);
}

void cSerializeBinary::store(long long value)
{
    storeNumber(cSerializeBinaryShared::ptInt64, value);
}

void cSerializeBinary::store(bool value)
{
    storeNumber<unsigned int>(cSerializeBinaryShared::ptBool, value);
}

void cSerializeBinary::store(double value)
{
    storeNumber(cSerializeBinaryShared::ptDouble, value);
}

void cSerializeBinary::store(nstd::cAsciiString const& value)
{
    storeBytes(cSerializeBinaryShared::ptAsciiString, value.length(), value.data(true), value.length());
}

void cSerializeBinary::store(nucs::cString const& value)
{
    if (meStringStoreMode == ssmCodePoints) {
        storeBytes(cSerializeBinaryShared::ptString, value.length(), value.data(true), value.length() * 4ULL);
    } else if (meStringStoreMode == ssmUTF8) {
        tBytes encoded;
        nucs::cEnDecUTF8().encode(value, encoded);
        storeBytes(cSerializeBinaryShared::ptStringUTF8, encoded.length(), encoded.data(true),
                   encoded.length());
    }
}

void cSerializeBinary::rewind()
{
    miPosition = mpContext ? mpContext->bodyStart() : 0;
}

void cSerializeBinary::clear()
{
    if (mpContext)
        cSAExceptions::throwSerializerClearWithOpenContexts();
    mTarget.truncate(0);
    miPosition = 0;
}

cContextRef cSerializeBinary::newContext(char const* typeName)
{
    cWhole whole(*this);
    unsigned int const start = miPosition;
    storeContextHeader(typeName);
    auto* const context = new (*this) tContext(*this, start, miPosition, 0, false);
    whole.done();
    return cContextRef(context);
}

void cSerializeBinary::storeContextHeader(char const* typeName)
{
    unsigned int const fields[] = {cSerializeBinaryShared::ptContext, cSerializeBinaryShared::ptUInt32, 0,
                                   cSerializeBinaryShared::ptBool, typeName ? 1U : 0U};
    char header[kHeaderSize];
    static_assert(sizeof(fields) == sizeof(header), "the header is these numbers and nothing else");
    std::memcpy(header, fields, sizeof(header));
    storeRaw(header, sizeof(header));
    if (typeName) {
        auto const length = nstd::tBounds::narrow(std::strlen(typeName), kClass, "storeRaw");
        storeBytes(cSerializeBinaryShared::ptAsciiString, length, typeName, length);
    }
}

void cSerializeBinary::releaseCurrentContext()
{
    if (mpContext)
        release(*mpContext);
}

// Contexts still open inside this one end here too, so that the stream stays well-formed.
void cSerializeBinary::release(tContext& context)
{
    for (bool last = false; !last;) {
        tContext& innermost = *mpContext;
        last = &innermost == &context;
        char size[sizeof(unsigned int)];
        unsigned int const sizeField = innermost.start() + kSizeField;
        putNumber(size, miPosition - sizeField);
        mTarget.proxyPatchData(sizeField + kSizeField, sizeof(size), size);
        innermost.setReleased();
        innermost.detach();
    }
}

// The handle of an open context dies. Only the innermost context can take its bytes along; any other keeps
// its header, which then says that it is empty.
void cSerializeBinary::leave(tContext& context) noexcept
{
    if (context.isCurrent()) {
        miPosition = context.start();
    } else {
        char size[sizeof(unsigned int)];
        putNumber(size, context.bodyStart() - context.start() - kSizeField);
        try {
            mTarget.proxyPatchData(context.start() + 2 * kSizeField, sizeof(size), size);
        } catch (...) {
            // the header stays what it was: a context that is too short for its own header reads as empty
        }
    }
    context.detach();
}

cAbstractSerializer& cSerializeBinary::newLabel(nstd::cAsciiString const& name)
{
    cWhole whole(*this);
    char id[sizeof(unsigned int)];
    putNumber<unsigned int>(id, cSerializeBinaryShared::ptLabel);
    storeRaw(id, sizeof(id));
    store(name);
    whole.done();
    return *this;
}

cSerializeBinary::tBytesRef cSerializeBinary::data()
{
    if (mpContext)
        cSAExceptions::throwSerializerDataWithOpenContexts();
    if (miPosition < mTarget.length())
        mTarget.truncate(miPosition);
    return mTarget;
}

void cSerializeBinary::swapData(tBytes& array)
{
    data();
    maOwn.swap(array);
    miPosition = 0;
    mTarget.set(maOwn, 0);
}

cSerializeBinary::tBytes& cSerializeBinary::ownData()
{
    data();
    return maOwn;
}

void cSerializeBinary::patch(unsigned int position, cAbstractTypeReference& reference)
{
    if (position > miPosition)
        cSTDExceptions::throwOutOfBounds(kClass, "patch");
    cWhole oldPosition(*this);
    unsigned int const old = miPosition;
    miPosition = position;
    reference.store(*this);
    if (miPosition > old)
        oldPosition.done();
}

} // namespace nsa
