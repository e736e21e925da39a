#pragma once

class cNCSExceptions;

/// Forward declarations of the folder.
namespace ncs {

class cNoPublicInterfaceException;
class cNoSuchModuleException;
class cUnmatchedInterfaceException;

} // namespace ncs
