#pragma once

#include "nel_core/export.h"
#include "nel_core/ucs/fwd.h"

namespace nucs {

/// Reads plain translation files, which hold entries and comments:
///
///     // what stands behind two slashes is a comment
///     "Unable to read %file%!" = "%file% ist nicht lesbar!"
///
/// Inside of the quotes a backslash makes the next character an ordinary one. Keys become ASCII, with "?" for
/// every other character. Whatever else stands between the entries is passed over. Both operations raise what
/// nio::cFs::fileOpenRead() raises for a file that cannot be read or is no regular file, and
/// cSTDExceptions::throwTextParseError() with the format "tr", the line from 0 and the column 0 for a damaged
/// one; the entries before the damage are in the table then.
class NEL_EXPORT cLITranslationLoader {
public:
    /// Clears the table and fills it from a file.
    static void loadFile(cString const& path, cLITrTable& table);
    /// Adds the entries of a file; they do not replace what the table has for their keys.
    static void patchFromFile(cString const& path, cLITrTable& table);
};

} // namespace nucs
