#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/fwd.h"

namespace nsa {

/// A reference to an object of some type, together with the way in which its value is written and read.
///
/// It does not own the object, which must outlive it.
class NEL_EXPORT cAbstractTypeReference {
public:
    virtual ~cAbstractTypeReference();

    /// A copy for the caller to own: the same object, flags and nested frame.
    [[nodiscard]] virtual cAbstractTypeReference* create() = 0;
    /// Writes the object's value.
    virtual void store(cAbstractSerializer& serializer) = 0;
    /// Reads a value into the object.
    virtual void load(cAbstractDeserializer& deserializer) = 0;
    /// The compiler's name of the object's type.
    virtual char const* mangeledTypeName() = 0;
    /// The library's name of the object's type, see tTypeName.
    virtual char const* typeName() = 0;
    /// Whether the callee may change the object, so that its value travels back.
    virtual bool alterable() const = 0;
    /// Whether the callee reads the object, so that its value travels there.
    virtual bool readable() const = 0;

    /// The frame that the reference designates; null unless it is a nested frame.
    cReferenceFrame* isSubReferenceFrame() const noexcept { return mpSubFrame; }

protected:
    explicit cAbstractTypeReference(cReferenceFrame* subFrame) noexcept : mpSubFrame(subFrame) { }
    cAbstractTypeReference(cAbstractTypeReference const&) = default;
    cAbstractTypeReference& operator=(cAbstractTypeReference const&) = delete;

private:
    cReferenceFrame* mpSubFrame; ///< not owned
};

} // namespace nsa
