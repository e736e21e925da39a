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

class cUnsupportedExtensionException;

} // namespace nce
