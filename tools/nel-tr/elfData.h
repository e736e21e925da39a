#pragma once

#include <string_view>
#include <vector>

/// Whether the bytes begin like an ELF file of this machine's byte order.
bool isElf(std::string_view file);
/// The sections of read-only data of an ELF file of either width; all of the file when it has no sections, or
/// damaged ones.
std::vector<std::string_view> readOnlyData(std::string_view file);
