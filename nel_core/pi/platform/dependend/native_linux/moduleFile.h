#pragma once

#include "nel_core/std/cAsciiString.h"

namespace npi {

/// What keeps a file from being a shared object that this process can load, in words; empty when nothing
/// does.
///
/// The dynamic linker does not come back from a fifo, and touches memory that is not there when a file has
/// been cut or a header is damaged. So this looks first: a regular file, of this process's kind of ELF, whose
/// tables and segments lie inside of it; the segments are in order, within one gigabyte, and those that the
/// linker uses in memory are loaded there. What they hold, the dynamic section too, is not looked at: a
/// shared object is code, and one that means harm is not stopped here. Nor is a file that changes between the
/// look and the loading; install modules by renaming.
nstd::cAsciiString moduleFileProblem(char const* path);

} // namespace npi
