#pragma once

#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "nel_core/io/cFs.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/ucs/cAbstractEnDec.h"
#include "nel_core/ucs/cString.h"

namespace ntest {

/// The name of a test module, as modules are loaded by, and its file.
inline std::string moduleName(std::string const& name)
{
    return NEL_MODULE_DIR "/" + name;
}
inline std::string moduleFile(std::string const& name)
{
    return NEL_MODULE_DIR "/lib" + name + ".so";
}

/// A file's name as the library takes it.
inline nucs::cString named(std::string const& file)
{
    nucs::cString name;
    npi::system().fs.endec().decode(nstd::tConstArrayRef<char>(nstd::cAsciiString(file.c_str())), name);
    return name;
}

inline std::string contentOf(std::string const& file)
{
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

/// The number of parts of the file that are mapped.
inline unsigned int mappings(std::string const& file)
{
    std::ifstream maps("/proc/self/maps");
    unsigned int count = 0;
    for (std::string line; std::getline(maps, line);)
        count += !file.empty() && line.find(file) != std::string::npos;
    return count;
}

/// Whether anything of the file is mapped, or the dynamic linker believes so. Frees the linker's last text.
inline bool isMapped(std::string const& file)
{
    void* handle = nullptr;
    if (std::filesystem::is_regular_file(file))
        handle = ::dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle)
        ::dlclose(handle);
    ::dlerror(); // takes the text
    ::dlerror(); // frees it
    return handle || mappings(file) > 0;
}

} // namespace ntest
