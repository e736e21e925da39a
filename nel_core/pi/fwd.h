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
class cPIExceptions;
class cUnsupportedPlatformException;

} // namespace npi
