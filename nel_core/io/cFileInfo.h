#pragma once

#include "nel_core/export.h"
#include "nel_core/io/cAbstractFileInfoImpl.h"
#include "nel_core/io/cFileInfoFlags.h"
#include "nel_core/io/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/std/tSharedObject.h"
#include "nel_core/ucs/cString.h"

namespace nio {

/// Answers questions about one path of a file system, and edits file names.
///
/// Every question goes to the file system anew; those about something that is not there raise
/// nstd::cOSErrorException. With `follow` a symbolic link stands for its target. The file system must outlive
/// the object; copies share what is behind it.
class NEL_EXPORT cFileInfo {
public:
    cFileInfo(nucs::cString const& path, cFs const& fs);
    /// On the system's file system; bytes are decoded with its codec.
    explicit cFileInfo(nucs::cString const& path);
    explicit cFileInfo(nstd::cAsciiString const& path);
    explicit cFileInfo(char const* path);

    bool exists(bool follow = true, nstd::cDateTime* stamp = nullptr,
                cFileInfoFlags::TimeStamp which = cFileInfoFlags::tsLastModification) const;
    cFileInfoFlags::FileType type(bool follow = true) const;
    bool isDir(bool follow = true) const;
    bool isFile(bool follow = true) const;
    bool isSymLink() const;
    /// Whether it is a symbolic link whose target is not there.
    bool isDeadSymLink() const;
    /// In bytes.
    unsigned long long size(bool follow = true) const;
    nstd::cDateTime timeStamp(cFileInfoFlags::TimeStamp which, bool follow = true) const;
    cPermissions permissions(bool follow = true) const;
    /// Whether the file system hides it from casual listings.
    bool isHidden() const;
    /// The target of a symbolic link.
    nucs::cString readLink() const;

    /// The path as it was given.
    nucs::cString const& fullPath() const;
    /// Its directory part, ending in a separator; "./" without one.
    nucs::cString pathComponent() const;
    nucs::cString path() const { return pathComponent(); }
    /// The directory part, normalised.
    cPath toPath() const;
    /// The path, absolute as seen from the current directory of its file system.
    nucs::cString fullAbsolutePath() const;
    /// The path as seen from `base`.
    nucs::cString fullRelativePath(cPath const& base) const;
    /// What stands behind the directory part; its parts before, and from, its first ".".
    nucs::cString fileName() const;
    nucs::cString fileBaseName() const;
    nucs::cString fileExtension() const;

    /// Replaces the name part by `name`, or appends `name` to a path that is taken as a directory.
    static void setFileName(nucs::cString& path, nucs::cString name, bool asDirectory);
    /// Replaces the directory part.
    static void setFilePath(nucs::cString& path, nucs::cString const& directory);
    /// Puts `prefix` in front of the name part unless that starts with it.
    static void setFileNamePrefix(nucs::cString& path, nucs::cString const& prefix);
    /// Puts `suffix` before the first "." of the name part, or at its end, unless it stands there already.
    static void setFileNameSuffix(nucs::cString& path, nucs::cString const& suffix);
    /// Replaces what the name part has from its first "." on; the extension brings its own ".".
    static void setFileNameExtension(nucs::cString& path, nucs::cString const& extension);

private:
    cFs const* mpFs; ///< not owned
    nstd::tSharedObject<cAbstractFileInfoImpl> mpImpl;
};

} // namespace nio
