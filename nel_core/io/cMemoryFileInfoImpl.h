#pragma once

#include "nel_core/io/cAbstractFileInfoImpl.h"
#include "nel_core/io/cMemoryTree.h"

namespace nio {

/// Answers about a path of a memory file system. Internal to it.
class cMemoryFileInfoImpl : public cAbstractFileInfoImpl {
public:
    cMemoryFileInfoImpl(cFs const& fs, nucs::cString const& path,
                        nstd::tSharedObject<cMemoryTree> const& tree);
    ~cMemoryFileInfoImpl() override;

    nstd::cDateTime timeStamp(cFileInfoFlags::TimeStamp which, bool followLinks) const override;
    nucs::cString const& filePath() const override;
    /// Always raises: nothing is a link.
    nucs::cString readLink() const override;
    /// 0 for a directory.
    unsigned long long size(bool followLinks) const override;
    cFileInfoFlags::FileType type(bool followLinks) const override;
    cPermissions readPermissions(bool followLinks) const override;

private:
    tMemoryNode node(char const* operation) const;

    nucs::cString msPath;
    nstd::tSharedObjectWatch<cMemoryTree> mpTree;
};

} // namespace nio
