#pragma once

#include "nel_core/nce/cAbstractCoreExtension.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/ucs/fwd.h"

namespace nce {

/// Offers serializers and deserializers of a format.
class NEL_EXPORT cAbstractSAExtension : public cAbstractCoreExtension {
public:
    ~cAbstractSAExtension() override;

    ExtensionType extensionType() const override;
    /// A new serializer; what the argument means is the extension's to say. Never empty.
    [[nodiscard]] virtual nstd::tAutoPtr<nsa::cAbstractSerializer>
    createSerializer(nstd::cAsciiString const& argument) const = 0;
    /// A deserializer of the bytes, which must outlive it unless the extension says otherwise; never empty.
    [[nodiscard]] virtual nstd::tAutoPtr<nsa::cAbstractDeserializer>
    createDeserializer(nstd::tConstArrayRef<char, nstd::tArrayByteLevelTraits<char>> const& data) const = 0;
    /// A deserializer of the content of a file; never empty.
    [[nodiscard]] virtual nstd::tAutoPtr<nsa::cAbstractDeserializer>
    createDeserializer(nucs::cString const& fileName) const = 0;
};

} // namespace nce
