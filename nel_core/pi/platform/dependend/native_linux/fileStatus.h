#pragma once

#include <sys/stat.h>

#include "nel_core/io/cFileInfoFlags.h"
#include "nel_core/io/fwd.h"
#include "nel_core/pi/platform/dependend/native_linux/osError.h"
#include "nel_core/std/fwd.h"

/// What the system tells of a file, in our terms.
namespace npi {

/// Gives 0, or -1 with errno.
int readStatus(tEncodedName const& name, bool followLinks, struct stat& status);

/// To the second.
nstd::cDateTime timeStampOf(struct stat const& status, nio::cFileInfoFlags::TimeStamp which);
nio::cFileInfoFlags::FileType typeOf(mode_t mode);
nio::cPermissions permissionsOf(mode_t mode);
mode_t modeOf(nio::cPermissions const& permissions);

} // namespace npi
