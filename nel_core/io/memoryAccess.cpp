#include "nel_core/io/memoryAccess.h"

#include <cerrno>

#include "nel_core/std/cOSErrorException.h"

namespace nio {
namespace {

nstd::cTime const& timeOf(cMemoryNode const& node, cFileInfoFlags::TimeStamp which)
{
    if (which == cFileInfoFlags::tsLastAccess)
        return node.accessed;
    return which == cFileInfoFlags::tsLastStatusChange ? node.changed : node.modified;
}

} // namespace

void throwMemoryError(char const* operation, int code)
{
    throw nstd::cOSErrorException(operation, code);
}

void throwMemoryError(char const* operation, int code, nucs::cString const& path)
{
    throw nstd::cOSErrorException(operation, code, path);
}

nstd::tSharedObject<cMemoryTree> requireTree(nstd::tSharedObjectWatch<cMemoryTree> const& tree,
                                             char const* operation, nucs::cString const& path)
{
    auto const found = tree.lock();
    if (!found)
        throwMemoryError(operation, ENODEV, path);
    return found;
}

tMemoryNode requireNode(cMemoryTree const& tree, char const* operation, nucs::cString const& path)
{
    auto const place = tree.find(path);
    if (!place.node)
        throwMemoryError(operation, place.error, path);
    return place.node;
}

nstd::cDateTime stampOf(cMemoryNode const& node, cFileInfoFlags::TimeStamp which)
{
    return nstd::cDateTime(nstd::cTime(timeOf(node, which).toSec() * 1000000));
}

void renameInMemory(cMemoryTree const& tree, nucs::cString const& from, nucs::cString const& to)
{
    int const refusal = cMemoryTree::rename(tree.find(from), tree.find(to));
    if (refusal != 0)
        throwMemoryError("rename", refusal, from);
}

} // namespace nio
