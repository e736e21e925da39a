#pragma once

#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

namespace nio {

/// Replaces `bytes` by the content of a regular file of the system's file system, read to its end whatever
/// its size was. Raises what cFs::fileOpenRead() and cFile::read() raise, also for what is no regular file;
/// such a one is not opened. `bytes` are as before then. Internal to the library.
void readWholeFile(nucs::cString const& path, nstd::tArray<char>& bytes);

} // namespace nio
