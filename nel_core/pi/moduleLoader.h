#pragma once

#include "nel_core/pi/cAbstractClassLoader.h"
#include "nel_core/std/tAutoPtr.h"

/// What all those who load modules by name share.
namespace npi {

/// The file name of the module of that name on this platform: "dir/gauge" is in "dir/libgauge.so".
nucs::cString moduleFileName(nucs::cString name);
/// A loader that has loaded that file. Raises as cPlatform::createClassLoader() does.
[[nodiscard]] nstd::tAutoPtr<cAbstractClassLoader> loadModule(nucs::cString const& name);

} // namespace npi
