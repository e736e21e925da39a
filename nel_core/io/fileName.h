#pragma once

#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

/// What file systems share about the texts of paths.
namespace nio {

/// Whether the last component begins with "." and is neither "." nor "..". Separators behind it do not count.
bool isHiddenName(nucs::cString const& path);
/// The path without separators at its end; a root stays "/".
nucs::cString withoutTrailingSlash(nucs::cString const& path);
/// The path with a "/" at its end; an empty one stays empty.
nucs::cString asDirectory(nucs::cString const& path);
/// Appends a "/" unless the path is empty or ends in "/" or "\".
void endWithSeparator(nucs::cString& path);
/// The path whose bytes these are. Raises what the codec raises.
nucs::cString decodedPath(nstd::cAsciiString const& bytes, nucs::cAbstractEnDec const& codec);

} // namespace nio
