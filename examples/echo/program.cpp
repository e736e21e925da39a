#include "program.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/ucs/cString.h"

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

// Keeps the debug output quiet while it lives: what is wrong is told in one line.
class cSilence : public npi::cAbstractOut {
public:
    cSilence() { npi::system().debug.link(this); }
    ~cSilence() override { npi::system().debug.link(nullptr); }

    void printChar(char) override { }
};

bool parseMilliseconds(char const* text, unsigned int& value)
{
    if (*text < '0' || *text > '9')
        return false;
    char* end = nullptr;
    errno = 0;
    unsigned long const number = std::strtoul(text, &end, 10);
    value = static_cast<unsigned int>(number);
    return *end == 0 && errno == 0 && number > 0 && number <= INT_MAX;
}

// The status to end with, or negative to go on.
int parse(cProgram const& program, int argc, char** argv, cArguments& arguments)
{
    for (int i = 1; i < argc; ++i) {
        char const* const argument = argv[i];
        bool const hasValue = i + 1 < argc;
        if (std::strcmp(argument, "--help") == 0) {
            std::fputs(program.usage, stdout);
            return 0;
        }
        if (std::strcmp(argument, program.addressOption) == 0 && hasValue) {
            arguments.address = argv[++i];
        } else if (program.isClient && std::strcmp(argument, "--timeout") == 0 && hasValue) {
            if (!parseMilliseconds(argv[++i], arguments.timeout))
                return refuseArgument(program.name, "not a number of milliseconds", argv[i]);
        } else if (argument[0] == '-' || !program.isClient || arguments.file) {
            return refuseArgument(program.name, "an argument too many, or without its value (see --help)",
                                  argument);
        } else {
            arguments.file = argument;
        }
    }
    if (arguments.address)
        return -1;
    return refuseArgument(program.name, "missing (see --help)", program.addressOption);
}

int runSafely(cProgram const& program, cArguments const& arguments)
{
    try {
        cSilence const silence;
        try {
            return program.run(arguments);
        } catch (nstd::cAbstractException const& error) {
            report(program.name, error);
        }
    } catch (nstd::cAbstractException const& error) { // there is no system
        report(program.name, error);
    } catch (std::bad_alloc const&) {
        std::fprintf(stderr, "%s: out of memory\n", program.name);
    }
    return kFailed;
}

} // namespace

int runProgram(cProgram const& program, int argc, char** argv)
{
    cArguments arguments;
    int status = parse(program, argc, argv, arguments);
    if (status >= 0)
        return status;
    status = runSafely(program, arguments);
    npi::cSystem::cleanup();
    if (std::fflush(stdout) == 0)
        return status;
    std::fprintf(stderr, "%s: standard output cannot be written\n", program.name);
    return kFailed;
}

int refuseArgument(char const* program, char const* what, char const* argument)
{
    std::fprintf(stderr, "%s: \"%s\" is %s\n", program, argument, what);
    return kWrongUsage;
}

void report(char const* program, nstd::cAbstractException const& error)
{
    nucs::cString text;
    error.createMessage(text, " ", nstd::cAbstractException::mfHistory, nullptr);
    std::fprintf(stderr, "%s: %s\n", program, text.ascii().c_str());
}
