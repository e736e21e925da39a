#pragma once

#include "nel_core/export.h"
#include "nel_core/io/cFileInfoFlags.h"
#include "nel_core/io/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/ucs/fwd.h"

namespace nio {

/// What a file system does: the native one, one in memory, or the proxy that chooses between them.
///
/// Operations that change or query files raise nstd::cOSErrorException with the name of the call, the error
/// number and the path.
class NEL_EXPORT cAbstractFsImpl {
public:
    /// The operation for which matches() is asked.
    enum Operation : unsigned int {
        opExists = 0,
        opRemove = 1,
        opCwd = 2,
        opMkdir = 3,
        opRename = 4, ///< and createSymLink()
        opSupportsSymLinks = 5,
        opSetPermissions = 7,
        opCreateDirImpl = 8,
        opCreateFileInfoImpl = 9,
        opCreateFileImpl = 10,
        opBind = 11,   ///< whether it is to replace the native file system; the path is empty
        opUnbind = 12, ///< whether it is the one to be removed
    };

    /// `fs` is the file system that it is made for.
    explicit cAbstractFsImpl(cFs& fs) noexcept : mFs(fs) { }
    cAbstractFsImpl(cAbstractFsImpl const&) = delete;
    cAbstractFsImpl& operator=(cAbstractFsImpl const&) = delete;
    virtual ~cAbstractFsImpl();

    /// Whether something is there; if so, `stamp` (unless it is null) receives the time asked for.
    virtual bool exists(nucs::cString const& path, bool followLinks, nstd::cDateTime* stamp,
                        cFileInfoFlags::TimeStamp which) const = 0;
    /// Removes a file or an empty directory. What cannot be found is left alone.
    virtual void remove(nucs::cString const& path) = 0;
    /// The current working directory.
    virtual cPath cwd() const = 0;
    /// Creates a directory in one that is there.
    virtual void mkdir(nucs::cString const& path) = 0;
    virtual void rename(nucs::cString const& from, nucs::cString const& to) = 0;
    virtual bool supportsSymLinks() const = 0;
    virtual void createSymLink(nucs::cString const& target, nucs::cString const& link) = 0;
    virtual void setPermissions(nucs::cString const& path, cPermissions const& permissions,
                                bool followLinks) = 0;
    /// Opens a directory at its first entry; the flags are those of cDir.
    [[nodiscard]] virtual nstd::tAutoPtr<cAbstractDirImpl>
    createDirImpl(cFs const& fs, nucs::cString const& path, int flags) const = 0;
    [[nodiscard]] virtual nstd::tAutoPtr<cAbstractFileInfoImpl>
    createFileInfoImpl(cFs const& fs, nucs::cString const& path) const = 0;
    /// A file, not yet opened, for `device`, which owns it.
    [[nodiscard]] virtual nstd::tAutoPtr<cAbstractFileImpl>
    createFileImpl(cFs& fs, cAbstractIOBlockDevice& device, nucs::cString const& path) const = 0;
    /// Whether it must not be unbound; true unless overridden.
    virtual bool isUsed() const;
    /// Whether it takes the path for an operation; true unless overridden. It may rewrite the path into its
    /// own namespace; the entries of its directories still tell paths that it takes, since these come back.
    virtual bool matches(nucs::cString& path, Operation operation);
    /// Adds and removes other file systems; raise a bug unless overridden.
    virtual void bind(nstd::tAutoPtr<cAbstractFsImpl> impl);
    virtual void unbind(nucs::cString const& path);

    /// The file system that it was made for.
    cFs& fs() const noexcept { return mFs; }

private:
    cFs& mFs;
};

} // namespace nio
