#pragma once

#include <cstring>
#include <new>
#include <type_traits>

#include "nel_core/export.h"
#include "nel_core/sa/cTypeReference.h"
#include "nel_core/std/tPtrVector.h"

namespace nsa {

/// An ordered list of typed references to objects of the caller: the argument list of calls by name and of
/// the construction of modules.
///
/// The values of a frame can be written and read, the references stay where they are. Its stored form is the
/// concatenation of its entries' own forms, those of nested frames inline at their place, without header or
/// count: a reader uses a frame of the same shape and the same filter. Objects and nested frames must
/// outlive the frame. Up to four entries take no memory. Used by one thread at a time.
///
///     nsa::cReferenceFrame frame;
///     frame.addRef(left, false, true).addRef(right, false, true).addRef(sum, true, false);
///     object.invokeIndirectSlot("add", frame);
class NEL_EXPORT cReferenceFrame {
public:
    /// An empty frame.
    cReferenceFrame();
    /// Refers to the same objects, with entries of its own; reading starts at the first one.
    cReferenceFrame(cReferenceFrame const& other);
    cReferenceFrame& operator=(cReferenceFrame const& other);
    virtual ~cReferenceFrame();
    /// Exchanges the entries; reading starts at the first one in both.
    void swap(cReferenceFrame& other) noexcept;

    /// Appends a reference to `object` and puts the cursor back on the first entry. `alterable`: the callee
    /// may change the object; `readable`: the callee reads it. An object whose class derives from this one is
    /// a nested frame.
    template<typename T>
    cReferenceFrame& addRef(T& object, bool alterable, bool readable)
    {
        if constexpr (std::is_convertible_v<T*, cReferenceFrame*> && !std::is_same_v<T, cReferenceFrame>)
            return addRef(static_cast<cReferenceFrame&>(object), alterable, readable);
        else
            return addEntry<T>(object, alterable, readable);
    }
    /// Appends a nested frame; the cursor does not move. Before the frame is read, call restartReading().
    cReferenceFrame& addRef(cReferenceFrame& frame, bool alterable, bool readable);
    /// Appends entries like those of `other`; nothing changes when that fails.
    void append(cReferenceFrame const& other);
    /// The same without that guarantee: the entries appended before the failure stay.
    void append_net(cReferenceFrame const& other);

    /// The object of the entry under the cursor, which goes on to the next one. Raises
    /// nstd::cTypeMissmatchException when it is of another type, and out-of-bounds at the end.
    template<typename T>
    T& readNext(T const* = nullptr)
    {
        cAbstractTypeReference& entry = currentReference();
        char const* const wanted = mangledTypeName<T>();
        char const* const found = entry.mangeledTypeName();
        // By name, so that references made in another shared object are recognised.
        if (found != wanted && std::strcmp(found, wanted) != 0)
            raiseMissmatch(tTypeName<T>::name(), entry);
        ++miCursor;
        return static_cast<cTypeReference<T>&>(entry).object();
    }
    /// Goes on to the next entry; raises out-of-bounds at the end.
    void skipNext()
    {
        if (!canRead())
            raiseEnd("cIteratorBase::operator++()");
        ++miCursor;
    }
    /// The entry under the cursor, owned by the frame; raises out-of-bounds at the end.
    cAbstractTypeReference& currentReference() const
    {
        if (!canRead())
            raiseEnd("tIterator::operator*()");
        return entryAt(miCursor);
    }
    /// Whether there is an entry under the cursor.
    bool canRead() const noexcept { return miCursor < miCount; }
    /// Whether there is no entry at all.
    bool empty() const noexcept { return miCount == 0; }
    /// Puts the cursor on the first entry, here and in all nested frames.
    void restartReading();

    /// Write the values of all entries, or of those that have the flags asked for (with both, both flags;
    /// with none, all entries). A failure becomes the cause of cSAExceptions::throwSerializationError(); the
    /// values before it stay written. A frame that holds itself cannot be written.
    void store(cAbstractSerializer& serializer) const;
    void store(cAbstractSerializer& serializer, bool alterableOnly, bool readableOnly) const;
    /// Read the values of the same entries. A failure becomes the cause of
    /// cSAExceptions::throwDeserializationError(); the values before it stay read.
    void load(cAbstractDeserializer& deserializer);
    void load(cAbstractDeserializer& deserializer, bool alterableOnly, bool readableOnly);
    /// Reads the value of the last entry only, by convention the result; of an empty frame nothing.
    void loadLast(cAbstractDeserializer& deserializer);

private:
    static constexpr unsigned int kOwnPlaces = 4;
    /// Room for one entry, whatever it refers to.
    struct alignas(cTypeReference<piVoid>) cPlace {
        unsigned char bytes[sizeof(cTypeReference<piVoid>)];
    };

    cFrameEntry& entryAt(unsigned int index) const noexcept
    {
        return index < kOwnPlaces
                   ? *std::launder(reinterpret_cast<cFrameEntry*>(const_cast<cPlace&>(maPlaces[index]).bytes))
                   : *maMore[index - kOwnPlaces];
    }
    template<typename T>
    cReferenceFrame& addEntry(T& object, bool alterable, bool readable)
    {
        static_assert(sizeof(cTypeReference<T>) == sizeof(cPlace), "every reference has the same size");
        if (miCount >= kOwnPlaces)
            return addCopy(cTypeReference<T>(object, alterable, readable));
        new (maPlaces[miCount].bytes) cTypeReference<T>(object, alterable, readable);
        ++miCount;
        miCursor = 0;
        return *this;
    }
    /// Appends a copy of the entry and puts the cursor on the first one.
    cReferenceFrame& addCopy(cFrameEntry const& entry);
    void takePlaces(cReferenceFrame& other) noexcept;
    /// Restarts this frame alone and appends its nested frames to the chain that ends with `last`.
    void restartHere(cReferenceFrame*& last) noexcept;
    [[noreturn]] static void raiseEnd(char const* operation);
    [[noreturn]] static void raiseMissmatch(char const* wanted, cAbstractTypeReference& found);

    // Nothing depends on the destructors of entries: those in places are simply left behind.
    cPlace maPlaces[kOwnPlaces];          ///< hold the first entries
    nstd::tPtrVector<cFrameEntry> maMore; ///< owned; the others
    unsigned int miCount = 0;
    unsigned int miCursor = 0;                  ///< the index of the next entry to be read
    cReferenceFrame* mpNextRestarted = nullptr; ///< chain of those that one restartReading() reached
    mutable bool mbTravelling = false;          ///< while the values are written or read
};

extern template class NEL_EXPORT cTypeReference<cReferenceFrame>;

} // namespace nsa
