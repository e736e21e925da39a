#pragma once

#include "nel_core/io/cFileInfoFlags.h"
#include "nel_core/io/cMemoryTree.h"
#include "nel_core/std/cDateTime.h"

/// What the classes of the memory file system share.
namespace nio {

/// Raises nstd::cOSErrorException.
[[noreturn]] void throwMemoryError(char const* operation, int code);
[[noreturn]] void throwMemoryError(char const* operation, int code, nucs::cString const& path);
/// The tree, unless its file system is gone: raises ENODEV then.
nstd::tSharedObject<cMemoryTree> requireTree(nstd::tSharedObjectWatch<cMemoryTree> const& tree,
                                             char const* operation, nucs::cString const& path);
/// What the path leads to; raises why there is nothing.
tMemoryNode requireNode(cMemoryTree const& tree, char const* operation, nucs::cString const& path);
/// To the second, as files of the operating system.
nstd::cDateTime stampOf(cMemoryNode const& node, cFileInfoFlags::TimeStamp which);
/// Does what cMemoryTree::rename() does, and raises what it refuses.
void renameInMemory(cMemoryTree const& tree, nucs::cString const& from, nucs::cString const& to);

} // namespace nio
