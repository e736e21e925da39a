#pragma once

#include "nel_core/export.h"
#include "nel_core/io/cAbstractFsImpl.h"

namespace npi {

/// The file system of the operating system.
///
/// Paths are encoded with the codec that the file system has when this is made. One with a code point 0 is
/// refused with EINVAL.
class NEL_EXPORT cLinuxFsImpl : public nio::cAbstractFsImpl {
public:
    explicit cLinuxFsImpl(nio::cFs& fs);
    ~cLinuxFsImpl() override;

    bool exists(nucs::cString const& path, bool followLinks, nstd::cDateTime* stamp,
                nio::cFileInfoFlags::TimeStamp which) const override;
    void remove(nucs::cString const& path) override;
    nio::cPath cwd() const override;
    void mkdir(nucs::cString const& path) override;
    void rename(nucs::cString const& from, nucs::cString const& to) override;
    bool supportsSymLinks() const override;
    void createSymLink(nucs::cString const& target, nucs::cString const& link) override;
    /// Always follows links. The bits for archive and hidden are left out.
    void setPermissions(nucs::cString const& path, nio::cPermissions const& permissions,
                        bool followLinks) override;
    [[nodiscard]] nstd::tAutoPtr<nio::cAbstractDirImpl>
    createDirImpl(nio::cFs const& fs, nucs::cString const& path, int flags) const override;
    [[nodiscard]] nstd::tAutoPtr<nio::cAbstractFileInfoImpl>
    createFileInfoImpl(nio::cFs const& fs, nucs::cString const& path) const override;
    [[nodiscard]] nstd::tAutoPtr<nio::cAbstractFileImpl>
    createFileImpl(nio::cFs& fs, nio::cAbstractIOBlockDevice& device,
                   nucs::cString const& path) const override;

private:
    nucs::cAbstractEnDec const& mCodec; ///< of its own, since the file system handle may be gone
};

} // namespace npi
