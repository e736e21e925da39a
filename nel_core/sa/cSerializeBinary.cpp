#include "nel_core/sa/cSerializeBinary.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <utility>

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
constexpr char kStore[] = "storeRaw";
constexpr unsigned int kOwnGrowStep = 18;
constexpr unsigned int kSizeField = 4;    // of a context, from its start
constexpr unsigned int kUnnamedSize = 20; // of the start of a context without a name

} // namespace

cSerializeBinary::cSerializeBinary() : cSerializeBinary(tBytesRef())
{
    mTarget.set(maOwn, 0);
}

cSerializeBinary::cSerializeBinary(tBytesRef const& target) : mTarget(target)
{
    prepareOwn();
    setPreferNoLabels(true);
}

cSerializeBinary::~cSerializeBinary()
{
    tContext::detachAll(*this);
    cRecordPool::abandon(mpRecords);
}

// What is written once is kept for what follows: cutting and clearing release no memory.
void cSerializeBinary::prepareOwn()
{
    maOwn.setGrowStep(kOwnGrowStep);
    maOwn.setFitOnErase(false);
}

// Whether the bytes lie in the array that is written: when it grows, they move.
bool cSerializeBinary::isInTarget(char const* bytes) const
{
    unsigned int offset = 0;
    auto const& array = mTarget.constProxyPhysical(offset);
    unsigned int const length = array.proxyLength();
    if (length == 0 || array.proxyPreferredBlockSize() != 0)
        return false;
    char const* const start = array.proxyProvideData(0, length);
    return !std::less<>()(bytes, start) && std::less<>()(bytes, start + length);
}

// Writes an item, the start of it and the rest, at the write position and gives its end. The room for it all
// comes first, since nothing else can fail; the rest is next, since it may lie where the start will be.
unsigned int cSerializeBinary::storeRaw(char const* start, unsigned int startSize, char const* rest,
                                        unsigned int restSize)
{
    unsigned int const end = nstd::tBounds::narrow(miPosition + 0ULL + startSize + restSize, kClass, kStore);
    if (end > mTarget.length()) {
        if (restSize != 0 && isInTarget(rest)) {
            tBytes const copy(rest, restSize);
            return storeRaw(start, startSize, copy.data(), restSize);
        }
        mTarget.setSize(end);
        if (mTarget.length() != end) // not every proxy takes all
            cSTDExceptions::throwOutOfBounds(kClass, kStore);
    }
    if (restSize != 0)
        mTarget.proxyPatchData(miPosition + startSize, restSize, rest);
    mTarget.proxyPatchData(miPosition, startSize, start);
    return end;
}

template<typename T>
void cSerializeBinary::storeNumber(PrivatedTypeIDs id, T value)
{
    char item[sizeof(unsigned int) + sizeof(T)];
    putNumber(putNumber<unsigned int>(item, id), value);
    miPosition = storeRaw(item, sizeof(item));
}

// `count` is what the item says of its `size` bytes.
void cSerializeBinary::storeBytes(PrivatedTypeIDs id, unsigned int count, void const* bytes,
                                  unsigned long long size)
{
    char start[2 * sizeof(unsigned int)];
    putNumber(putNumber<unsigned int>(start, id), count);
    miPosition = storeRaw(start, sizeof(start), static_cast<char const*>(bytes),
                          nstd::tBounds::narrow(size, kClass, kStore));
}

void cSerializeBinary::storeBlock(char const* data, unsigned int size)
{
    if (size != 0xFFFFFFFF)
        return storeBytes(cSerializeBinaryShared::ptRawBytes, size, data, size);
    char start[sizeof(unsigned int) + sizeof(unsigned long long)];
    putNumber<unsigned long long>(putNumber<unsigned int>(start, cSerializeBinaryShared::ptRawBytes64), size);
    miPosition = storeRaw(start, sizeof(start), data, size);
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
    using cShared = cSerializeBinaryShared;
    auto const nameSize = nstd::tBounds::narrow(typeName ? std::strlen(typeName) : 0, kClass, kStore);
    unsigned int const hasName = typeName ? 1 : 0;
    unsigned int const numbers[] = {cShared::ptContext,     cShared::ptUInt32, 0, cShared::ptBool, hasName,
                                    cShared::ptAsciiString, nameSize};
    unsigned int const size = typeName ? sizeof(numbers) : kUnnamedSize;
    unsigned int const bodyStart = miPosition + size + nameSize; // when that wraps, storing raises
    cContextRef context(new (*this) tContext(*this, miPosition, bodyStart, 0, false));
    miPosition = storeRaw(reinterpret_cast<char const*>(numbers), size, typeName, nameSize);
    return context;
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
    char start[3 * sizeof(unsigned int)];
    char* const text = putNumber<unsigned int>(start, cSerializeBinaryShared::ptLabel);
    putNumber(putNumber<unsigned int>(text, cSerializeBinaryShared::ptAsciiString), name.length());
    miPosition = storeRaw(start, sizeof(start), name.data(true), name.length());
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
    bool const fit = array.fitOnErase(); // only our own array is to keep its room
    maOwn.swap(array);
    array.setFitOnErase(fit);
    prepareOwn();
    mTarget.set(maOwn, 0);
    miPosition = 0;
}

cSerializeBinary::tBytes& cSerializeBinary::ownData()
{
    data();
    return maOwn;
}

void cSerializeBinary::patch(unsigned int position, cAbstractTypeReference& reference)
{
    if (position > mTarget.length())
        cSTDExceptions::throwOutOfBounds(kClass, "patch");
    unsigned int const old = std::exchange(miPosition, position);
    try {
        reference.store(*this);
    } catch (...) {
        miPosition = old;
        throw;
    }
    miPosition = std::max(miPosition, old);
}

} // namespace nsa
