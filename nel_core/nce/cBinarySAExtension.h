#pragma once

#include "nel_core/nce/cAbstractSAExtension.h"
#include "nel_core/std/cBuildInfo.h"

namespace nce {

/// The binary format of the library under the name "BINARY". No system has it by itself: an application adds
/// it to its core extensions.
class NEL_EXPORT cBinarySAExtension : public cAbstractSAExtension {
public:
    cBinarySAExtension();
    ~cBinarySAExtension() override;

    nstd::cAsciiString description() const override;
    nstd::cBuildInfo const& buildInfo() const override;
    bool supports(nstd::cAsciiString const& name) const override;
    void provides(nstd::tVector<nstd::cAsciiString>& names) const override;
    /// The argument has no meaning.
    [[nodiscard]] nstd::tAutoPtr<nsa::cAbstractSerializer>
    createSerializer(nstd::cAsciiString const& argument) const override;
    /// Each holds a copy of what it reads. A file that cannot be opened or read raises as nio::cFile does.
    [[nodiscard]] nstd::tAutoPtr<nsa::cAbstractDeserializer> createDeserializer(
        nstd::tConstArrayRef<char, nstd::tArrayByteLevelTraits<char>> const& data) const override;
    [[nodiscard]] nstd::tAutoPtr<nsa::cAbstractDeserializer>
    createDeserializer(nucs::cString const& fileName) const override;

private:
    nstd::cBuildInfo moBuildInfo;
};

} // namespace nce
