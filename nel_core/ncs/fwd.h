#pragma once

class cNCSExceptions;

/// Forward declarations of the folder.
namespace ncs {

class cComponentAddr;
class cComponentLocation;
class cModuleInfo;

class cInterfaceDesc;
class cAbstractInterface;
class cRegisteredInterface;
class cAbstractInterfaceProvider;
class cAbstractModule;
class cAbstractComponent;
class cAbstractPlugIn;

class cManagedComponent;
class cModuleMgr;
class cModuleMgrImpl;
class cMatchedDependency;
class cInterfaceDep;
class cPlugInGuard;
class cPlugInMgr;
class cComponentLoader;

class cModuleLoadException;
class cNoPublicInterfaceException;
class cNoSuchModuleException;
class cRMIException;
class cUnmatchedInterfaceException;

} // namespace ncs
