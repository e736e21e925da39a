#pragma once

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tVector.h"

/// The file names of this example's modules that are mapped into the process, each once, as the system tells
/// in /proc/self/maps. Raises nstd::cOSErrorException when that cannot be read.
nstd::tVector<nstd::cAsciiString> mappedModules();
