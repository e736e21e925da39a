#pragma once

#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

namespace nucs {

/// Replaces `bytes` by the content of a regular file of the system's file system, read to its end whatever
/// its size was. Raises what nio::cFs::fileOpenRead() raises, also for what is no regular file; such a one is
/// not opened. Internal to the library.
void readTranslationFile(cString const& path, nstd::tArray<char>& bytes);

} // namespace nucs
