#pragma once

#include "nel_core/std/tArray.h"
#include "nel_core/ucs/fwd.h"

/// The numbers at the beginning of the lines of a file, as far as these end in its first 4096 bytes. Lines
/// that begin with a blank are left out. Raises nstd::cRuntimeException, with the cause linked, when the file
/// cannot be read, a line begins with something else, or there is no number at all.
nstd::tArray<double> readValues(nucs::cString const& path);
