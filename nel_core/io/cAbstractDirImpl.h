#pragma once

#include "nel_core/export.h"
#include "nel_core/io/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/ucs/cString.h"

namespace nio {

/// What walks a directory on a file system; it stands at the first entry when it is made.
class NEL_EXPORT cAbstractDirImpl {
public:
    /// Directory flags beside those of cDir, for walks that remove a tree. A file system may ignore them.
    enum RemovalFlags : int {
        rfNoFollow = 4, ///< opening raises when the path is a symbolic link
        rfAnyName = 8,  ///< names that the codec refuses are given byte by byte
    };

    cAbstractDirImpl(cFs const& fs, nucs::cString const& path) : mFs(fs), msPath(path) { }
    cAbstractDirImpl(cAbstractDirImpl const&) = delete;
    cAbstractDirImpl& operator=(cAbstractDirImpl const&) = delete;
    virtual ~cAbstractDirImpl();

    /// Goes to the next entry that is not skipped, or to the end.
    virtual void setNext() = 0;
    /// The entry here.
    virtual cDirInfo const& element() const = 0;
    virtual bool isEnd() const = 0;
    /// Another walk that stands at the same entry.
    [[nodiscard]] virtual nstd::tAutoPtr<cAbstractDirImpl> createCopy() const = 0;
    /// A walk of what must be removed before removeEntry(): the entry's own entries if it is a directory,
    /// null otherwise. Symbolic links are not entered, also where one has taken the directory's place
    /// meanwhile. Goes by the entry's path unless overridden, as removeEntry() does; an implementation that
    /// can goes by the open directory, so that nothing outside of it is reached whatever becomes of its path.
    [[nodiscard]] virtual nstd::tAutoPtr<cAbstractDirImpl> enterEntry() const;
    /// Removes the entry, an empty directory or anything else; the walk stays where it is. What is gone
    /// already is left alone.
    virtual void removeEntry();

    cFs const& fs() const noexcept { return mFs; }
    /// The directory as it was given; in a walk that enterEntry() made, it may be the entry's name alone.
    nucs::cString const& path() const noexcept { return msPath; }

private:
    cFs const& mFs;
    nucs::cString msPath;
};

} // namespace nio
