#pragma once

class cAbstractNELApp;

/// Forward declarations of the folder.
namespace npi {

class cAbstractOut;
class cDebugStdErr;
class cDebugEntry;
class cSystem;
class cPlatform;
class cGlobalCaches;
class cSysTime;
class cWork;
class cWorkStat;
class cWorkQueue;
class cWqDebug;
class cAbstractProcessEvents;
class cAbstractAIOData;
class cFDAIOData;
struct tFdInfo;
class cAbstractMutexImpl;
class cAbstractRunnableImpl;
class cAbstractPlatformInfo;
class cLinuxPlatformInfo;
class cAbstractClassLoader;
class cLinuxClassLoader;
class cLinuxFsImpl;
class cLinuxFileInfoImpl;
class cLinuxDirImpl;
class cLinuxFileImpl;
class cPIExceptions;
class cUnsupportedPlatformException;

} // namespace npi
