#include "nel_core/sa/cDeserializeBinary.h"

#include <cstring>
#include <utility>

#include "nel_core/sa/cBinaryItems.h"
#include "nel_core/sa/cLabeledTypeMissmatchException.h"
#include "nel_core/sa/cSAExceptions.h"
#include "nel_core/sa/tBinaryContext.h"
#include "nel_core/std/cTypeMissmatchException.h"
#include "nel_core/std/tArray.h"
#include "nel_core/ucs/cEnDecUTF8.h"
#include "nel_core/ucs/cString.h"

namespace nsa {

namespace {

// Refused while a label is searched; those from `ptEnd` on elsewhere.
constexpr unsigned int kLastItem = cSerializeBinaryShared::ptInt16;

} // namespace

cDeserializeBinary::cDeserializeBinary()
{
    msLastLabel.setFitOnErase(false); // the next one needs its room
    setPreferNoLabels(true);
}

cDeserializeBinary::cDeserializeBinary(tConstBytesRef const& data) : cDeserializeBinary()
{
    setData(data);
}

cDeserializeBinary::cDeserializeBinary(nstd::tAutoPtr<tBytes> data) : cDeserializeBinary()
{
    mpOwned = std::move(data);
    if (mpOwned)
        setData(*mpOwned);
}

cDeserializeBinary::~cDeserializeBinary()
{
    tContext::detachAll(*this);
    cRecordPool::abandon(mpRecords);
}

void cDeserializeBinary::setData(tConstBytesRef const& data)
{
    tContext::detachAll(*this);
    mData = data;
    mbContiguous = mData.proxyPreferredBlockSize() == 0;
    miPosition = 0;
}

unsigned int cDeserializeBinary::end() const noexcept
{
    return mpContext ? mpContext->end() : mData.length();
}

bool cDeserializeBinary::eocMayBeLabels() const noexcept
{
    return miPosition >= end();
}

bool cDeserializeBinary::isContextCut() const noexcept
{
    return mpContext && mpContext->isCut();
}

void cDeserializeBinary::rewind()
{
    miPosition = mpContext ? mpContext->bodyStart() : 0;
}

// Finding the next item

inline cBinaryItem cDeserializeBinary::nextItem(cBinaryItems const& items, LabelUse use)
{
    unsigned int const limit = end();
    unsigned int position = miPosition;
    while (position < limit) {
        cItem const item = items.itemAt(position);
        if (!item.isLabel() || use == luItem)
            return item;
        position = passLabel(items, item);
    }
    cSAExceptions::throwEndOfContext();
}

inline cBinaryItem cDeserializeBinary::expectTypeId(cBinaryItems const& items, PrivatedTypeIDs id)
{
    cItem const item = nextItem(items, luPass);
    if (item.id != id)
        raiseMissmatch(id, item.id);
    return item;
}

// Gives where it ends.
unsigned int cDeserializeBinary::passLabel(cBinaryItems const& items, cItem const& label)
{
    cRun const name = items.textAt(label.payload);
    items.copyTo(name, msLastLabel);
    return name.end();
}

void cDeserializeBinary::raiseMissmatch(PrivatedTypeIDs expected, PrivatedTypeIDs found) const
{
    char const* const expectedName = cSerializeBinaryShared::idToString(expected);
    char const* const foundName = cSerializeBinaryShared::idToString(found);
    if (msLastLabel.length() != 0)
        throw cLabeledTypeMissmatchException(expectedName, foundName, msLastLabel);
    throw nstd::cTypeMissmatchException(expectedName, foundName);
}

unsigned int cDeserializeBinary::getNextTypeId(PrivatedTypeIDs& id, bool skipLabels)
{
    cItem const item = nextItem(cBinaryItems(*this), skipLabels ? luPass : luItem);
    id = item.id;
    miPosition = item.payload;
    return item.position;
}

cDeserializeBinary::PrivatedTypeIDs cDeserializeBinary::peekTypeId() const
{
    if (eocMayBeLabels())
        cSAExceptions::throwEndOfContext();
    return cBinaryItems(*this).itemAt(miPosition).id;
}

// Loading values

template<typename T>
T cDeserializeBinary::loadNumber(PrivatedTypeIDs id)
{
    cBinaryItems const items(*this);
    cItem const item = expectTypeId(items, id);
    T const value = items.number<T>(item.payload);
    miPosition = item.payload + static_cast<unsigned int>(sizeof(T));
    return value;
}

void cDeserializeBinary::load(signed char& value)
{
    value = loadNumber<signed char>(cSerializeBinaryShared::ptChar);
}

void cDeserializeBinary::load(unsigned char& value)
{
    value = loadNumber<unsigned char>(cSerializeBinaryShared::ptUChar);
}

void cDeserializeBinary::load(unsigned short& value)
{
    value = loadNumber<unsigned short>(cSerializeBinaryShared::ptUInt16);
}

void cDeserializeBinary::load(short& value)
{
    value = loadNumber<short>(cSerializeBinaryShared::ptInt16);
}

void cDeserializeBinary::load(unsigned int& value)
{
    value = loadNumber<unsigned int>(cSerializeBinaryShared::ptUInt32);
}

void cDeserializeBinary::load(int& value)
{
    value = loadNumber<int>(cSerializeBinaryShared::ptInt32);
}

void cDeserializeBinary::load(unsigned long long& value)
{
    value = loadNumber<unsigned long long>(cSerializeBinaryShared::ptUInt64);
}

void cDeserializeBinary::load(long long& value)
{
    value = loadNumber<long long>(cSerializeBinaryShared::ptInt64);
}

void cDeserializeBinary::load(bool& value)
{
    value = loadNumber<unsigned int>(cSerializeBinaryShared::ptBool) != 0;
}

void cDeserializeBinary::load(double& value)
{
    // As bits: a double that is returned passes a register that may alter a signalling NaN.
    auto const bits = loadNumber<unsigned long long>(cSerializeBinaryShared::ptDouble);
    std::memcpy(&value, &bits, sizeof(value));
}

void cDeserializeBinary::load(nstd::cAsciiString& value)
{
    cBinaryItems const items(*this);
    cRun const bytes = items.counted(expectTypeId(items, cSerializeBinaryShared::ptAsciiString).payload, 1);
    items.copyTo(bytes, value);
    miPosition = bytes.end();
}

void cDeserializeBinary::load(nucs::cString& value)
{
    cBinaryItems const items(*this);
    cItem const item = nextItem(items, luPass);
    cRun bytes{};
    if (item.id == cSerializeBinaryShared::ptString) {
        bytes = items.counted(item.payload, sizeof(unsigned int));
        nucs::cString fetched; // where copying cannot fail any more, it needs no place of its own
        nucs::cString& text = mbContiguous ? value : fetched;
        text.setSize(bytes.length / static_cast<unsigned int>(sizeof(unsigned int)));
        items.copy(bytes, reinterpret_cast<char*>(text.data(true)));
        if (!mbContiguous)
            value = std::move(fetched);
    } else if (item.id == cSerializeBinaryShared::ptStringUTF8) {
        bytes = items.counted(item.payload, 1);
        nucs::cString decoded;
        nucs::cEnDecUTF8().decode(tConstBytesRef(mData, bytes.position, bytes.length), decoded);
        value = std::move(decoded);
    } else {
        raiseMissmatch(cSerializeBinaryShared::ptString, item.id);
    }
    miPosition = bytes.end();
}

cBinaryRun cDeserializeBinary::nextBlock(cBinaryItems const& items)
{
    cItem const item = nextItem(items, luPass);
    if (item.id == cSerializeBinaryShared::ptRawBytes)
        return items.counted(item.payload, 1);
    if (item.id == cSerializeBinaryShared::ptRawBytes64)
        return items.longBlock(item.payload);
    raiseMissmatch(cSerializeBinaryShared::ptRawBytes, item.id);
}

void cDeserializeBinary::getNextBlockInfo(unsigned int& position, unsigned int& size)
{
    cRun const bytes = nextBlock(cBinaryItems(*this));
    position = bytes.position;
    size = bytes.length;
}

void cDeserializeBinary::loadBlock(tBytes& array)
{
    cBinaryItems const items(*this);
    cRun const bytes = nextBlock(items);
    items.copyTo(bytes, array);
    miPosition = bytes.end();
}

// Contexts

cBinaryItem cDeserializeBinary::nextContext(cBinaryItems const& items)
{
    cItem const item = nextItem(items, luPass);
    if (!item.isContext())
        raiseMissmatch(cSerializeBinaryShared::ptContext, item.id);
    return item;
}

cContextRef cDeserializeBinary::getContext(char const* typeName)
{
    cBinaryItems const items(*this);
    cItem const item = nextContext(items);
    cBinaryItems::cHeader const header = items.header(item);
    if (typeName && !items.isEqual(header.name, typeName, std::strlen(typeName))) {
        nstd::cAsciiString const word("context ");
        throw nstd::cTypeMissmatchException(word + typeName, word + items.text(header.name));
    }
    auto* const context =
        new (*this) tContext(*this, item.position, header.bodyStart, header.end, header.isCut);
    miPosition = header.bodyStart;
    return cContextRef(context);
}

void cDeserializeBinary::releaseCurrentContext()
{
    if (!mpContext)
        return;
    mpContext->setReleased();
    leave(*mpContext);
}

void cDeserializeBinary::release(tContext& context)
{
    context.setReleased();
}

void cDeserializeBinary::leave(tContext& context) noexcept
{
    if (context.isCurrent())
        miPosition = context.isReleased() ? context.end() : context.start();
    context.detach();
}

bool cDeserializeBinary::eoc() const
{
    cBinaryItems const items(*this);
    unsigned int const limit = end();
    unsigned int position = miPosition;
    while (position < limit) {
        cItem const item = items.itemAt(position);
        if (!item.isLabel())
            return false;
        position = items.textAt(item.payload).end();
    }
    return true;
}

bool cDeserializeBinary::isContext()
{
    return !eocMayBeLabels() && cBinaryItems(*this).itemAt(miPosition).isContext();
}

bool cDeserializeBinary::isLabel()
{
    return !eocMayBeLabels() && cBinaryItems(*this).itemAt(miPosition).isLabel();
}

nstd::cAsciiString cDeserializeBinary::getNextContextTypeName()
{
    cBinaryItems const items(*this);
    return items.text(items.header(nextContext(items)).name);
}

nstd::cAsciiString cDeserializeBinary::getNextLabelName()
{
    cBinaryItems const items(*this);
    cItem const item = nextItem(items, luItem);
    if (!item.isLabel())
        raiseMissmatch(cSerializeBinaryShared::ptLabel, item.id);
    return items.text(items.textAt(item.payload));
}

// Passing items

void cDeserializeBinary::skipItem()
{
    cBinaryItems const items(*this);
    cItem const item = nextItem(items, luItem);
    miPosition = item.isLabel() ? passLabel(items, item) : items.endOf(item);
}

// Searches from `position` on. Only the label that is the last one in the end is copied.
bool cDeserializeBinary::seekToLabel(nstd::cAsciiString const& name, unsigned int position)
{
    cBinaryItems const items(*this);
    unsigned int const limit = end();
    cRun passed{};
    bool isFound = false;
    while (position < limit && !isFound) {
        cItem const item = items.itemAt(position);
        if (item.id > kLastItem)
            cSAExceptions::throwInvalidTypeId(item.id);
        if (item.isLabel()) {
            passed = items.textAt(item.payload);
            position = passed.end();
            isFound = items.isEqual(passed, name.data(true), name.length());
        } else {
            position = items.endOf(item);
        }
    }
    if (passed.position != 0)
        items.copyTo(passed, msLastLabel);
    if (isFound)
        miPosition = position;
    return isFound;
}

bool cDeserializeBinary::trySeekToLabel(nstd::cAsciiString const& name)
{
    return seekToLabel(name, miPosition);
}

bool cDeserializeBinary::tryFindLabel(nstd::cAsciiString const& name)
{
    return trySeekToLabel(name) || seekToLabel(name, mpContext ? mpContext->bodyStart() : 0);
}

cAbstractDeserializer& cDeserializeBinary::findLabel(nstd::cAsciiString const& name)
{
    if (!tryFindLabel(name))
        cSAExceptions::throwLabelNotFound(name);
    return *this;
}

} // namespace nsa
