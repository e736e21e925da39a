#include "nel_core/io/cMemoryFileInfoImpl.h"

#include <cerrno>

#include "nel_core/io/cPermissions.h"
#include "nel_core/io/fileName.h"
#include "nel_core/io/memoryAccess.h"

namespace nio {

cMemoryFileInfoImpl::cMemoryFileInfoImpl(cFs const& fs, nucs::cString const& path,
                                         nstd::tSharedObject<cMemoryTree> const& tree)
    : cAbstractFileInfoImpl(fs),
      msPath(path),
      mpTree(tree)
{
}

cMemoryFileInfoImpl::~cMemoryFileInfoImpl() = default;

nstd::cDateTime cMemoryFileInfoImpl::timeStamp(cFileInfoFlags::TimeStamp which, bool) const
{
    return stampOf(*node("stat"), which);
}

nucs::cString const& cMemoryFileInfoImpl::filePath() const
{
    return msPath;
}

nucs::cString cMemoryFileInfoImpl::readLink() const
{
    node("readlink");
    throwMemoryError("readlink", EINVAL, msPath);
}

unsigned long long cMemoryFileInfoImpl::size(bool) const
{
    return node("stat")->bytes.size();
}

cFileInfoFlags::FileType cMemoryFileInfoImpl::type(bool) const
{
    return node("stat")->isDirectory ? cFileInfoFlags::ftDir : cFileInfoFlags::ftFile;
}

cPermissions cMemoryFileInfoImpl::readPermissions(bool) const
{
    auto const stored = node("stat")->permissions;
    return cPermissions(isHiddenName(msPath) ? stored | cPermissions::pmHidden : stored);
}

tMemoryNode cMemoryFileInfoImpl::node(char const* operation) const
{
    return requireNode(*requireTree(mpTree, operation, msPath), operation, msPath);
}

} // namespace nio
