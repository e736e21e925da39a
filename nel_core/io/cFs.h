#pragma once

#include "nel_core/export.h"
#include "nel_core/io/cAbstractFsImpl.h"
#include "nel_core/io/cFileInfoFlags.h"
#include "nel_core/io/fwd.h"
#include "nel_core/std/tConstListRef.h"
#include "nel_core/std/tSharedObject.h"
#include "nel_core/ucs/fwd.h"

namespace nio {

/// The file system: a handle that shares its root with its copies.
///
/// The root is a proxy: it passes each operation to the first file system bound into it that takes the path,
/// otherwise to the native one. Names are encoded with the codec just before each call of the system.
/// Failures of the operating system raise nstd::cOSErrorException. Objects that are made from a file system
/// (cFileInfo, cDir, cFile) refer to it: it must outlive them. Used by the main thread.
class NEL_EXPORT cFs {
public:
    /// A new root, with the system's default codec or the given one, which must outlive it.
    cFs();
    explicit cFs(nucs::cAbstractEnDec const& codec);
    cFs(cFs const& other);
    cFs& operator=(cFs const& other);
    ~cFs();
    void swap(cFs& other) noexcept;

    /// How names are encoded.
    nucs::cAbstractEnDec const& endec() const;
    /// Mounts a file system over the native one: it takes the paths that it says it matches.
    void bind(nstd::tAutoPtr<cAbstractFsImpl> impl);
    /// Removes the bound file systems that match the path, or the native one when none does; raises a bug
    /// when one is in use.
    void unbind(nucs::cString const& path);

    bool exists(nucs::cString const& path, bool followLinks = true, nstd::cDateTime* stamp = nullptr,
                cFileInfoFlags::TimeStamp which = cFileInfoFlags::tsLastModification) const;
    void remove(nucs::cString const& path);
    cPath cwd() const;
    void mkdir(nucs::cString const& path);
    void rename(nucs::cString const& from, nucs::cString const& to);
    bool supportsSymLinks() const;
    void createSymLink(nucs::cString const& target, nucs::cString const& link);
    void setPermissions(nucs::cString const& path, cPermissions const& permissions, bool followLinks = true);
    [[nodiscard]] nstd::tAutoPtr<cAbstractFileInfoImpl> createFileInfoImpl(nucs::cString const& path) const;
    [[nodiscard]] nstd::tAutoPtr<cAbstractDirImpl> createDirectoryImpl(nucs::cString const& path,
                                                                       int flags) const;
    [[nodiscard]] nstd::tAutoPtr<cAbstractFileImpl> createFileImpl(cAbstractIOBlockDevice& device,
                                                                   nucs::cString const& path);

    cFileInfo fileInfo(nucs::cString const& path) const;
    /// Whether the system's file system has such a regular file, or such a symbolic link without a target.
    bool fileExists(nucs::cString const& path, bool followLinks = true) const;
    bool isDeadSymLink(nucs::cString const& path) const;
    /// The entries of a directory; the flags are those of cDir.
    nstd::tConstListRef<cDirInfo> openDir(nucs::cString const& path, int flags = 0) const;
    /// Open a file; raise as cFile::open() does. The file refers to this file system.
    cFile openFile(nucs::cString const& path, OpenMode mode, CreateMode create, WriteMode write);
    cFile fileOpenRead(nucs::cString const& path);
    /// For reading and writing.
    cFile fileOpenWrite(nucs::cString const& path, CreateMode create, WriteMode write);
    /// Creates every directory of the path that is missing. Raises cIOExceptions::throwUnableCreatePath()
    /// when something else is in the way; the directories made before stay.
    void createPath(cPath const& path);
    /// The full name of a file of the directory, empty when the system's file system has none.
    nucs::cString tryFindInPath(cPath const& directory, nucs::cString const& name);
    /// Removes a file, or a directory with all that is in it. Symbolic links below it are removed, never
    /// followed; only a link that is `path` itself is emptied first if `followLink` is set. The tree is that
    /// of the file system that takes `path`: what is mounted below it is not seen, and stays. Nothing happens
    /// when nothing is there.
    void removeRecursive(nucs::cString const& path, bool followLink);

private:
    nstd::tSharedObject<cAbstractFsImpl> mpRoot;
    nstd::tSharedObject<nucs::cAbstractEnDec const> mpCodec; ///< not owned
};

} // namespace nio
