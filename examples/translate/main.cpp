#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include "cLanguage.h"
#include "cRecordReader.h"
#include "nel_core/io/cFs.h"
#include "nel_core/pi/cSystem.h"
#include "show.h"

namespace {

constexpr char kUsage[] = "usage: translate [--watch[=CHANGES]] [DIRECTORY]\n"
                          "Shows an error in English, German, Austrian German and French, from the locale "
                          "files in DIRECTORY.\n"
                          "  --watch  load a file again when it changes, until interrupted or until so many "
                          "changes\n"
                          "  --help   show this text\n";

constexpr char kWatch[] = "--watch=";

struct cOptions {
    bool watch = false;
    bool help = false;
    unsigned long changes = 0; ///< 0 for no end
    char const* directory = NEL_EXAMPLE_DIR;
};

bool parseChanges(char const* text, unsigned long& changes)
{
    char* end = nullptr;
    changes = std::strtoul(text, &end, 10);
    return *text >= '0' && *text <= '9' && *end == 0 && changes > 0;
}

bool parse(int argc, char** argv, cOptions& options)
{
    int directories = 0;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--help") == 0) {
            options.help = true;
        } else if (std::strcmp(argv[i], "--watch") == 0) {
            options.watch = true;
        } else if (std::strncmp(argv[i], kWatch, sizeof(kWatch) - 1) == 0) {
            options.watch = true;
            if (!parseChanges(argv[i] + sizeof(kWatch) - 1, options.changes))
                return false;
        } else if (argv[i][0] == '-' || ++directories > 1) {
            return false;
        } else {
            options.directory = argv[i];
        }
    }
    return true;
}

nucs::cString pathOf(char const* directory, char const* file)
{
    nucs::cString path;
    npi::system().fs.endec().decode(nstd::tArray<char>(directory), path);
    path += "/";
    path += file;
    return path;
}

// One cycle of the main loop. What no handler has taken ends the cycle and not the program.
void runCycle()
{
    try {
        npi::cSystem::exec();
    } catch (nstd::cAbstractException const& error) {
        std::fputs("out of the main loop:\n", stderr);
        show(stderr, error, npi::system().locale);
    }
}

void watch(cLanguage& german, cLanguage& austrian, cLanguage& french, unsigned long changes)
{
    german.watch();
    austrian.watch();
    french.watch();
    std::puts("Watching the locale files...\n");
    std::fflush(stdout);
    while (changes == 0 || german.changes() + austrian.changes() + french.changes() < changes)
        runCycle();
}

bool run(cOptions const& options)
{
    cRecordReader reader;
    while (!reader.isDone())
        runCycle();
    if (!reader.error()) {
        std::fputs("translate: the file is not missing\n", stderr);
        return false;
    }
    auto const& error = *reader.error();
    cLanguage german(pathOf(options.directory, "de.tr"), error);
    cLanguage austrian(pathOf(options.directory, "de-AT.tr"), error);
    cLanguage french(pathOf(options.directory, "fr.tr"), error);
    austrian.link(german);

    show("English", error, npi::system().locale); // has no translations: the texts of the program itself
    german.show();
    austrian.show();
    french.show();
    if (options.watch)
        watch(german, austrian, french, options.changes);
    return std::fflush(stdout) == 0;
}

bool runSafely(cOptions const& options)
{
    try {
        npi::system();
        bool const isGood = run(options);
        npi::cSystem::cleanup();
        return isGood;
    } catch (nstd::cAbstractException const& error) {
        std::fputs("translate:\n", stderr);
        show(stderr, error, npi::system().locale);
    } catch (std::bad_alloc const&) {
        std::fputs("translate: out of memory\n", stderr);
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
