#pragma once

#include <cstddef>

#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/sa/littleEndian.h"
#include "nel_core/std/tArray.h"

namespace nsa {

/// An item: its id, where that stands, and where its payload starts.
struct cBinaryItem {
    cSerializeBinaryShared::PrivatedTypeIDs id;
    unsigned int position;
    unsigned int payload;

    bool isLabel() const { return id == cSerializeBinaryShared::ptLabel; }
    bool isContext() const
    {
        return id == cSerializeBinaryShared::ptContext || id == cSerializeBinaryShared::ptContext64;
    }
};

/// A run of bytes that are known to be there.
struct cBinaryRun {
    unsigned int position;
    unsigned int length;

    unsigned int end() const { return position + length; }
};

/// Finds the items in the bytes of a deserializer, for the length of one operation: it holds on to where the
/// bytes are. Positions count from the start of the data.
///
/// Whatever lies beyond the limit, which is the end of the current context, raises out-of-range of
/// "tConstArrayRef", "provideData"; a length that no index can express counts as one that wraps, and raises
/// out-of-bounds. Items that could reach out of their context would let a stream name the same bytes again
/// and again.
class cBinaryItems {
public:
    using PrivatedTypeIDs = cSerializeBinaryShared::PrivatedTypeIDs;
    using tBytes = cDeserializeBinary::tBytes;

    using cItem = cBinaryItem;
    using cRun = cBinaryRun;
    /// What the first items of a context say of it.
    struct cHeader {
        bool isNamed;
        cRun name; ///< empty for an unnamed context
        unsigned int bodyStart;
        unsigned int end; ///< not before the body's start
        bool isCut;       ///< it claims to reach further
    };

    /// `stream` says what an item of the wrong type raises; `limit` is the end of its current context, or of
    /// a context inside that one.
    explicit cBinaryItems(cDeserializeBinary const& stream) : cBinaryItems(stream, stream.end()) { }
    cBinaryItems(cDeserializeBinary const& stream, unsigned int limit)
        : mStream(stream),
          miLimit(limit),
          mpBytes(stream.mbContiguous && limit != 0 ? stream.mData.proxyProvideData(0, limit) : nullptr)
    {
    }

    template<typename T>
    T number(unsigned int position) const
    {
        if (mpBytes && position <= miLimit && sizeof(T) <= miLimit - position)
            return getNumber<T>(mpBytes + position);
        char bytes[sizeof(T)];
        copy(run(position, sizeof(T)), bytes);
        return getNumber<T>(bytes);
    }
    cItem itemAt(unsigned int position) const
    {
        auto const id = static_cast<PrivatedTypeIDs>(number<unsigned int>(position));
        return {id, position, position + kIdSize};
    }
    /// The `size` bytes at `position`.
    cRun run(unsigned int position, unsigned long long size) const;
    /// The elements of a payload that starts with their number.
    cRun counted(unsigned int position, unsigned int elementSize) const;
    /// The bytes of a block whose payload starts with 64 bits of length, of which the low 32 count.
    cRun longBlock(unsigned int position) const;
    /// The characters of an item that must be a ptAsciiString.
    cRun textAt(unsigned int position) const;
    /// Reads the first items of a context.
    cHeader header(cItem const& context) const;
    /// Where an item ends. Raises for a type id above ptEnd.
    unsigned int endOf(cItem const& item) const;

    /// Copies the bytes of a run to `target`, which has room for them.
    void copy(cRun const& bytes, char* target) const;
    /// Replaces the content of an array or string by the bytes of a run. The target may be the data itself;
    /// it is as before when this fails.
    template<typename Array>
    void copyTo(cRun const& bytes, Array& target) const;
    nstd::cAsciiString text(cRun const& bytes) const;
    bool isEqual(cRun const& bytes, char const* other, std::size_t length) const;
    /// Where the bytes of a run are; null unless the data is in one piece.
    char const* at(cRun const& bytes) const { return mpBytes ? mpBytes + bytes.position : nullptr; }

private:
    static constexpr unsigned int kIdSize = sizeof(unsigned int);

    void requireId(unsigned int position, PrivatedTypeIDs id) const;

    cDeserializeBinary const& mStream;
    unsigned int miLimit;
    char const* mpBytes; ///< null when the data cannot be had in one piece
};

template<typename Array>
void cBinaryItems::copyTo(cRun const& bytes, Array& target) const
{
    if (char const* const found = at(bytes))
        return target.setData(found, bytes.length);
    tBytes fetched(bytes.length);
    copy(bytes, fetched.data(true));
    target.setData(fetched.data(true), bytes.length);
}

} // namespace nsa
