#pragma once

class cNETExceptions;

/// Forward declarations of the folder.
namespace nce {

class cAbstractCoreExtension;
class cNetAbstractAddressExtension;
class cAbstractSAExtension;
class cAbstractEnDecExtension;
class cStandardEnDecExtension;
class cBinarySAExtension;
class cGenericExtension;
class cGenericPlugIn;
class cExtensionPair;
class cCoreExtensionMgr;

class cNetAbstractAddress;
class cNetAbstractIPAddress;
class cNetAbstractIPv4Address;
class cNetAbstractIPCapInfo;
class cNetAbstractSocket;
class cNetAbstractConnection;
class cNetAbstractServer;
class cNetAbstractClient;

class cUnsupportedExtensionException;

} // namespace nce
