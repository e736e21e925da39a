#pragma once

class cNETExceptions;

/// Forward declarations of the folder.
namespace nce {

class cUnsupportedExtensionException;

} // namespace nce
