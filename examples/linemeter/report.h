#pragma once

#include "nel_core/std/fwd.h"

/// Writes an exception with everything that led to it to standard error, a line each.
void report(char const* introduction, nstd::cAbstractException const& error);
/// The same in a single line.
void reportLine(char const* introduction, nstd::cAbstractException const& error);
