#include "nel_core/io/fileName.h"

#include <string_view>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/ucs/cAbstractEnDec.h"
#include "nel_core/ucs/cString.h"

namespace nio {
namespace {

std::u32string_view trimmed(std::u32string_view path)
{
    while (path.size() > 1 && path.back() == U'/')
        path.remove_suffix(1);
    return path;
}

} // namespace

bool isHiddenName(nucs::cString const& path)
{
    std::u32string_view name = trimmed(path);
    auto const slash = name.rfind(U'/');
    if (slash != std::u32string_view::npos)
        name.remove_prefix(slash + 1);
    return !name.empty() && name.front() == U'.' && name != U"." && name != U"..";
}

nucs::cString withoutTrailingSlash(nucs::cString const& path)
{
    return nucs::cString(trimmed(path));
}

nucs::cString asDirectory(nucs::cString const& path)
{
    nucs::cString directory(path);
    if (!path.empty() && path[path.length() - 1] != '/')
        directory.append('/');
    return directory;
}

void endWithSeparator(nucs::cString& path)
{
    if (path.empty())
        return;
    auto const last = path[path.length() - 1];
    if (last != '/' && last != '\\')
        path.append('/');
}

nucs::cString decodedPath(nstd::cAsciiString const& bytes, nucs::cAbstractEnDec const& codec)
{
    nucs::cString path;
    codec.decode(nstd::tConstArrayRef<char>(bytes), path);
    return path;
}

} // namespace nio
