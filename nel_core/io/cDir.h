#pragma once

#include "nel_core/export.h"
#include "nel_core/io/cAbstractDirImpl.h"
#include "nel_core/io/cDirInfo.h"
#include "nel_core/io/fwd.h"
#include "nel_core/std/tConstListRef.h"

namespace nio {

/// Walks the entries of a directory, in the order in which the file system gives them.
///
/// Opening raises nstd::cOSErrorException ("opendir"). A name that the file system's codec refuses raises the
/// codec's error; the walk has gone on then and can be continued. A copy walks on its own. The file system
/// must outlive the object.
class NEL_EXPORT cDir : public nstd::tConstListRefNode<cDirInfo> {
public:
    /// What to leave out.
    enum DirFlags : int {
        dfSkipDot = 1,    ///< the entry "."
        dfSkipDotDot = 2, ///< the entry ".."
    };

    /// At the first entry.
    cDir(cFs const& fs, nucs::cString const& path, int flags);
    /// On the system's file system.
    explicit cDir(nucs::cString const& path, int flags = 0);
    explicit cDir(char const* path, int flags = 0);
    cDir(cDir const& other);
    cDir(cDir&& other) noexcept;
    cDir& operator=(cDir other) noexcept;
    ~cDir() override;

    /// Goes to the next entry.
    void setNext() override;
    bool isEnd() const override;
    /// The entry, valid until setNext(). A directory that has been moved away fails the assertion
    /// "mpImpl.get() != 0".
    cDirInfo const& element() const override;
    [[nodiscard]] nstd::tAutoPtr<nstd::tConstListRefNode<cDirInfo>> createNodeCopy() const override;
    /// The entries from here on.
    nstd::tConstListRef<cDirInfo> list() const;

    /// Both at the end, or at the same entry of the same directory.
    bool operator==(cDir const& other) const;
    bool operator!=(cDir const& other) const { return !(*this == other); }

private:
    cAbstractDirImpl& impl() const;

    nstd::tAutoPtr<cAbstractDirImpl> mpImpl;
};

} // namespace nio
