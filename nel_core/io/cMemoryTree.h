#pragma once

#include <string_view>

#include "nel_core/io/cMemoryBytes.h"
#include "nel_core/std/cTime.h"
#include "nel_core/std/tSharedObject.h"
#include "nel_core/std/tSharedObjectWatch.h"
#include "nel_core/std/tVector.h"
#include "nel_core/ucs/cString.h"

/// What the memory file system is made of. Internal to it.
namespace nio {

struct cMemoryNode;
using tMemoryNode = nstd::tSharedObject<cMemoryNode>;

struct cMemoryEntry {
    nucs::cString name;
    tMemoryNode node;
};

/// A file or a directory. It lives as long as an entry or something open holds it.
struct cMemoryNode {
    explicit cMemoryNode(bool directory);

    /// The index of the first entry whose name is not smaller, or the number of entries.
    unsigned int placeOf(std::u32string_view name) const;
    /// The entry's index; the number of entries when there is none.
    unsigned int find(std::u32string_view name) const;

    bool const isDirectory;
    unsigned int permissions;
    nstd::cTime accessed, modified, changed;
    cMemoryBytes bytes;                           ///< of a file
    nstd::tVector<cMemoryEntry> entries;          ///< of a directory, by name
    nstd::tSharedObjectWatch<cMemoryNode> parent; ///< of a directory; empty for the root
};

/// Where a path leads.
struct cMemoryPlace {
    tMemoryNode node;         ///< what is there, if anything
    tMemoryNode directory;    ///< what has, or would have, the entry; empty where no entry can be
    nucs::cString name;       ///< of the entry
    bool asDirectory = false; ///< the path ends with a separator
    int error = 0;            ///< why nothing is there
};

/// The files and directories below a prefix. Nothing in it goes by recursion: trees may be deep.
///
/// Changes give an error number, or 0; then, and when memory runs out, nothing has changed.
class cMemoryTree {
public:
    /// `prefix` ends with a separator.
    explicit cMemoryTree(nucs::cString const& prefix);
    cMemoryTree(cMemoryTree const&) = delete;
    cMemoryTree& operator=(cMemoryTree const&) = delete;
    ~cMemoryTree();

    nucs::cString const& prefix() const noexcept { return msPrefix; }
    /// Whether the path is the prefix, with or without its separator.
    bool isPrefix(nucs::cString const& path) const;
    /// Whether the path is the prefix or lies below it, "." and ".." considered.
    bool isBelow(nucs::cString const& path) const;
    cMemoryPlace find(nucs::cString const& path) const;

    /// Makes the entry that `place` says is missing.
    static tMemoryNode create(cMemoryPlace const& place, bool directory);
    static int remove(cMemoryPlace const& place);
    static int rename(cMemoryPlace const& from, cMemoryPlace const& to);
    /// Removes the entry, with all that is below it.
    static void removeTree(cMemoryNode& directory, std::u32string_view name) noexcept;

private:
    static void empty(tMemoryNode const& directory) noexcept;
    static void removeEntry(cMemoryNode& directory, std::u32string_view name) noexcept;

    nucs::cString msPrefix;
    tMemoryNode mpRoot;
};

} // namespace nio
