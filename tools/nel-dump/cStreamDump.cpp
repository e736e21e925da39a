#include "cStreamDump.h"

#include <algorithm>
#include <utility>

#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cOutOfBoundsException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_core/ucs/cString.h"

using nsa::cSerializeBinaryShared;

namespace {

constexpr unsigned int kExcerptSize = 16;
constexpr unsigned int kIdSize = 4;
constexpr unsigned long long kLow32 = 0xFFFFFFFF;
constexpr unsigned int kUnnamedMax = 24; // the longest header of a context without a name

template<typename T>
T load(nsa::cDeserializeBinary& reader)
{
    T value{};
    reader.load(value);
    return value;
}

} // namespace

cStreamDump::cStreamDump(tBytesRef const& data, cDumpWriter::tSink sink)
    : mData(data),
      mReader(data),
      mWriter(std::move(sink))
{
}

cStreamDump::~cStreamDump()
{
    while (!maContexts.empty())
        maContexts.pop_back(); // the innermost first, which is the cheap order
}

cStreamDump::Result cStreamDump::run()
{
    try {
        while (!mWriter.hasFailed() && showNext()) { }
    } catch (nstd::cOutOfRangeException const&) {
        showDamage(mReader.currentPos(), "The item is longer than what is left for it!");
    } catch (nstd::cOutOfBoundsException const&) {
        showDamage(mReader.currentPos(), "The item is longer than any stream!");
    } catch (nstd::cAbstractException const& error) {
        nucs::cString reason;
        error.createMessage(reason, ": ", nstd::cAbstractException::mfHistory, nullptr);
        showDamage(mReader.currentPos(), reason);
    }
    mWriter.flush();
    if (mWriter.hasFailed())
        return rsNotWritten;
    return mbDamaged ? rsDamaged : rsWhole;
}

// False when there is nothing more to show.
bool cStreamDump::showNext()
{
    if (mReader.eocMayBeLabels())
        return !maContexts.empty() && leaveContext();

    switch (auto const id = mReader.peekTypeId()) {
    case cSerializeBinaryShared::ptContext:
    case cSerializeBinaryShared::ptContext64: enterContext(id); break;
    case cSerializeBinaryShared::ptLabel: showLabel(); break;
    case cSerializeBinaryShared::ptRawBytes:
    case cSerializeBinaryShared::ptRawBytes64: showBlock(id); break;
    default: showValue(id); break;
    }
    return !mbDamaged;
}

bool cStreamDump::leaveContext()
{
    unsigned int const contentEnd = mReader.currentPos();
    bool const isCut = mReader.isContextCut();
    maContexts.back().release();
    maContexts.pop_back();

    if (isCut)
        showDamage(contentEnd, "The context claims more bytes than there are!");
    return !mbDamaged;
}

void cStreamDump::enterContext(PrivatedTypeIDs id)
{
    unsigned int const start = mReader.currentPos();
    auto const name = mReader.getNextContextTypeName();
    startLine(start, cSerializeBinaryShared::idToString(id));
    maContexts.emplace_back(mReader.getContext(nullptr));
    if (mReader.currentPos() - start > kUnnamedMax) {
        mWriter.add(" ");
        mWriter.addQuoted(name);
    }
    mWriter.endLine();
    if (auto const end = claimedEnd(start, id); end < mReader.currentPos())
        showDamage(static_cast<unsigned int>(end), "The context ends inside its header!");
}

// Where the context at `start` ends by its own size: the reader does not let it end inside the header.
unsigned long long cStreamDump::claimedEnd(unsigned int start, PrivatedTypeIDs id) const
{
    unsigned int const sizeField = start + kIdSize;
    nsa::cDeserializeBinary header(tBytesRef(mData, sizeField));
    if (id == cSerializeBinaryShared::ptContext64)
        return sizeField + (load<unsigned long long>(header) & kLow32);
    return 0ULL + sizeField + load<unsigned int>(header);
}

void cStreamDump::showLabel()
{
    auto const name = mReader.getNextLabelName();
    startLine(mReader.currentPos(), "label ");
    mWriter.addQuoted(name);
    mWriter.endLine();
    mReader.skipItem();
}

void cStreamDump::showValue(PrivatedTypeIDs id)
{
    unsigned int const start = mReader.currentPos();
    auto const show = [&](auto const& value, auto&& add) {
        startLine(start, cSerializeBinaryShared::idToString(id));
        mWriter.add(" ");
        add(value);
        mWriter.endLine();
    };
    auto const number = [this](auto value) { mWriter.addNumber(value); };
    auto const text = [this](auto const& value) { mWriter.addQuoted(value); };

    switch (id) {
    case cSerializeBinaryShared::ptUChar: show(load<unsigned char>(mReader), number); break;
    case cSerializeBinaryShared::ptChar: show(load<signed char>(mReader), number); break;
    case cSerializeBinaryShared::ptUInt16: show(load<unsigned short>(mReader), number); break;
    case cSerializeBinaryShared::ptInt16: show(load<short>(mReader), number); break;
    case cSerializeBinaryShared::ptUInt32: show(load<unsigned int>(mReader), number); break;
    case cSerializeBinaryShared::ptInt32: show(load<int>(mReader), number); break;
    case cSerializeBinaryShared::ptUInt64: show(load<unsigned long long>(mReader), number); break;
    case cSerializeBinaryShared::ptInt64: show(load<long long>(mReader), number); break;
    case cSerializeBinaryShared::ptBool:
        show(load<bool>(mReader), [this](bool value) { mWriter.add(value ? "true" : "false"); });
        break;
    case cSerializeBinaryShared::ptDouble:
        show(load<double>(mReader), [this](double value) { mWriter.addDouble(value); });
        break;
    case cSerializeBinaryShared::ptAsciiString: show(load<nstd::cAsciiString>(mReader), text); break;
    case cSerializeBinaryShared::ptString: show(load<nucs::cString>(mReader), text); break;
    case cSerializeBinaryShared::ptStringUTF8:
        show(load<nucs::cString>(mReader), [&](nucs::cString const& value) {
            mWriter.add("(UTF-8) ");
            text(value);
        });
        break;
    default:
        mReader.skipItem(); // raises for what is no type id
        startLine(start, cSerializeBinaryShared::idToString(id));
        mWriter.endLine();
        break;
    }
}

void cStreamDump::showBlock(PrivatedTypeIDs id)
{
    unsigned int const start = mReader.currentPos();
    unsigned int position = 0;
    unsigned int size = 0;
    mReader.getNextBlockInfo(position, size);
    mReader.skipItem();

    startLine(start, cSerializeBinaryShared::idToString(id));
    mWriter.add(" length ");
    mWriter.addNumber(size);
    if (size != 0) {
        unsigned int const shown = std::min(size, kExcerptSize);
        mWriter.add(":");
        mWriter.addBytes(mData.proxyProvideData(position, shown), shown);
        if (shown < size)
            mWriter.add(" ...");
    }
    mWriter.endLine();
}

void cStreamDump::startLine(unsigned int offset, char const* word)
{
    mWriter.startLine(offset, maContexts.size());
    mWriter.add(word);
}

void cStreamDump::showDamage(unsigned int offset, nucs::cString const& reason)
{
    mbDamaged = true;
    mWriter.startLine(offset, 0);
    mWriter.add("error: ");
    mWriter.addText(reason);
    mWriter.endLine();
}
