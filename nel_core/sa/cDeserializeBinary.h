#pragma once

#include "nel_core/sa/cAbstractDeserializer.h"
#include "nel_core/sa/cSerializeBinaryShared.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tConstArrayRef.h"

namespace nsa {

template<typename Stream>
class tBinaryContext;
class cBinaryItems;
class cRecordPool;
struct cBinaryItem;
struct cBinaryRun;

/// Reads the binary format, see cSerializeBinaryShared. Prefers no labels.
///
/// Whatever the bytes say, no operation reads beyond them, takes more memory than they can fill, or recurses:
///
/// - at the end of the data or of the current context a read raises cSAExceptions::throwEndOfContext();
/// - an item of another type raises cLabeledTypeMissmatchException when a label (with a name) has been
///   passed since construction, otherwise nstd::cTypeMissmatchException;
/// - an item that is cut short, by the end of the data or of the current context, raises out-of-range (or
///   out-of-bounds when its length wraps) of "tConstArrayRef", "provideData".
///
/// After any of these the read position and the target are as before. A context that claims to reach beyond
/// the one around it, or beyond the data, ends there.
///
/// A context record that dies unreleased puts the position back to the context's start, so that it can be
/// read again; otherwise the position moves behind the context. One that is not the innermost one any more
/// moves nothing. Handles may outlive the deserializer.
class NEL_EXPORT cDeserializeBinary : public cAbstractDeserializer {
public:
    using tBytes = nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>;
    using tConstBytesRef = nstd::tConstArrayRef<char, nstd::tArrayByteLevelTraits<char>>;
    using PrivatedTypeIDs = cSerializeBinaryShared::PrivatedTypeIDs;

    /// Reads nothing until setData().
    cDeserializeBinary();
    /// Reads the caller's data, as setData() does.
    explicit cDeserializeBinary(tConstBytesRef const& data);
    /// Takes the array over and reads it.
    explicit cDeserializeBinary(nstd::tAutoPtr<tBytes> data);
    ~cDeserializeBinary() override;

    /// `array` keeps its grow step; it may be the data itself, which cannot be read on then.
    void loadBlock(tBytes& array) override;
    void load(signed char& value) override;
    void load(unsigned char& value) override;
    void load(unsigned short& value) override;
    void load(short& value) override;
    void load(unsigned int& value) override;
    void load(int& value) override;
    void load(unsigned long long& value) override;
    void load(long long& value) override;
    void load(bool& value) override;
    void load(double& value) override;
    void load(nstd::cAsciiString& value) override;
    void load(nucs::cString& value) override;
    void rewind() override;
    bool eoc() const override;
    /// Copies with the matching store operations; `target` may write into the data that is read. Labels are
    /// left out when `target` prefers none; items of the ids 0 and 19 are dropped, and larger ids raise
    /// cSAExceptions::throwInvalidTypeId().
    void reserialize(cAbstractSerializer& target) override;
    bool isContext() override;
    bool isLabel() override;
    cContextRef getContext(char const* typeName) override;
    nstd::cAsciiString getNextContextTypeName() override;
    nstd::cAsciiString getNextLabelName() override;
    void releaseCurrentContext() override;
    cAbstractDeserializer& findLabel(nstd::cAsciiString const& name) override;
    bool tryFindLabel(nstd::cAsciiString const& name) override;
    /// In bytes from the start of the data.
    unsigned int currentPos() const override { return miPosition; }

    /// Reads the caller's data from its start; it is needed until the next setData() or the end of the
    /// deserializer. Open contexts end here.
    void setData(tConstBytesRef const& data);
    /// Reads the type id of the next item, having passed the labels before it if asked to, and gives the
    /// id's position; the read position is behind the id then.
    unsigned int getNextTypeId(PrivatedTypeIDs& id, bool skipLabels);
    /// The type id of the next item, be it a label or not; the read position stays.
    PrivatedTypeIDs peekTypeId() const;
    /// Tells where the bytes of the next item, a block, lie in the data; the read position stays.
    void getNextBlockInfo(unsigned int& position, unsigned int& size);
    /// Passes the next item, be it a label or a whole context.
    void skipItem();
    /// Goes behind the first such label between the read position and the end of the current context; false
    /// when there is none, and the position stays.
    bool trySeekToLabel(nstd::cAsciiString const& name);
    /// Whether the read position is at the end of the current context; labels count as content here.
    bool eocMayBeLabels() const noexcept;
    /// Whether the current context claims more bytes than there are around it.
    bool isContextCut() const noexcept;

private:
    using tContext = tBinaryContext<cDeserializeBinary>;
    friend tContext;
    friend cBinaryItems;
    using cItem = cBinaryItem;
    using cRun = cBinaryRun;
    /// Whether a label is passed by or taken as an item.
    enum LabelUse { luPass, luItem };

    unsigned int end() const noexcept;
    cItem nextItem(cBinaryItems const& items, LabelUse use);
    cItem expectTypeId(cBinaryItems const& items, PrivatedTypeIDs id);
    cItem nextContext(cBinaryItems const& items);
    cRun nextBlock(cBinaryItems const& items);
    unsigned int passLabel(cBinaryItems const& items, cItem const& label);
    bool seekToLabel(nstd::cAsciiString const& name, unsigned int position);
    [[noreturn]] void raiseMissmatch(PrivatedTypeIDs expected, PrivatedTypeIDs found) const;
    template<typename T>
    T loadNumber(PrivatedTypeIDs id);
    template<typename T>
    void copyValue(cAbstractSerializer& target);
    void copyBlock(cAbstractSerializer& target);
    void copyItem(PrivatedTypeIDs id, cAbstractSerializer& target);

    void release(tContext& context);
    void leave(tContext& context) noexcept;

    nstd::tAutoPtr<tBytes> mpOwned;
    tConstBytesRef mData;
    bool mbContiguous = true; ///< the data can be had in one piece
    unsigned int miPosition = 0;
    tContext* mpContext = nullptr;    ///< the innermost open one, not owned
    cRecordPool* mpRecords = nullptr; ///< the memory of the contexts
    nstd::cAsciiString msLastLabel;   ///< the name of the label passed last, in whatever data
};

} // namespace nsa
