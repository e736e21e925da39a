#pragma once

#include "nel_core/export.h"
#include "nel_core/io/cAbstractFsImpl.h"
#include "nel_core/std/tSharedObject.h"
#include "nel_core/ucs/fwd.h"

namespace nio {

class cMemoryTree;

/// A file system in memory, to be mounted over the native one:
///
///     fs.bind(nstd::tAutoPtr<nio::cAbstractFsImpl>(new nio::cMemoryFs(fs, "/memory/")));
///
/// It takes the paths below its prefix, which is its root directory; paths that leave it by ".." are not its
/// own. It raises the same errors as the native one would, where it can. Files hold up to 2^32 - 1 bytes and
/// take memory only for what has been written; when that runs out, std::bad_alloc is raised and nothing has
/// changed. A removed file lives on until the last that has it open closes it. Permissions are kept, but not
/// enforced. Time stamps are told to the second. There are no symbolic links: createSymLink() raises EPERM.
/// Files that are mapped see what was there then. unbind() with the prefix removes it, unless a file or a
/// walk of it is open; everything in it is gone then, and what still refers to it raises ENODEV.
class NEL_EXPORT cMemoryFs : public cAbstractFsImpl {
public:
    /// Empty. A prefix without a "/" at its end gets one.
    cMemoryFs(cFs& fs, nucs::cString const& prefix);
    ~cMemoryFs() override;

    bool exists(nucs::cString const& path, bool followLinks, nstd::cDateTime* stamp,
                cFileInfoFlags::TimeStamp which) const override;
    void remove(nucs::cString const& path) override;
    /// The root: there is no other.
    cPath cwd() const override;
    void mkdir(nucs::cString const& path) override;
    void rename(nucs::cString const& from, nucs::cString const& to) override;
    bool supportsSymLinks() const override;
    void createSymLink(nucs::cString const& target, nucs::cString const& link) override;
    /// The bits for archive and hidden are left out.
    void setPermissions(nucs::cString const& path, cPermissions const& permissions,
                        bool followLinks) override;
    [[nodiscard]] nstd::tAutoPtr<cAbstractDirImpl> createDirImpl(cFs const& fs, nucs::cString const& path,
                                                                 int flags) const override;
    [[nodiscard]] nstd::tAutoPtr<cAbstractFileInfoImpl>
    createFileInfoImpl(cFs const& fs, nucs::cString const& path) const override;
    [[nodiscard]] nstd::tAutoPtr<cAbstractFileImpl> createFileImpl(cFs& fs, cAbstractIOBlockDevice& device,
                                                                   nucs::cString const& path) const override;
    /// Whether a file or a walk is open.
    bool isUsed() const override;
    bool matches(nucs::cString& path, Operation operation) override;

private:
    nstd::tSharedObject<cMemoryTree> mpTree; ///< shared with what is open
};

} // namespace nio
