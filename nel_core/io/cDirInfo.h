#pragma once

#include "nel_core/export.h"
#include "nel_core/io/fwd.h"
#include "nel_core/ucs/cString.h"

namespace nio {

/// One entry of a directory: its full path.
class NEL_EXPORT cDirInfo {
public:
    /// A mark that file systems may give their paths; it means nothing here.
    enum StackedFsPath : unsigned int { sfpPlain = 0, sfpStacked = 1 };

    /// An empty path on the system's file system.
    cDirInfo();
    explicit cDirInfo(cFs const& fs);
    cDirInfo(nucs::cString const& path, StackedFsPath stacked);

    /// Appends the text as it is.
    void appendPath(char const* text);
    void appendPath(nucs::cString const& text);
    /// Empties the path and takes the mark away.
    void clear();

    nucs::cString const& fullPath() const noexcept { return msPath; }
    operator nucs::cString() const { return msPath; }
    bool isStackedPath() const noexcept { return mbStacked; }
    /// The same path on the same file system.
    bool operator==(cDirInfo const& other) const;
    bool operator!=(cDirInfo const& other) const { return !(*this == other); }

private:
    cFs const* mpFs; ///< not owned
    nucs::cString msPath;
    bool mbStacked = false;
};

} // namespace nio
