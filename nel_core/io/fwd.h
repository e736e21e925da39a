#pragma once

/// Forward declarations of the folder, and its enumerations.
namespace nio {

class cPath;
class cPermissions;
class cFs;
class cAbstractFsImpl;
class cProxyFs;
class cMemoryFs;
class cFileInfo;
struct cFileInfoFlags;
class cAbstractFileInfoImpl;
class cDir;
class cDirInfo;
class cAbstractDirImpl;
class cAbstractIODevice;
class cAbstractIOBlockDevice;
class cIOBlockDeviceImpl;
class cFile;
class cAbstractFileImpl;
class cFileWatch;
class cSearchPaths;
class cIOExceptions;

/// What a file is opened for.
enum OpenMode : unsigned int {
    omRead = 0,
    omWrite = 1,
    omReadWrite = 2,
};
/// What happens when a file that is opened for writing is missing.
enum CreateMode : unsigned int {
    cmMustExist = 0,    ///< it is an error
    cmCreate = 1,       ///< it is created
    cmCreateAlways = 2, ///< the same
};
/// Where writing starts; any other value overwrites.
enum WriteMode : unsigned int {
    wmAppend = 0,    ///< every write goes to the end
    wmTruncate = 1,  ///< the file is emptied when it is opened
    wmOverwrite = 2, ///< at the start
};
/// What a position counts from; any other value means the start.
enum SeekMode : unsigned int {
    smStart = 0,
    smCurrent = 1,
    smEnd = 2,
};

} // namespace nio
