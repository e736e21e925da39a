#pragma once

#include <new>
#include <type_traits>

#include "nel_core/export.h"
#include "nel_core/sa/cAbstractTypeReference.h"
#include "nel_core/sa/cSAExceptions.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/sa/tTypeName.h"
#include "nel_core/std/fwd.h"

namespace nsa {

// Declared with the class, so that they are seen wherever a frame is referred to.
NEL_EXPORT cAbstractSerializer& operator>>(cReferenceFrame const& frame, cAbstractSerializer& serializer);
NEL_EXPORT cAbstractDeserializer& operator<<(cReferenceFrame& frame, cAbstractDeserializer& deserializer);

/// Whether the values of T can be written and read.
template<typename T>
constexpr bool kIsSerializable = (kIsStorable<T> && kIsLoadable<T>);

/// The references that frames keep: they all take the same room, which a frame has ready for a few.
class NEL_EXPORT cFrameEntry : public cAbstractTypeReference {
public:
    ~cFrameEntry() override;

    /// The same as create(), at a place that has room for it.
    virtual cFrameEntry* createAt(void* place) const noexcept = 0;

protected:
    using cAbstractTypeReference::cAbstractTypeReference;
    cFrameEntry(cFrameEntry const&) = default;
};

/// A reference to a T. Any type can be referred to; the value of one without operators cannot travel:
/// storing and loading it raise cSAExceptions::throwUnserializable().
template<typename T>
class cTypeReference : public cFrameEntry {
    static_assert(!std::is_const_v<T> && !std::is_reference_v<T>, "refer to the plain type of the object");

public:
    /// `alterable`: the callee may change the object; `readable`: the callee reads it. T is complete here.
    cTypeReference(T& object, bool alterable, bool readable) noexcept
        : cFrameEntry(subFrameOf(object)),
          mpObject(&object),
          mbAlterable(alterable),
          mbReadable(readable)
    {
        static_assert(sizeof(T) > 0, "the type must be complete here, or its operators would be missed");
    }

    [[nodiscard]] cAbstractTypeReference* create() override { return new cTypeReference(*this); }
    cFrameEntry* createAt(void* place) const noexcept override { return new (place) cTypeReference(*this); }
    void store(cAbstractSerializer& serializer) override
    {
        if constexpr (kIsSerializable<T>)
            static_cast<T const&>(*mpObject) >> serializer;
        else
            cSAExceptions::throwUnserializable(typeName());
    }
    void load(cAbstractDeserializer& deserializer) override
    {
        if constexpr (kIsSerializable<T>)
            *mpObject << deserializer;
        else
            cSAExceptions::throwUnserializable(typeName());
    }
    char const* mangeledTypeName() override { return mangledTypeName<T>(); }
    char const* typeName() override { return tTypeName<T>::name(); }
    bool alterable() const override { return mbAlterable; }
    bool readable() const override { return mbReadable; }

    /// The object referred to.
    T& object() const noexcept { return *mpObject; }

private:
    static cReferenceFrame* subFrameOf(T& object) noexcept
    {
        if constexpr (std::is_same_v<T, cReferenceFrame>)
            return &object;
        else
            return static_cast<void>(object), nullptr;
    }

    T* mpObject; ///< not owned
    bool mbAlterable;
    bool mbReadable;
};

extern template class NEL_EXPORT cTypeReference<piVoid>;

} // namespace nsa
