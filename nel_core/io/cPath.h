#pragma once

#include "nel_core/export.h"
#include "nel_core/io/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/std/tArrayHashTraits.h"
#include "nel_core/ucs/cString.h"

namespace nio {

/// Where operations take one of these, they ignore it: the cache is always the system's, if there is one
/// (npi::cGlobalCaches::createPathFixupHash()).
using tPathHash = nstd::tHash<nucs::cString, nucs::cString, nstd::tArrayHashTraits<1024>>;

/// The upper-case letter of a drive prefix such as "d:", or 0.
NEL_EXPORT char driveLetter(nucs::cString const& path);
/// Whether a path starts neither with "/" nor with a drive prefix.
NEL_EXPORT bool isRelative(nucs::cString const& path);
/// Makes `out` of `in`: "." for an empty text, "/" for every "\", a "/" at the end, without drive prefix,
/// and normalised if asked to. Gives the letter of the drive; 0 without one, and where the normalised path
/// climbs above its start. `out` may be `in`.
NEL_EXPORT char setPath(nucs::cString const& in, nucs::cString& out, bool fixup, tPathHash* = nullptr);
/// Normalises a path that ends in "/": resolves "." and ".." components and repeated separators. A relative
/// path stays relative: "a/..//b/" becomes "b/", and "a/../C:/" becomes "./C:/". `aboveStart` tells whether
/// the result begins with ".." components; not for a result that comes from the cache.
NEL_EXPORT void fixupPath(nucs::cString& path, bool& aboveStart, tPathHash* = nullptr);

/// The path of a directory in a form that is the same on every platform: "/" is the only separator and the
/// last character, "." and ".." are resolved as far as they can be, a drive letter is kept apart.
///
/// Nothing fails on odd texts: they are normalised as far as possible. A value of one thread at a time.
class NEL_EXPORT cPath {
public:
    /// The current working directory.
    cPath(tPathHash* hash = nullptr);
    /// As set().
    cPath(nucs::cString const& path, bool fixup = true, tPathHash* hash = nullptr);
    void swap(cPath& other) noexcept;

    /// Replaces the path as nio::setPath() does, and gives the drive letter.
    char set(nucs::cString const& path, bool fixup = true, tPathHash* hash = nullptr);
    /// Normalises the text. A path that climbs above its start loses its drive letter.
    void fixup(tPathHash* hash = nullptr);
    /// Goes to `path`: an absolute one replaces this one; a relative one is appended and not normalised. An
    /// empty text changes nothing.
    void cd(nucs::cString const& path);
    void cd(cPath const& path) { cd(path.path()); }
    /// Puts `base` in front of a relative path, normalised. The drive is that of an absolute base, if it has
    /// one; a result above its start has none.
    void makeAbsolute(cPath const& base, tPathHash* hash = nullptr);
    /// Rewrites an absolute path as seen from the absolute path `base`, without drive; "./" when they are
    /// equal. Changes nothing when one of them is relative or the drives differ.
    void makeRelative(cPath const& base);

    /// The path with the drive in front, if it is absolute and has one.
    nucs::cString path() const;
    /// The same with the platform's separators.
    nucs::cString osPath() const;
    /// The path without drive.
    nucs::cString const& unixEquivalent() const noexcept { return msPath; }
    /// 'A' to 'Z', or 0.
    char driveLetter() const noexcept { return mcDrive; }
    bool isRelative() const { return nio::isRelative(msPath); }
    bool isAbsolute() const { return !isRelative(); }
    static bool isRelative(nucs::cString const& path) { return nio::isRelative(path); }
    static bool isAbsolute(nucs::cString const& path) { return !nio::isRelative(path); }
    /// Component `n` of path(), counted behind its first "/", without separators; empty when there are fewer.
    nucs::cString getPart(unsigned int n) const;
    /// path() up to and with its "/" number `n`, counted from 0 without one at the very start: for 0 and 1
    /// "/a/" and "/a/b/", with a drive "D:/" and "D:/a/". Empty when there are fewer.
    nucs::cString getParts(unsigned int n) const;
    /// `fileName` as seen from this directory: with an absolute directory part as it is, otherwise behind
    /// this path, normalised and absolute.
    nucs::cString relativeTo(nucs::cString const& fileName) const;

    /// Equal drives and equal normalised texts.
    bool operator==(cPath const& other) const;
    bool operator!=(cPath const& other) const { return !(*this == other); }

    /// Whether there is such a directory, on the system's file system unless another one is given.
    bool exists(cFs* fs = nullptr) const;
    /// Creates the directory with all that lead to it; raises as cFs::createPath() does.
    void mkdir(cFs* fs = nullptr);

    /// The length of the directory part of a file name: up to its last "/" or "\", or the ":" of a drive
    /// prefix; all of it when it ends in "." or ".."; 0 without one.
    static unsigned int pathComponentLength(nucs::cString const& fileName);
    /// Replaces `out` by the directory part of a file name, ending in a separator; "./" without one.
    static void storePathComponent(nucs::cString const& fileName, nucs::cString& out);

private:
    nucs::cString msPath; ///< without drive
    char mcDrive = 0;
};

} // namespace nio
