#pragma once

#include "nel_core/export.h"
#include "nel_core/io/cAbstractFsImpl.h"
#include "nel_core/std/tList.h"
#include "nel_core/std/tSharedObject.h"

namespace nio {

/// The root of a file system: passes each operation to the first bound implementation that matches its path,
/// otherwise to the native one. Without any, operations raise nstd::cBugException.
///
/// What a matching implementation makes of the path is what it is called with; the others do not see it.
class NEL_EXPORT cProxyFs : public cAbstractFsImpl {
public:
    /// Nothing is bound.
    explicit cProxyFs(cFs& fs);
    ~cProxyFs() override;

    bool exists(nucs::cString const& path, bool followLinks, nstd::cDateTime* stamp,
                cFileInfoFlags::TimeStamp which) const override;
    void remove(nucs::cString const& path) override;
    cPath cwd() const override;
    void mkdir(nucs::cString const& path) override;
    /// Raise nstd::cRuntimeException when the two paths belong to different implementations.
    void rename(nucs::cString const& from, nucs::cString const& to) override;
    bool supportsSymLinks() const override;
    void createSymLink(nucs::cString const& target, nucs::cString const& link) override;
    void setPermissions(nucs::cString const& path, cPermissions const& permissions,
                        bool followLinks) override;
    [[nodiscard]] nstd::tAutoPtr<cAbstractDirImpl> createDirImpl(cFs const& fs, nucs::cString const& path,
                                                                 int flags) const override;
    [[nodiscard]] nstd::tAutoPtr<cAbstractFileInfoImpl>
    createFileInfoImpl(cFs const& fs, nucs::cString const& path) const override;
    [[nodiscard]] nstd::tAutoPtr<cAbstractFileImpl> createFileImpl(cFs& fs, cAbstractIOBlockDevice& device,
                                                                   nucs::cString const& path) const override;
    /// Makes it the native one if it says so (opBind), releasing the former; appends it otherwise.
    void bind(nstd::tAutoPtr<cAbstractFsImpl> impl) override;
    /// Removes all that say so (opUnbind); if there are none, the native one. Raises nstd::cBugException, and
    /// removes nothing, when one of them is in use.
    void unbind(nucs::cString const& path) override;

    /// Null when there is none.
    nstd::tSharedObject<cAbstractFsImpl> const& nativeFs() const noexcept { return mpNative; }

private:
    using tImpl = nstd::tSharedObject<cAbstractFsImpl>;

    tImpl findDelegate(nucs::cString& path, Operation operation) const;
    tImpl delegate(nucs::cString& path, Operation operation) const;
    tImpl commonDelegate(nucs::cString& first, nucs::cString& second) const;
    void unbindNative();

    nstd::tList<tImpl> maBound; ///< in binding order
    tImpl mpNative;
};

} // namespace nio
