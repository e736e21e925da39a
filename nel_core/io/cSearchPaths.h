#pragma once

#include "nel_core/export.h"
#include "nel_core/io/fwd.h"
#include "nel_core/std/tVector.h"
#include "nel_core/ucs/cString.h"

namespace nio {

/// Directories in which a relative file name is looked up, one after the other.
///
/// Nothing here raises because of what the file system holds: an entry that is missing or cannot be looked at
/// is not found. The file system must outlive the object.
class NEL_EXPORT cSearchPaths {
public:
    /// What an entry must be to be found; with any other value nothing is.
    enum Type : unsigned int {
        stFile = 0,
        stDirectory = 1,
        stFileOrDirectory = 2,
    };

    /// Empty, on the system's file system or the given one.
    cSearchPaths();
    explicit cSearchPaths(cFs const& fs);
    cSearchPaths(cSearchPaths const& other);
    cSearchPaths& operator=(cSearchPaths const& other);
    ~cSearchPaths();
    void swap(cSearchPaths& other) noexcept;

    /// Appends a directory; false when the same text is there already.
    bool addPath(nucs::cString const& directory);
    /// Appends the directories of `other` that are not there.
    void add(cSearchPaths const& other);
    /// Removes the directory with that text.
    void removePath(nucs::cString const& directory);
    void clear();

    unsigned int size() const noexcept { return maDirectories.size(); }
    /// Directory `index` in the order of the search, unchecked.
    nucs::cString const& operator[](unsigned int index) const noexcept { return maDirectories[index]; }

    /// Whether there is such an entry; symbolic links are followed.
    bool exists(nucs::cString const& path, Type type) const;
    /// Finds `name` below the first directory that has it, and makes `result` that directory with the name
    /// behind it, not normalised; empty when none has it.
    void tryFindFile(nucs::cString const& name, nucs::cString& result, Type type) const;
    nucs::cString tryFindFile(nucs::cString const& name, Type type) const;
    /// Replaces `out` by the places where `name` may be, normalised and each once: one for every directory;
    /// for an absolute name that name alone.
    void candidates(nucs::cString const& name, nstd::tVector<nucs::cString>& out) const;
    /// The same, without those that do not exist; an absolute name is not checked.
    void existingCandidates(nucs::cString const& name, nstd::tVector<nucs::cString>& out, Type type) const;

private:
    template<typename Accepts>
    void collect(nucs::cString const& name, nstd::tVector<nucs::cString>& out, Accepts const& accepts) const;

    cFs const* mpFs; ///< not owned
    nstd::tVector<nucs::cString> maDirectories;
};

} // namespace nio
