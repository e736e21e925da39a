#pragma once

#include "nel_core/export.h"

namespace nio {

/// What can be asked of a file.
struct NEL_EXPORT cFileInfoFlags {
    /// Which time; any other value means the last modification.
    enum TimeStamp : unsigned int {
        tsLastAccess = 0,
        tsLastModification = 1,
        tsLastStatusChange = 2,
    };
    enum FileType : unsigned int {
        ftFile = 0, ///< and whatever is none of the others
        ftDir = 1,
        ftCharDevice = 2,
        ftBlockDevice = 3,
        ftPipe = 4,
        ftSymLink = 5,
        ftSocket = 6,
    };
};

} // namespace nio
