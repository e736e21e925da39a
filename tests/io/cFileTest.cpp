#include "nel_core/io/cFile.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/std/cDateTime.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tConstArrayRef.h"
#include "tests/io/cFsFixture.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/expectMessage.h"

namespace {

using nio::cFile;
using tView = nstd::tConstArrayRef<char>;

// The soft limit of the size of files while it lives; what passes it is written in part, then refused.
class cFileSizeLimit {
public:
    explicit cFileSizeLimit(rlim_t bytes) : mpHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &mOld);
        rlimit const limit{bytes, mOld.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    cFileSizeLimit(cFileSizeLimit const&) = delete;
    cFileSizeLimit& operator=(cFileSizeLimit const&) = delete;
    ~cFileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &mOld);
        std::signal(SIGXFSZ, mpHandler);
    }

private:
    void (*mpHandler)(int);
    rlimit mOld;
};

class cFileTest : public ntest::cFsFixture {
protected:
    void SetUp() override
    {
        setUp(native);
        miDescriptors = descriptors();
    }
    void TearDown() override
    {
        EXPECT_EQ(descriptors(), miDescriptors);
        cFsFixture::TearDown();
    }

    std::string path(char const* name = "file") const { return msRoot + name; }
    nucs::cString nelPath(char const* name = "file") const { return nucs::cString(path(name).c_str()); }
    void put(std::string const& bytes) const { std::ofstream(path()) << bytes; }
    std::string content() const
    {
        std::ifstream file(path());
        return std::string(std::istreambuf_iterator<char>(file), {});
    }
    /// Expects the error that open() has wrapped.
    template<typename Callable>
    static void expectOpenError(Callable&& call, std::string const& path, int code)
    {
        auto const error = ntest::raisedBy<nstd::cRuntimeException>(call);
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::messageOf(*error), "Unable to open file \"" + path + "\"!");
        auto const* const cause = dynamic_cast<nstd::cOSErrorException const*>(error->history());
        ASSERT_NE(cause, nullptr);
        expectOSErrorCode([&] { throw *cause; }, "open", code);
        EXPECT_EQ(ntest::text(cause->file()), path);
    }
    bool exists() const { return std::filesystem::exists(path()); }
    cFile opened(nio::OpenMode mode, nio::WriteMode write = nio::wmOverwrite) const
    {
        return cFile(path().c_str(), mode, nio::cmCreate, write);
    }
    static long descriptors()
    {
        std::filesystem::directory_iterator const all("/proc/self/fd");
        return std::distance(begin(all), end(all));
    }

private:
    long miDescriptors = 0;
};

TEST_F(cFileTest, modesDecideWhereWritingStarts)
{
    struct {
        nio::OpenMode mode;
        nio::WriteMode write;
        char const* result;
    } const rows[] = {
        {nio::omWrite, nio::wmAppend, "0123456789XY"},   {nio::omReadWrite, nio::wmAppend, "0123456789XY"},
        {nio::omWrite, nio::wmTruncate, "XY"},           {nio::omReadWrite, nio::wmOverwrite, "XY23456789"},
        {nio::omWrite, nio::WriteMode(9), "XY23456789"},
    };
    for (auto const& row : rows) {
        put("0123456789");
        cFile file = opened(row.mode, row.write);
        file.seek(0, nio::smStart);
        EXPECT_EQ(file.write("XY", 2), 2u);
        EXPECT_EQ(content(), row.result);
    }
    auto reading = fs().fileOpenRead(nelPath());
    EXPECT_EQ(content(), "XY23456789") << "opening to read changes nothing";
    char bytes[10];
    EXPECT_EQ(reading.seek(-4, nio::smEnd), 6u);
    EXPECT_EQ(reading.seek(1, nio::smCurrent), 7u);
    EXPECT_EQ(reading.seek(6, nio::SeekMode(7)), 6u);
    EXPECT_FALSE(reading.eof());
    EXPECT_EQ(reading.read(bytes, 10), 4u);
    EXPECT_TRUE(reading.eof());
    expectOSErrorCode([&] { reading.write("x", 1); }, "write", EBADF);
    expectOSErrorCode([&] { reading.seek(-1, nio::smStart); }, "seek", EINVAL);
}

TEST_F(cFileTest, whatCannotBeOpenedSaysWhy)
{
    auto const open = [&](nucs::cString const& name, nio::OpenMode mode, nio::CreateMode create,
                          bool follow) {
        cFile file(fs(), name);
        file.open(name, mode, create, nio::wmOverwrite, follow);
    };
    expectOpenError([&] { open(nelPath(), nio::omRead, nio::cmCreate, true); }, path(), ENOENT);
    expectOpenError([&] { open(nelPath(), nio::omWrite, nio::cmMustExist, true); }, path(), ENOENT);
    ASSERT_EQ(symlink("target", path("link").c_str()), 0);
    expectOpenError([&] { open(nelPath("link"), nio::omWrite, nio::cmCreate, false); }, path("link"), ELOOP);
    auto cut = nelPath();
    cut.append(0u);
    expectOpenError([&] { open(cut + "x", nio::omWrite, nio::cmCreate, true); }, path() + '\0' + 'x', EINVAL);
    EXPECT_FALSE(exists());
    expectOpenError([] { cFile("", nio::omRead, nio::cmMustExist, nio::wmAppend); }, "", ENOENT);
}

TEST_F(cFileTest, aFileThatIsNotOpenIsNotStandardInput)
{
    cFile file(fs(), "");
    char byte = 0;
    struct {
        char const* operation;
        std::function<void()> call;
    } const rows[] = {
        {"read", [&] { file.read(&byte, 0); }},
        {"write", [&] { file.write(&byte, 1); }},
        {"seek", [&] { file.seek(0, nio::smStart); }},
        {"seek", [&] { file.pos(); }},
        {"seek", [&] { file.size(); }},
        {"truncate", [&] { file.truncate(0); }},
        {"flush", [&] { file.flush(); }},
        {"stat", [&] { file.lastModified(); }},
        {"mmap", [&] { file.mmap(); }},
    };
    for (auto const& row : rows)
        expectOSErrorCode(row.call, row.operation, 77);
    file.close();
    file.setRemoveOnClose();
    expectOSErrorCode([&] { file.close(); }, "unlink", ENOENT);
}

TEST_F(cFileTest, aDescriptorIsNeverZero)
{
    int const input = dup(0);
    close(0);
    cFile file = opened(nio::omWrite);
    EXPECT_EQ(fcntl(0, F_GETFD), -1);
    if (input >= 0) {
        dup2(input, 0);
        close(input);
    }
    EXPECT_EQ(file.write("x", 1), 1u);
    EXPECT_EQ(content(), "x");
}

TEST_F(cFileTest, changedBytesReachTheirFileAndNoOther)
{
    put("0123456789");
    {
        cFile file = opened(nio::omReadWrite);
        file.proxyAt(0) = 'a';
        cFile other(fs(), "");
        other.swap(file);
        other.proxyAt(9) = 'z';
        other.flush();
        EXPECT_EQ(content(), "a12345678z");
        other.proxyAt(1) = 'b';
        file = other;
    }
    EXPECT_EQ(content(), "ab2345678z");
    {
        cFile file = opened(nio::omReadWrite, nio::wmAppend);
        file.proxyAt(0) = '-';
        auto const refused = "Unable to write 10 bytes!";
        ntest::expectMessage<nstd::cRuntimeException>([&] { file.flush(); }, refused);
        ntest::expectMessage<nstd::cRuntimeException>([&] { file.close(); }, refused);
        EXPECT_EQ(content(), "ab2345678z");
        put("new");
        file.open(nelPath(), nio::omReadWrite, nio::cmMustExist, nio::wmOverwrite);
        EXPECT_EQ(file.proxyAt(0), 'n');
        file.close();
    }
    EXPECT_EQ(content(), "new");
    put(std::string(3000, 'x'));
    cFile file = opened(nio::omReadWrite);
    file.proxyAt(0) = 'y';
    cFileSizeLimit const limit(1000);
    auto const open = descriptors();
    ntest::expectMessage<nstd::cRuntimeException>([&] { file.close(); }, "Unable to write 3000 bytes!");
    EXPECT_EQ(descriptors(), open - 1);
    expectOSErrorCode([&] { file.pos(); }, "seek", 77);
}

TEST_F(cFileTest, aCopyHasADescriptorOfItsOwn)
{
    put("0123456789");
    cFile file = opened(nio::omReadWrite);
    {
        cFile copy(file);
        copy.seek(4, nio::smStart);
        EXPECT_EQ(file.pos(), 4u);
        EXPECT_EQ(copy.name(), file.name());
    }
    cFile moved(std::move(file));
    expectOSErrorCode([&] { file.pos(); }, "seek", 77);
    EXPECT_EQ(moved.pos(), 4u);
    file = moved;
    moved.close();
    EXPECT_EQ(file.write("x", 1), 1u);
    EXPECT_EQ(content(), "0123x56789");
}

TEST_F(cFileTest, aMappingIsHandedOutAsItIs)
{
    put(std::string(100000, 'a') + "b");
    cFile file = opened(nio::omRead);
    file.mmap();
    char const* const bytes = file.proxyProvideData(0, 100001);
    EXPECT_EQ(file.proxyProvideData(70000, 3), bytes + 70000);
    EXPECT_EQ(&const_cast<cFile const&>(file).proxyAt(100000), bytes + 100000);
    EXPECT_EQ(file.proxyPreferredBlockSize(), 0u);
    ntest::expectMessage<nstd::cRuntimeException>([&] { file.mmap(); }, "File is already memory mapped!");
    ntest::expectMessage<nstd::cRuntimeException>([&] { file.proxyProvideData(1, 100001); },
                                                  "Unable to read 100001 bytes!");
    bool found = false;
    EXPECT_EQ(tView(file).find('b', found), 100000u);

    cFile copy(file);
    EXPECT_NE(copy.proxyProvideData(0, 1), bytes);
    EXPECT_EQ(copy.proxyPreferredBlockSize(), 65536u);
    copy.mmap();
    copy.swap(file);
    file.close();
    EXPECT_EQ(copy.proxyProvideData(5, 1), bytes + 5);
    file.open(nelPath(), nio::omRead, nio::cmMustExist, nio::wmOverwrite);
    EXPECT_EQ(file.proxyPreferredBlockSize(), 65536u);
    EXPECT_EQ(tView(file).find('b', found), 100000u);
    file.mmap();

    file.open(nelPath(), nio::omReadWrite, nio::cmMustExist, nio::wmTruncate);
    ntest::expectMessage<nstd::cRuntimeException>([&] { file.mmap(); }, "MMAP not supported in r/w mode!");
    file.open(nelPath(), nio::omRead, nio::cmMustExist, nio::wmOverwrite);
    expectOSErrorCode([&] { file.mmap(); }, "mmap", EINVAL);
    ASSERT_EQ(truncate(path().c_str(), 0x100000000), 0);
    file.touchSize();
    expectOSErrorCode([&] { file.mmap(); }, "mmap", EOVERFLOW);
    EXPECT_EQ(file.proxyLength(), 0u);
}

TEST_F(cFileTest, aMarkedFileIsRemovedWhenItIsClosed)
{
    auto const write = [&](bool release) {
        cFile file = opened(nio::omWrite);
        file.setRemoveOnClose();
        if (release)
            file.release();
    };
    write(true);
    EXPECT_TRUE(exists());
    write(false);
    EXPECT_FALSE(exists());

    cFile file = opened(nio::omWrite);
    file.rename(nelPath("other"));
    EXPECT_EQ(file.name(), nelPath());
    expectOSErrorCode([&] { file.rename(nelPath("missing/x")); }, "rename", ENOENT);
    file.setRemoveOnClose();
    expectOSErrorCode([&] { file.close(); }, "unlink", ENOENT);
    expectOSErrorCode([&] { file.pos(); }, "seek", 77);
    struct stat status;
    ASSERT_EQ(stat(path("other").c_str(), &status), 0);
    EXPECT_EQ(cFile(path("other").c_str(), nio::omRead, nio::cmMustExist, nio::wmAppend)
                  .lastModified()
                  .internTime()
                  .toUSec(),
              static_cast<unsigned long long>(status.st_mtime) * 1000000);
}

TEST_F(cFileTest, aFailedReadTellsTheDebugOutput)
{
    ntest::cDebugRecorder recorder;
    cFile directory(nelPath("."), nio::omRead, nio::cmMustExist, nio::wmAppend);
    char bytes[7];
    expectOSErrorCode([&] { directory.read(bytes, 7); }, "read", EISDIR);
    EXPECT_EQ(recorder.count("Error in cLinuxFileImpl::readBytes(char* pDst, piUInt64 iMax) " + path(".")
                             + " /Max: 7 /Block: 7 /R: -1 / Is a directory"),
              1u);
}

// A signal comes every millisecond, and nothing else.
TEST_F(cFileTest, theThirdInterruptionEndsATransfer)
{
    static volatile std::sig_atomic_t gSignals;
    gSignals = 0;
    struct sigaction action = {}, oldAction;
    action.sa_handler = [](int) { gSignals = gSignals + 1; };
    ASSERT_EQ(mkfifo(path().c_str(), 0600), 0);
    cFile pipe = opened(nio::omReadWrite);
    itimerval const everyMillisecond{{0, 1000}, {0, 1000}}, never{};
    sigaction(SIGALRM, &action, &oldAction);
    setitimer(ITIMER_REAL, &everyMillisecond, nullptr);
    char byte;
    expectOSErrorCode([&] { pipe.read(&byte, 1); }, "read", EINTR);
    auto const signals = gSignals;
    setitimer(ITIMER_REAL, &never, nullptr);
    sigaction(SIGALRM, &oldAction, nullptr);
    EXPECT_GE(signals, 3);
}

TEST_F(cFileTest, aSerializerIsStoredWholeOrNotAtAll)
{
    nsa::cSerializeBinary serializer;
    put(std::string(9000, 'x'));
    serializer.storeToFile(nelPath());
    EXPECT_EQ(content(), "");
    serializer.storeBlock(std::string(5000, 'y').data(), 5000);
    serializer.storeToFile(nelPath());
    EXPECT_EQ(content().size(), 5008u);
    EXPECT_EQ(content().substr(8), std::string(5000, 'y'));
    {
        cFileSizeLimit const limit(1000);
        expectOSErrorCode([&] { serializer.storeToFile(nelPath()); }, "write", EFBIG);
    }
    EXPECT_FALSE(exists());
    expectOpenError([&] { serializer.storeToFile(nelPath("missing/x")); }, path("missing/x"), ENOENT);
}

} // namespace
