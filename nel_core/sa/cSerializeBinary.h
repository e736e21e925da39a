#pragma once

#include "nel_core/sa/cAbstractSerializer.h"
#include "nel_core/sa/cSerializeBinaryShared.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tArrayRef.h"

namespace nsa {

template<typename Stream>
class tBinaryContext;
class cRecordPool;

/// Writes the binary format, see cSerializeBinaryShared, into a byte array. Prefers no labels.
///
/// Every item is written at the write position, over what is there, and grows the data at its end. One that
/// cannot be written whole leaves position and bytes as they were. A stream that would pass 2^32 - 1 bytes
/// raises out-of-bounds ("cSerializeBinary", "storeRaw"). What is stored may lie in the data itself. While
/// the array has room, nothing but Unicode strings in UTF-8 takes memory; the own array keeps its room.
///
/// An open context ends with its release(); contexts inside it that are still open end with it. One that dies
/// unreleased is abandoned: the position returns to its start. If it is not the innermost one then, it merely
/// stays behind as an empty context. Handles may outlive the serializer.
class NEL_EXPORT cSerializeBinary : public cAbstractSerializer {
public:
    using tBytes = nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>;
    using tBytesRef = nstd::tArrayRef<char, nstd::tArrayByteLevelTraits<char>>;

    /// The form of Unicode strings; in any other mode they are not written at all.
    enum StringStoreMode : unsigned int {
        ssmCodePoints = 0, ///< four bytes a character
        ssmUTF8 = 1,
    };

    /// Writes into an array of its own.
    cSerializeBinary();
    /// Writes over the content of the caller's array, or of the part of it that is viewed; what lies behind
    /// the part moves on. The array must outlive the serializer, and is not to be changed otherwise.
    explicit cSerializeBinary(tBytesRef const& target);
    ~cSerializeBinary() override;

    void storeBlock(char const* data, unsigned int size) override;
    void store(unsigned char value) override;
    void store(signed char value) override;
    void store(unsigned short value) override;
    void store(short value) override;
    void store(unsigned int value) override;
    void store(int value) override;
    void store(unsigned long long value) override;
    void store(long long value) override;
    void store(bool value) override;
    void store(double value) override;
    void store(nstd::cAsciiString const& value) override;
    void store(nucs::cString const& value) override;
    void rewind() override;
    /// Raises a bug while a context is open.
    void clear() override;
    cContextRef newContext(char const* typeName) override;
    void releaseCurrentContext() override;
    cAbstractSerializer& newLabel(nstd::cAsciiString const& name) override;
    /// Cuts what lies behind the write position and gives the rest. Raises a bug while a context is open.
    tBytesRef data() override;
    /// Cuts as data() does, then exchanges the own array, be it the target or not, with `array`. From now on
    /// the own array is the target, and the next item starts it anew. Raises as data() does.
    void swapData(tBytes& array) override;

    /// Cuts as data() does and gives the own array, which is empty while a caller's array is the target.
    /// Valid as long as the serializer. Raises as data() does.
    tBytes& ownData();
    /// The write position in bytes.
    unsigned int currentPos() const noexcept { return miPosition; }
    /// Writes the value of `reference` at `position`, over what is there. The write position stays, unless
    /// the value has reached beyond it. Raises out-of-bounds when `position` is beyond the data; the position
    /// stays also when the value raises.
    void patch(unsigned int position, cAbstractTypeReference& reference);
    /// The form of the Unicode strings that follow; ssmCodePoints at first.
    StringStoreMode stringStoreMode() const noexcept { return meStringStoreMode; }
    /// Sets stringStoreMode().
    void setStringStoreMode(StringStoreMode mode) noexcept { meStringStoreMode = mode; }

private:
    using tContext = tBinaryContext<cSerializeBinary>;
    using PrivatedTypeIDs = cSerializeBinaryShared::PrivatedTypeIDs;
    friend tContext;

    void prepareOwn();
    bool isInTarget(char const* bytes) const;
    unsigned int storeRaw(char const* start, unsigned int startSize, char const* rest = nullptr,
                          unsigned int restSize = 0);
    template<typename T>
    void storeNumber(PrivatedTypeIDs id, T value);
    void storeBytes(PrivatedTypeIDs id, unsigned int count, void const* bytes, unsigned long long size);
    void release(tContext& context);
    void leave(tContext& context) noexcept;

    tBytes maOwn;
    tBytesRef mTarget;             ///< refers to maOwn or to the caller's array
    unsigned int miPosition = 0;   ///< never beyond the target's length
    tContext* mpContext = nullptr; ///< the innermost open one, not owned
    StringStoreMode meStringStoreMode = ssmCodePoints;
    cRecordPool* mpRecords = nullptr; ///< the memory of the contexts
};

} // namespace nsa
