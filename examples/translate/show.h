#pragma once

#include <cstdio>

#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

/// Writes the text as UTF-8.
void show(std::FILE* file, nucs::cString const& text);
/// Writes an exception and everything that led to it in the language of the locale, a line each.
void show(std::FILE* file, nstd::cAbstractException const& error, nucs::cLILocale const& locale);
