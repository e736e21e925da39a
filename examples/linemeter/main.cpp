#include <cstdio>
#include <cstring>
#include <new>
#include <unistd.h>

#include "cLineMeter.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/cWqDebug.h"
#include "nel_core/std/cAbstractException.h"
#include "report.h"

namespace {

constexpr char kUsage[] = "usage: linemeter [--fail] [--status] [FILE...]\n"
                          "Counts the lines, bytes and code points of the files, or of standard input.\n"
                          "  --fail    let a handler fail until the queue stops its work\n"
                          "  --status  show the state of the work queue and the graph of works at the end\n"
                          "  --help    show this text\n";

struct cOptions {
    bool fail = false;
    bool status = false;
    bool help = false;
    nstd::tArray<char const*> files;
};

bool parse(int argc, char** argv, cOptions& options)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--fail") == 0)
            options.fail = true;
        else if (std::strcmp(argv[i], "--status") == 0)
            options.status = true;
        else if (std::strcmp(argv[i], "--help") == 0)
            options.help = true;
        else if (argv[i][0] == '-')
            return false;
        else
            options.files.append(argv[i]);
    }
    return true;
}

void showSummary(cTextCounter const& counter)
{
    std::printf("lines:       %llu\nbytes:       %llu\ncode points: %llu\nbad bytes:   %llu\n",
                counter.lines(), counter.bytes(), counter.codePoints(), counter.badBytes());
}

void showStatus()
{
    npi::system().workQueue.debugDump();
    std::fputs(npi::cWqDebug::dot(nullptr).c_str(), stdout);
}

// The main loop. What no handler has taken ends one cycle and not the program.
bool run(cLineMeter&& meter, cOptions const& options)
{
    while (!meter.isDone()) {
        try {
            npi::cSystem::exec();
        } catch (nstd::cAbstractException const& error) {
            report("out of the main loop: ", error);
        }
    }
    showSummary(meter.counter());
    if (options.status)
        showStatus();
    return !meter.hasFailed() && std::fflush(stdout) == 0;
}

bool runSafely(cOptions const& options)
{
    try {
        npi::system();
        bool const isGood = options.files.empty() ? run(cLineMeter(STDIN_FILENO, options.fail), options)
                                                  : run(cLineMeter(options.files, options.fail), options);
        npi::cSystem::cleanup();
        return isGood;
    } catch (nstd::cAbstractException const& error) {
        report("linemeter: ", error);
    } catch (std::bad_alloc const&) {
        std::fputs("linemeter: out of memory\n", stderr);
    }
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    cOptions options;
    if (!parse(argc, argv, options)) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    if (options.help) {
        std::fputs(kUsage, stdout);
        return 0;
    }
    return runSafely(options) ? 0 : 1;
}
