#include "nel_core/pi/piStackTrace.h"

#include <atomic>
#include <cstdlib>
#include <cxxabi.h>
#include <dlfcn.h>
#include <execinfo.h>

#include "nel_core/pi/platform/dependend/native_linux/cLinuxStdErr.h"
#include "nel_core/std/cNumberConversionFormat.h"

namespace {

constexpr unsigned int kMaxFrames = 128;
char const* const kOutermost = "main";

std::atomic_flag gDumping = ATOMIC_FLAG_INIT;

// The first trace of a process loads the unwinder, which takes memory; afterwards a trace takes none, so that
// an exception can be made when memory has run out.
__attribute__((constructor)) void loadUnwinder()
{
    void* frame[1];
    ::backtrace(frame, 1);
}

constexpr unsigned int clampedDepth(unsigned int depth)
{
    if (depth < 1)
        return 1;
    return depth < kMaxFrames ? depth : kMaxFrames;
}

// Only mangled names are handed to the demangler: it would read the C function "i" as the type int.
nstd::cAsciiString demangled(char const* name)
{
    if (name[0] != '_' || name[1] != 'Z')
        return nstd::cAsciiString(name);
    struct cFree {
        ~cFree() { std::free(text); }
        char* text;
    } const result = {abi::__cxa_demangle(name, nullptr, nullptr, nullptr)};
    return nstd::cAsciiString(result.text ? result.text : name);
}

nstd::cAsciiString addressText(void* address)
{
    nstd::cNumberConversionFormat const hexadecimal(16);
    nstd::cAsciiString text("0x");
    text.addUNum(reinterpret_cast<piAddress>(address), hexadecimal);
    return text;
}

nstd::cAsciiString frameText(piAddress address)
{
    nstd::cAsciiString text;
    piResolveAddress(address, text);
    return text;
}

} // namespace

void piBackTrace(piAddress* buffer, unsigned int n)
{
    n = clampedDepth(n);
    void* frames[kMaxFrames];
    auto const captured = static_cast<unsigned int>(::backtrace(frames, static_cast<int>(n)));
    for (unsigned int i = 0; i < n; ++i)
        buffer[i] = i < captured ? reinterpret_cast<piAddress>(frames[i]) : 0;
    buffer[n - 1] = 0;
}

nstd::cAsciiString tryResolveAddrToSymbol(void* address, bool& resolved)
{
    Dl_info info;
    resolved = ::dladdr(address, &info) != 0 && info.dli_sname && info.dli_saddr;
    return resolved ? demangled(info.dli_sname) : addressText(address);
}

bool piResolveAddress(piAddress address, nstd::cAsciiString& out)
{
    bool resolved = false;
    out = tryResolveAddrToSymbol(reinterpret_cast<void*>(address), resolved);
    return resolved;
}

nstd::cAsciiString piStackTrace(unsigned int depth)
{
    depth = clampedDepth(depth);
    piAddress frames[kMaxFrames];
    piBackTrace(frames, depth);

    nstd::cAsciiString trace("\n\n");
    nstd::cAsciiString indentation;
    for (unsigned int i = 0; i < depth; ++i) {
        nstd::cAsciiString name;
        if (frames[i] != 0) {
            name = frameText(frames[i]);
            trace += indentation;
            trace += name;
        }
        trace += "\n";
        if (name == kOutermost)
            break;
        indentation += "  ";
    }
    return trace;
}

unsigned int piStackTrace(unsigned int depth, nstd::cAsciiString* out)
{
    if (depth == 0)
        return 0;
    depth = clampedDepth(depth);
    piAddress frames[kMaxFrames];
    piBackTrace(frames, depth);

    unsigned int stored = 0;
    for (unsigned int i = 0; i < depth; ++i) {
        if (frames[i] == 0)
            continue;
        out[stored] = frameText(frames[i]);
        if (out[stored++] == kOutermost)
            break;
    }
    return stored;
}

void piStackDump() noexcept
{
    if (gDumping.test_and_set())
        return;
    try {
        nstd::cAsciiString text("Stackdump: \n");
        text += piStackTrace(kMaxFrames);
        text += "\n";
        npi::cLinuxStdErr::write(text.c_str(), text.length());
    } catch (...) {
        npi::cLinuxStdErr::write("Stackdump: \n\n", 13);
    }
    gDumping.clear();
}
