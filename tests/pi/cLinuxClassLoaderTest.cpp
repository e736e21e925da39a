#include <dlfcn.h>
#include <elf.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <link.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/cModuleLoadException.h"
#include "nel_core/ncs/cModuleMgr.h"
#include "nel_core/nelVersion.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/platform/dependend/native_linux/cLinuxClassLoader.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/cRuntimeException.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/expectMessage.h"
#include "tests/support/modules.h"
#include "tests/support/raisedBy.h"

namespace fs = std::filesystem;
using ncs::cModuleLoadException;
using npi::cLinuxClassLoader;
using ntest::isMapped;
using ntest::moduleFile;
using ntest::named;
using tHeader = ElfW(Ehdr);
using tSegment = ElfW(Phdr);

namespace {

/// A folder for damaged files.
class cLinuxClassLoaderTest : public ntest::cSystemFixture {
protected:
    void SetUp() override
    {
        cSystemFixture::SetUp();
        ASSERT_NE(::mkdtemp(folder), nullptr);
    }
    void TearDown() override
    {
        fs::remove_all(folder);
        cSystemFixture::TearDown();
    }

    std::string inFolder(char const* name) const { return std::string(folder) + '/' + name; }
    /// A file with the bytes of a good module up to `size`, after `change`.
    std::string written(std::size_t size, std::function<void(tHeader&)> const& change = nullptr)
    {
        auto bytes = good.substr(0, size);
        if (change)
            change(*reinterpret_cast<tHeader*>(bytes.data()));
        std::ofstream(inFolder("damaged.so"), std::ios::binary) << bytes;
        return inFolder("damaged.so");
    }

    char folder[32] = "/tmp/nelModulesXXXXXX";
    std::string const good = ntest::contentOf(moduleFile("goodPlugIn"));
    nsa::cReferenceFrame frame;
};

// In pages. Sanitizers keep freed blocks for a while.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr long kGrowthMax = 16384;
#else
constexpr long kGrowthMax = 256;
#endif

unsigned int openDescriptors()
{
    fs::directory_iterator const all("/proc/self/fd");
    return static_cast<unsigned int>(std::distance(fs::begin(all), fs::end(all)));
}

// The step must raise the kind of problem with the words and the name of the file, and leave nothing behind.
template<typename Step>
void expectProblem(std::string const& file, cModuleLoadException::KindOfProblem kind,
                   std::string const& words, Step&& step)
{
    SCOPED_TRACE(file + ": " + words);
    auto const error = ntest::raisedBy<cModuleLoadException>(step);
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->problem(), kind);
    EXPECT_EQ(ntest::text(error->fileName()), file);
    EXPECT_NE(ntest::messageOf(*error).find(words), std::string::npos) << ntest::messageOf(*error);
    EXPECT_FALSE(isMapped(file));

    unsigned int descriptors = 0;
    long long memory = 0;
    for (int i = 0; i < 3; ++i) { // what the first times make may stay
        descriptors = openDescriptors();
        memory = ntest::cFailingMemory::inUse();
        EXPECT_THROW(step(), cModuleLoadException);
        EXPECT_FALSE(isMapped(file));
    }
    EXPECT_EQ(openDescriptors(), descriptors);
    EXPECT_EQ(ntest::cFailingMemory::inUse(), memory);
}

void expectNotLoadable(std::string const& file, std::string const& words,
                       cModuleLoadException::KindOfProblem kind = cModuleLoadException::kpNotLoaded)
{
    expectProblem(file, kind, words, [&] { cLinuxClassLoader loader(named(file)); });
}

} // namespace

TEST_F(cLinuxClassLoaderTest, countsTheModulesOfAGoodObjectAndUnmapsItWithTheLoader)
{
    auto const file = moduleFile("goodPlugIn");
    {
        cLinuxClassLoader loader(named(file));
        EXPECT_EQ(ntest::text(loader.libFileName()), file);
        unsigned int version[4] = {};
        loader.getModuleVersion(version[0], version[1]);
        loader.getModuleNELVersion(version[2], version[3]);
        EXPECT_EQ(std::vector<unsigned int>(version, version + 4),
                  (std::vector<unsigned int>{3, 14, NEL_VERSION_MAJOR, NEL_VERSION_MINOR}));

        auto first = loader.instance(frame);
        auto second = loader.instance(frame);
        first->setClassLoader(&loader, nstd::cAsciiString());
        second->setClassLoader(&loader, nstd::cAsciiString());
        EXPECT_EQ(loader.numReferences(), 2u);
        first.reset(nullptr, nstd::tAutoPtrType::ptObject);
        EXPECT_FALSE(loader.isUnused());
        second.reset(nullptr, nstd::tAutoPtrType::ptObject);
        EXPECT_TRUE(loader.isUnused());
        EXPECT_TRUE(isMapped(file));

        EXPECT_THROW(loader.loadLibrary(named(moduleFile("noInit"))), cModuleLoadException);
        EXPECT_FALSE(isMapped(file));
        EXPECT_TRUE(isMapped(moduleFile("noInit"))) << "until the loader goes";
        EXPECT_THROW(static_cast<void>(loader.instance(frame)), cModuleLoadException);
    }
    EXPECT_FALSE(isMapped(moduleFile("noInit")));
}

TEST_F(cLinuxClassLoaderTest, tellsWhatIsWrongWithAFileAndLeavesNothingOfIt)
{
    auto const invalid = cModuleLoadException::kpInvalidModule;
    expectNotLoadable(moduleFile("noInit"), "Invalid module. Missing moduleInit section!", invalid);
    expectNotLoadable(moduleFile("noVersion"), "Invalid module. Missing moduleVersion section!", invalid);
    expectNotLoadable(moduleFile("noNelVersion"), "Invalid module. Missing nelVersion section!", invalid);

    ASSERT_EQ(::mkfifo(inFolder("fifo").c_str(), 0600), 0);
    std::ofstream(inFolder("text")) << std::string(1000, 'x');
    std::ofstream(inFolder("empty"));
    expectNotLoadable("", "Unable to load plugin. OS returned empty file name!");
    expectNotLoadable("libnowhere\xc3\xbc.so", "libnowhere\xc3\xbc.so: cannot open shared object file");
    expectNotLoadable(inFolder("missing"), "OS returned No such file or directory!");
    expectNotLoadable(inFolder("."), "OS returned not a regular file!");
    expectNotLoadable(inFolder("fifo"), "OS returned not a regular file!");
    expectNotLoadable(inFolder("text"), "OS returned not an ELF file!");
    expectNotLoadable(inFolder("empty"), "OS returned too short for an ELF file!");
    expectNotLoadable(moduleFile("unresolved"), "undefined symbol: _Z9isNowherev");
}

TEST_F(cLinuxClassLoaderTest, survivesDamagedHeaders)
{
    struct {
        char const* words;
        void (*change)(tHeader&);
    } const rows[] = {
        {"another kind of processor", [](auto& h) { h.e_ident[EI_CLASS] ^= 3; }},
        {"another kind of processor", [](auto& h) { h.e_machine = EM_ARM; }},
        {"unknown version", [](auto& h) { h.e_version = 9; }},
        {"not a shared object", [](auto& h) { h.e_type = ET_REL; }},
        {"damaged table of segments", [](auto& h) { h.e_phnum = 0xfffe; }},
        {"damaged table of segments", [](auto& h) { h.e_phentsize = 1; }},
        {"damaged table of sections", [](auto& h) { h.e_shentsize = 1; }},
        {"shorter than it says", [](auto& h) { h.e_phoff = ~decltype(h.e_phoff)(0) - 8; }},
        {"shorter than it says", [](auto& h) { h.e_shoff = ~decltype(h.e_shoff)(0) - 8; }},
    };
    for (auto const& row : rows)
        expectNotLoadable(written(good.size(), row.change), row.words);
}

// The first segment of a type is changed. The first one to load is not writable.
TEST_F(cLinuxClassLoaderTest, survivesSegmentsThatLie)
{
    struct {
        char const* name;
        unsigned int type;
        void (*change)(tSegment&);
    } const rows[] = {
        {"end of the memory", PT_LOAD, [](auto& s) { s.p_memsz = ~s.p_memsz; }},
        {"beyond the next one", PT_LOAD, [](auto& s) { s.p_memsz = s.p_filesz = (&s)[1].p_vaddr + 1; }},
        {"too high", PT_LOAD, [](auto& s) { s.p_vaddr = 0x7ffff000; }},
        {"not at a page", PT_LOAD, [](auto& s) { ++s.p_vaddr; }},
        {"unreadable", PT_LOAD, [](auto& s) { s.p_flags = PF_X; }},
        {"zeroed but not writable", PT_LOAD, [](auto& s) { ++s.p_memsz; }},
        {"nothing is executable", PT_LOAD, [](auto& s) { (&s)[1].p_flags = (&s)[0].p_flags = PF_R; }},
        {"no dynamic section", PT_DYNAMIC, [](auto& s) { s.p_type = PT_NULL; }},
        {"two dynamic sections", PT_NOTE, [](auto& s) { s.p_type = PT_DYNAMIC; }},
        {"dynamic section not loaded", PT_DYNAMIC, [](auto& s) { s.p_vaddr += 0x100000; }},
        {"dynamic section not writable", PT_DYNAMIC, [](auto& s) { s.p_vaddr = s.p_offset = 0; }},
        {"not what the file has there", PT_NOTE, [](auto& s) { s.p_offset += 4; }},
        {"longer than its memory", PT_GNU_EH_FRAME, [](auto& s) { ++s.p_filesz; }},
        {"not a power of two", PT_GNU_EH_FRAME, [](auto& s) { s.p_align = 3; }},
        {"protects the code", PT_GNU_RELRO, [](auto& s) { s.p_vaddr = s.p_offset = 0; }},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        auto const change = [&](tHeader& header) {
            auto* segment = reinterpret_cast<tSegment*>(reinterpret_cast<char*>(&header) + header.e_phoff);
            while (segment->p_type != row.type)
                ++segment;
            row.change(*segment);
        };
        expectNotLoadable(written(good.size(), change), "damaged table of segments");
    }
}

TEST_F(cLinuxClassLoaderTest, survivesAFileThatIsCutAnywhere)
{
    for (std::size_t size = 0; size < good.size(); size += size < 64 ? 1 : size / 16)
        expectNotLoadable(written(size), size < sizeof(tHeader) ? "too short for an ELF" : "shorter than");
    expectNotLoadable(written(good.size() - 1), "shorter than it says!");
}

TEST_F(cLinuxClassLoaderTest, tellsThatAModuleDoesNotMakeWhatIsAskedFor)
{
    ncs::cModuleMgr manager(npi::system().coreExtensions);
    auto const expectNone = [&](std::string const& file, bool asComponent, std::string const& words) {
        expectProblem(file, cModuleLoadException::kpNoInstance, words, [&] {
            cLinuxClassLoader loader(named(file));
            asComponent ? (void)loader.instance(frame, manager) : (void)loader.instance(frame);
        });
    };
    auto const nothing = moduleFile("nullInstance"), component = moduleFile("goodComponent");
    expectNone(component, false, "File " + component + " is not a plugin!");
    expectNone(nothing, false, "Plugin (" + nothing + ") does not provide functionality!");
    expectNone(moduleFile("goodPlugIn"), true, "cClassLoader: No component!");
    expectNone(nothing, true, "cClassLoader: No instance!");
}

TEST_F(cLinuxClassLoaderTest, keepsTheObjectOfAnExceptionThatLeavesIt)
{
    auto const file = moduleFile("throwingEntry");
    ncs::cModuleMgr manager(npi::system().coreExtensions);
    for (int i = 0; i < 3; ++i) {
        std::exception_ptr raised;
        unsigned int loaded = 0;
        try {
            cLinuxClassLoader loader(named(file));
            loaded = ntest::mappings(file);
            static_cast<void>(loader.instance(frame, manager));
        } catch (...) {
            raised = std::current_exception();
        }
        EXPECT_EQ(ntest::mappings(file), loaded);
        try {
            std::rethrow_exception(raised);
        } catch (std::runtime_error const& error) {
            EXPECT_STREQ(error.what(), "component");
        }
        ntest::expectMessage<nstd::cRuntimeException>(
            [&] { static_cast<void>(cLinuxClassLoader(named(file)).instance(frame)); }, "No gauge 7!");
    }
}

// In a process of its own: the dynamic linker stays locked for other threads.
TEST_F(cLinuxClassLoaderTest, survivesAStaticConstructorThatRaises)
{
    auto const file = moduleFile("throwingStatic");
    auto const load = [&] {
        for (int i = 0; i < 3; ++i)
            expectNotLoadable(file, "OS returned a static constructor has raised an exception!");
        cLinuxClassLoader(named(moduleFile("goodPlugIn")));
        ::_exit(HasFailure() ? 1 : 0);
    };
    EXPECT_EXIT(load(), testing::ExitedWithCode(0), "");
}

TEST_F(cLinuxClassLoaderTest, unmapsAModuleAThousandTimes)
{
    auto const file = moduleFile("goodPlugIn");
    auto const residentPages = [] {
        std::ifstream statm("/proc/self/statm");
        long size = 0, resident = 0;
        statm >> size >> resident;
        return resident;
    };
    long long memory = 0;
    long pages = 0;
    for (int i = 0; i < 1000; ++i) {
        if (i == 100) {
            memory = ntest::cFailingMemory::inUse();
            pages = residentPages();
        }
        {
            cLinuxClassLoader loader(named(file));
            auto const plugIn = loader.instance(frame);
        }
        ASSERT_EQ(::dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
    }
    EXPECT_FALSE(isMapped(file));
    EXPECT_EQ(ntest::cFailingMemory::inUse(), memory);
    EXPECT_LT(residentPages() - pages, kGrowthMax);
}
