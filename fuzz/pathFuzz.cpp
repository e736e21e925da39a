#include "fuzz/fuzzInput.h"

#include <string_view>

#include "nel_core/io/cPath.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/tHash.h"
#include "nel_core/ucs/cString.h"

// Takes the bytes for two paths with a zero between them: a directory, and what is seen from there.
namespace {

using nio::cPath;
using nucs::cString;

std::u32string_view view(cString const& text)
{
    return text;
}

bool isWhole(cString const& path)
{
    return !path.empty() && path[path.length() - 1] == '/';
}

cString fixedUp(cString path, bool& aboveStart)
{
    nio::fixupPath(path, aboveStart);
    return path;
}

cString replaced(cString text)
{
    text.replace('\\', '/');
    return text;
}

// Whether ".." components are found at the start alone, and only where `aboveStart` says so.
void checkParents(std::u32string_view path, bool aboveStart)
{
    FUZZ_CHECK((path.substr(0, 3) == U"../") == aboveStart);
    while (path.substr(0, 3) == U"../")
        path.remove_prefix(3);
    FUZZ_CHECK(path.find(U"/../") == path.npos);
}

void checkNormalised(cString const& in)
{
    cString plain;
    char const drive = nio::setPath(in, plain, false);
    FUZZ_CHECK(drive == nio::driveLetter(in) && isWhole(plain) && !plain.contains('\\'));

    cString path;
    bool aboveStart = false;
    char const kept = nio::setPath(in, path, true);
    FUZZ_CHECK(fixedUp(plain, aboveStart) == path);
    FUZZ_CHECK(kept == (aboveStart ? 0 : drive));
    FUZZ_CHECK(isWhole(path) && view(path).find(U"//") == std::u32string_view::npos);
    FUZZ_CHECK(view(path).find(U"/./") == std::u32string_view::npos);
    FUZZ_CHECK(path.length() <= plain.length());
    checkParents(path, aboveStart);

    bool isAbove = false;
    FUZZ_CHECK(fixedUp(path, isAbove) == path && isAbove == aboveStart);
}

void checkCached(cString const& in)
{
    auto& caches = npi::system().caches;
    bool aboveStart = false;
    bool isAbove = false;
    bool isAboveCached = true;
    auto const path = fixedUp(in, aboveStart);
    caches.createPathFixupHash();
    FUZZ_CHECK(fixedUp(in, isAbove) == path && isAbove == aboveStart);
    FUZZ_CHECK(fixedUp(in, isAboveCached) == path && !isAboveCached);
    caches.clear();
}

// getParts() gives what is before the parts of getPart(), a drive's root first.
void checkParts(cPath const& path)
{
    cString const whole = path.path();
    unsigned int n = 0;
    for (cString last; n < 100; ++n) {
        cString const parts = path.getParts(n);
        if (parts.empty())
            break;
        FUZZ_CHECK(isWhole(parts) && parts.length() > last.length());
        FUZZ_CHECK(view(whole).substr(0, parts.length()) == view(parts));
        if (view(whole).front() == '/')
            FUZZ_CHECK(view(parts).substr(last.empty() ? view(parts).find('/') + 1 : last.length())
                       == view(path.getPart(n) + "/"));
        last = parts;
    }
    FUZZ_CHECK(n == 100 || path.isRelative() || path.getPart(n).empty());
}

void checkRelative(cPath const& path, cPath const& base)
{
    cPath relative(path);
    relative.makeRelative(base);
    auto const isRooted = [](cPath const& one) { return view(one.unixEquivalent()).front() == '/'; };
    if (!isRooted(path) || !isRooted(base) || path.driveLetter() != base.driveLetter()) {
        FUZZ_CHECK(relative == path);
        return;
    }
    FUZZ_CHECK(relative.isRelative() && relative.driveLetter() == 0);
    relative.makeAbsolute(base);
    FUZZ_CHECK(relative.path() == path.path() && relative == path);
}

void checkRelativeTo(cPath const& base, cString const& name)
{
    cString directory;
    cPath::storePathComponent(name, directory);
    unsigned int const length = cPath::pathComponentLength(name);
    cString const file(view(name).substr(length));
    FUZZ_CHECK(isWhole(replaced(directory)) && view(file).find_first_of(U"/\\") == std::u32string_view::npos);

    cString const seen = base.relativeTo(name);
    if (cPath::isAbsolute(directory)) {
        FUZZ_CHECK(seen == name);
        return;
    }
    FUZZ_CHECK(cPath::isAbsolute(seen) && view(seen).substr(seen.length() - file.length()) == view(file));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    cFuzzInput const input(data, size);
    cString all;
    for (char const c : input.bytes)
        all.append(static_cast<unsigned char>(c));
    auto const zero = view(all).find(U'\0');
    cString const first(view(all).substr(0, zero));
    cString const second(view(all).substr(zero == std::u32string_view::npos ? all.length() : zero + 1));

    npi::system();
    cMemoryBound const bound(size);
    checkNormalised(first);
    checkCached(first);
    cPath const base(first);
    cPath const path(second);
    checkParts(path);
    FUZZ_CHECK(cPath(path.path()).path() == path.path());
    checkRelative(path, base);
    checkRelativeTo(base, second);
    return 0;
}
