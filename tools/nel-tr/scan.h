#pragma once

#include <string_view>

#include "cKeyList.h"

/// Finds the translatable message keys of a file: in the read-only data of an ELF file, in any other file
/// with zero bytes as texts that end with one, else in C++ source text, in string literals that begin with
/// the marker. Comments do not count, literals side by side are one.
void scanFile(std::string_view content, cKeyList& keys);
