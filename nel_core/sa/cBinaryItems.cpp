#include "nel_core/sa/cBinaryItems.h"

#include <algorithm>

#include "nel_core/sa/cSAExceptions.h"
#include "nel_core/std/tBounds.h"

namespace nsa {
namespace {

constexpr unsigned int kLengthSize = sizeof(unsigned int);

// The payload of an item that is no block of 64 bits, label or context: so many bytes, or a count and so many
// bytes for each.
struct cPayload {
    unsigned char size;
    bool isCounted;
};

constexpr cPayload kPayloads[] = {
    {0, false}, {1, true},  {1, false}, {1, false}, {4, false}, {4, false}, {8, false},
    {8, false}, {4, false}, {8, false}, {1, true},  {4, true},  {0, false}, {0, false},
    {0, false}, {0, false}, {1, true},  {2, false}, {2, false}, {0, false},
};
static_assert(sizeof(kPayloads) / sizeof(kPayloads[0]) == cSerializeBinaryShared::ptEnd + 1,
              "every type id has a payload");

} // namespace

cBinaryItems::cRun cBinaryItems::run(unsigned int position, unsigned long long size) const
{
    unsigned int const length = nstd::tBounds::narrow(size, "tConstArrayRef", "provideData");
    nstd::tBounds::startSize2End(miLimit, position, length, "tConstArrayRef", "provideData");
    return {position, length};
}

cBinaryItems::cRun cBinaryItems::counted(unsigned int position, unsigned int elementSize) const
{
    auto const count = static_cast<unsigned long long>(number<unsigned int>(position));
    return run(position + kLengthSize, count * elementSize);
}

cBinaryItems::cRun cBinaryItems::longBlock(unsigned int position) const
{
    auto const length = static_cast<unsigned int>(number<unsigned long long>(position));
    return run(position + static_cast<unsigned int>(sizeof(unsigned long long)), length);
}

cBinaryItems::cRun cBinaryItems::textAt(unsigned int position) const
{
    requireId(position, cSerializeBinaryShared::ptAsciiString);
    return counted(position + kIdSize, 1);
}

void cBinaryItems::requireId(unsigned int position, PrivatedTypeIDs id) const
{
    if (PrivatedTypeIDs const found = itemAt(position).id; found != id)
        mStream.raiseMissmatch(id, found);
}

cBinaryItems::cHeader cBinaryItems::header(cItem const& context) const
{
    bool const isLong = context.id == cSerializeBinaryShared::ptContext64;
    unsigned int const sizeField = context.payload;
    requireId(sizeField, isLong ? cSerializeBinaryShared::ptUInt64 : cSerializeBinaryShared::ptUInt32);
    unsigned long long const claimed = sizeField + 0ULL + number<unsigned int>(sizeField + kIdSize);
    unsigned int const nameFlag = run(sizeField + kIdSize, isLong ? 8 : 4).end();
    requireId(nameFlag, cSerializeBinaryShared::ptBool);

    cHeader header;
    header.isNamed = number<unsigned int>(nameFlag + kIdSize) != 0;
    unsigned int const afterFlag = nameFlag + kIdSize + static_cast<unsigned int>(sizeof(unsigned int));
    header.name = header.isNamed ? textAt(afterFlag) : cRun{afterFlag, 0};
    header.bodyStart = header.name.end();
    header.end =
        static_cast<unsigned int>(std::clamp<unsigned long long>(claimed, header.bodyStart, miLimit));
    header.isCut = claimed > miLimit;
    return header;
}

unsigned int cBinaryItems::endOf(cItem const& item) const
{
    switch (item.id) {
    case cSerializeBinaryShared::ptRawBytes64: return longBlock(item.payload).end();
    case cSerializeBinaryShared::ptLabel: return textAt(item.payload).end();
    case cSerializeBinaryShared::ptContext:
    case cSerializeBinaryShared::ptContext64: return header(item).end;
    default: break;
    }
    if (item.id > cSerializeBinaryShared::ptEnd)
        cSAExceptions::throwInvalidTypeId(item.id);
    cPayload const& payload = kPayloads[item.id];
    return (payload.isCounted ? counted(item.payload, payload.size) : run(item.payload, payload.size)).end();
}

void cBinaryItems::copy(cRun const& bytes, char* target) const
{
    if (bytes.length != 0)
        mStream.mData.proxyCopyPartTo(target, bytes.position, bytes.length);
}

nstd::cAsciiString cBinaryItems::text(cRun const& bytes) const
{
    nstd::cAsciiString text;
    copyTo(bytes, text);
    return text;
}

bool cBinaryItems::isEqual(cRun const& bytes, char const* other, std::size_t length) const
{
    using tView = cDeserializeBinary::tConstBytesRef;
    if (bytes.length != length)
        return false;
    return length == 0 || tView(mStream.mData, bytes.position, bytes.length).isEqual(other, bytes.length);
}

} // namespace nsa
