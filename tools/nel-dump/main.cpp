#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <string_view>

#include "cStreamDump.h"
#include "nel_core/pi/cAbstractOut.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/tArray.h"

namespace {

constexpr char kUsage[] = "usage: nel-dump FILE\n"
                          "Prints a binary stream as an indented tree; - stands for standard input.\n"
                          "  --help  show this text\n";
constexpr unsigned int kReadSize = 64 * 1024;
constexpr unsigned int kGrowStep = 18; // 256 KiB

// Keeps the debug output still while it lives: a damaged stream is no fault of the program.
class cSilence : public npi::cAbstractOut {
public:
    cSilence() { npi::system().debug.link(this); }
    ~cSilence() override { npi::system().debug.link(nullptr); }
    void printChar(char) override { }
};

bool readAll(std::FILE* file, nstd::tArray<char>& data)
{
    static char buffer[kReadSize];
    data.setGrowStep(kGrowStep);
    std::size_t count = 0;
    while ((count = std::fread(buffer, 1, sizeof(buffer), file)) != 0)
        data.append(buffer, static_cast<unsigned int>(count));
    return std::ferror(file) == 0;
}

bool readInput(char const* name, nstd::tArray<char>& data)
{
    bool const isStandard = std::strcmp(name, "-") == 0;
    std::FILE* const file = isStandard ? stdin : std::fopen(name, "rb");
    bool const isGood = file && readAll(file, data);
    if (!isGood)
        std::fprintf(stderr, "nel-dump: cannot read %s: %s\n", name, std::strerror(errno));
    if (file && !isStandard)
        std::fclose(file);
    return isGood;
}

bool write(std::string_view text)
{
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
}

int dump(char const* name)
{
    nstd::tArray<char> data;
    if (!readInput(name, data))
        return 1;
    cSilence const silence;
    auto const result = cStreamDump(cStreamDump::tBytesRef(data), write).run();
    if (result == cStreamDump::rsNotWritten || std::fflush(stdout) != 0) {
        std::fprintf(stderr, "nel-dump: cannot write: %s\n", std::strerror(errno));
        return 1;
    }
    return result == cStreamDump::rsWhole ? 0 : 1;
}

int dumpSafely(char const* name)
{
    try {
        return dump(name);
    } catch (nstd::cAbstractException const&) {
        std::fprintf(stderr, "nel-dump: %s is too long\n", name); // nothing else is raised while it is read
    } catch (std::bad_alloc const&) {
        std::fputs("nel-dump: out of memory\n", stderr);
    }
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    bool const isHelp = argc == 2 && std::strcmp(argv[1], "--help") == 0;
    if (isHelp)
        return std::fputs(kUsage, stdout) < 0 || std::fflush(stdout) != 0 ? 1 : 0;
    if (argc != 2 || (argv[1][0] == '-' && argv[1][1] != 0)) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    return dumpSafely(argv[1]);
}
