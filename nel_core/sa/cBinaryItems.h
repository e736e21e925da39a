#pragma once

#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/sa/littleEndian.h"

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
/// Whatever lies beyond the data raises out-of-range of "tConstArrayRef", "provideData"; a length that no
/// index can express counts as one that wraps, and raises out-of-bounds.
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

    /// `stream` says what an item of the wrong type raises.
    explicit cBinaryItems(cDeserializeBinary const& stream);

    template<typename T>
    T number(unsigned int position) const
    {
        if (mpBytes && position <= miLength && sizeof(T) <= miLength - position)
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
    /// The header of a context inside another one that ends at `limit`.
    cHeader header(cItem const& context, unsigned int limit) const;
    /// Where an item ends; the context around it ends at `limit`. Raises for a type id above ptEnd.
    unsigned int endOf(cItem const& item, unsigned int limit) const;

    /// The bytes of a run: copied to `target`, as a string, compared, or where they are, which is null unless
    /// the data is in one piece.
    void copy(cRun const& bytes, char* target) const;
    nstd::cAsciiString text(cRun const& bytes) const;
    bool isEqual(cRun const& bytes, char const* other, unsigned int length) const;
    char const* at(cRun const& bytes) const { return mpBytes ? mpBytes + bytes.position : nullptr; }

private:
    static constexpr unsigned int kIdSize = sizeof(unsigned int);

    void requireId(unsigned int position, PrivatedTypeIDs id) const;

    cDeserializeBinary const& mStream;
    unsigned int miLength;
    char const* mpBytes; ///< null when the data cannot be had in one piece
};

} // namespace nsa
