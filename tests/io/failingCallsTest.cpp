#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>

#include "nel_core/io/cPath.h"
#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cDateTime.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tArrayRef.h"
#include "nel_core/ucs/cLILocale.h"
#include "tests/io/cFsFixture.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cFailingCalls.h"

namespace {

using nio::cFile;
using ntest::cFailingCalls;
namespace files = std::filesystem;

struct cFailure {
    cFailingCalls::Call call;
    int code;
    std::string operations; ///< of the OS errors that may be raised, each between blanks
};

cFailure const kFailures[] = {
    {cFailingCalls::clOpen, EMFILE, " open opendir "},
    {cFailingCalls::clOpen, EINTR, " open opendir "},
    {cFailingCalls::clRead, EIO, " read "},
    {cFailingCalls::clRead, EINTR, " read "},
    {cFailingCalls::clRead, cFailingCalls::kShort, ""},
    {cFailingCalls::clWrite, ENOSPC, " write "},
    {cFailingCalls::clWrite, EINTR, " write "},
    {cFailingCalls::clWrite, cFailingCalls::kShort, ""},
    {cFailingCalls::clClose, EIO, " close "},
    {cFailingCalls::clClose, EINTR, " close "},
    {cFailingCalls::clRename, EIO, " rename "},
    {cFailingCalls::clTruncate, EIO, " truncate "},
    {cFailingCalls::clStat, EIO, " stat mkdir unlink "},
    {cFailingCalls::clMkdir, ENOSPC, " mkdir "},
    {cFailingCalls::clRmdir, EIO, " unlink "},
    {cFailingCalls::clUnlink, EIO, " unlink "},
    {cFailingCalls::clOpenDir, ENOMEM, " opendir "},
    {cFailingCalls::clReadDir, EIO, " readdir "},
    {cFailingCalls::clReadDir, cFailingCalls::kShort, ""},
    {cFailingCalls::clSeek, EIO, " seek "},
    {cFailingCalls::clMap, ENOMEM, " mmap "},
};

template<typename... A>
constexpr unsigned int bits(A... calls)
{
    return ((1u << calls) | ...);
}

class failingCallsTest : public ntest::cFsFixture {
protected:
    void SetUp() override { setUp(native); }

    std::string name(std::string const& below) const { return msRoot + below; }
    std::string content(char const* below) const
    {
        std::ifstream file(name(below));
        return std::string(std::istreambuf_iterator<char>(file), {});
    }
    bool exists(char const* below) const { return files::exists(files::symlink_status(name(below))); }

    /// Some file systems wait for the disk where a file is written anew.
    void remake(std::string const& below, std::string const& bytes)
    {
        files::remove(name(below));
        write(below, bytes);
    }
    /// A directory with two more below.
    void makeTree(std::string const& top)
    {
        files::create_directories(msRoot + top + "/a/b");
        for (char const* const file : {"/1", "/a/2", "/a/b/3"})
            remake(top + file, "x");
    }
    static std::string treeOf(std::string const& top)
    {
        return top + "/1=x " + top + "/a/ " + top + "/a/2=x " + top + "/a/b/ " + top + "/a/b/3=x ";
    }

    static long descriptors()
    {
        files::directory_iterator const all("/proc/self/fd");
        return std::distance(begin(all), end(all));
    }

    /// Lets each call in kFailures fail in `step`, once and from then on, with `prepare` before each run.
    /// `check` gets the row and whether the step has succeeded. Gives the calls that were made, as bits.
    template<typename Prepare, typename Step, typename Check>
    static unsigned int failEach(Prepare&& prepare, Step&& step, Check&& check)
    {
        ntest::cDebugRecorder const debug;
        auto const before = descriptors();
        unsigned int made = 0;
        for (auto const& row : kFailures) {
            auto const checkRun = [&](std::exception_ptr const& raised) {
                EXPECT_EQ(descriptors(), before);
                if (raised)
                    expectErrorOf(row, raised);
                check(row, !raised);
            };
            for (auto const mode : {cFailingCalls::moOnce, cFailingCalls::moAlways}) {
                SCOPED_TRACE("call " + std::to_string(row.call) + ", error " + std::to_string(row.code)
                             + (mode == cFailingCalls::moOnce ? ", once" : ", always"));
                if (ntest::atEachCall(prepare, step, checkRun, row.call, row.code, mode) == 0)
                    break;
                made |= bits(row.call);
                if (HasFailure())
                    return made;
            }
        }
        return made;
    }

    // The first cause is the failed call, or that bytes are missing.
    static void expectErrorOf(cFailure const& row, std::exception_ptr const& raised)
    {
        try {
            std::rethrow_exception(raised);
        } catch (nstd::cRuntimeException const& error) {
            auto const* first = static_cast<nstd::cAbstractException const*>(&error);
            auto const* cause = dynamic_cast<nstd::cOSErrorException const*>(first);
            while (!cause && first->history()) {
                first = first->history();
                cause = dynamic_cast<nstd::cOSErrorException const*>(first);
            }
            if (cause) {
                auto const operation = ntest::text(cause->operation());
                EXPECT_NE(row.operations.find(" " + operation + " "), std::string::npos) << operation;
                EXPECT_TRUE(cause->osErrorCode() == row.code || row.call == cFailingCalls::clStat);
            } else {
                auto const message = ntest::messageOf(*first);
                EXPECT_TRUE(row.code == cFailingCalls::kShort || row.code == EINTR) << message;
                EXPECT_EQ(
                    message.find(row.call == cFailingCalls::clRead ? "Unable to read " : "Unable to write "),
                    0u)
                    << message;
            }
        }
    }
};

TEST_F(failingCallsTest, aCopyThatReportsSuccessHasAllBytes)
{
    std::string const bytes = "0123456789abcdefghijklmno";
    write("from", bytes);
    auto const copyPieces = [](cFile& from, cFile& to) {
        char piece[10];
        unsigned int done = 0;
        while (auto const got = static_cast<unsigned int>(from.read(piece, sizeof(piece)))) {
            to.proxyPatchData(done, got, piece);
            done += got;
        }
    };
    auto const copyRange = [](cFile& from, cFile& to) {
        std::string all(from.proxyLength(), '\0');
        from.proxyCopyPartTo(all.data(), 0, from.proxyLength());
        to.proxyPatchData(0, static_cast<unsigned int>(all.size()), all.data());
    };
    auto const copyCached = [](cFile& from, cFile& to) {
        unsigned int const length = from.proxyLength();
        to.proxyPatchData(0, length, from.proxyProvideData(0, length));
    };
    for (auto const& copy : {std::function<void(cFile&, cFile&)>(copyPieces), {copyRange}, {copyCached}}) {
        auto const step = [&] {
            cFile from = fs().fileOpenRead(path("from"));
            cFile to = fs().fileOpenWrite(path("to"), nio::cmCreate, nio::wmTruncate);
            copy(from, to);
            to.close();
        };
        auto const made = failEach([&] { files::remove(name("to")); }, step,
                                   [&](auto&, bool succeeded) {
                                       EXPECT_EQ(content("from"), bytes);
                                       EXPECT_TRUE(!succeeded || content("to") == bytes);
                                   });
        EXPECT_EQ(made, bits(cFailingCalls::clOpen, cFailingCalls::clRead, cFailingCalls::clWrite,
                             cFailingCalls::clClose, cFailingCalls::clSeek));
    }
}

// A file that could not be opened is not ours.
TEST_F(failingCallsTest, aSerializerLeavesTheWholeFileOrNone)
{
    nsa::cSerializeBinary serializer;
    nucs::cString("bytes that are stored") >> serializer;
    std::string const bytes(serializer.ownData().begin(), serializer.ownData().end());
    auto const made = failEach([&] { remake("to", "old"); }, [&] { serializer.storeToFile(path("to")); },
                               [&](cFailure const& row, bool succeeded) {
                                   if (succeeded)
                                       EXPECT_EQ(content("to"), bytes);
                                   else if (row.call == cFailingCalls::clOpen)
                                       EXPECT_EQ(content("to"), "old");
                                   else
                                       EXPECT_FALSE(exists("to"));
                               });
    EXPECT_EQ(made, bits(cFailingCalls::clOpen, cFailingCalls::clWrite, cFailingCalls::clClose,
                         cFailingCalls::clSeek));
}

TEST_F(failingCallsTest, aLocaleIsLoadedAsAWholeOrNotAtAll)
{
    write("old.tr", "Name = \"old\" Flag = \"old\" \"key\" = \"old\"");
    write("new.tr", "Name = \"new\" include \"part.tr\" Flag = fromFile(\"flag\")");
    write("part.tr", "\"key\" = \"new\"");
    write("flag", "new");
    nucs::cLILocale locale("locale");
    auto const made =
        failEach([&] { locale.loadFromFile(path("old.tr")); }, [&] { locale.loadFromFile(path("new.tr")); },
                 [&](auto&, bool succeeded) {
                     std::string const state = succeeded ? "new" : "old";
                     EXPECT_EQ(locale.fileName(), path(state + ".tr"));
                     EXPECT_EQ(ntest::text(locale.name()), state);
                     EXPECT_EQ(ntest::text(locale.translate("key")), state);
                     EXPECT_EQ(locale.flag(), path(state + ".tr/" + state));
                 });
    EXPECT_EQ(made, bits(cFailingCalls::clOpen, cFailingCalls::clRead, cFailingCalls::clClose,
                         cFailingCalls::clStat));
}

// What cannot be asked for its status is taken for missing.
TEST_F(failingCallsTest, aTreeThatIsRemovedIsGone)
{
    makeTree("outside");
    auto const check = [&](cFailure const& row, bool succeeded) {
        EXPECT_TRUE(!succeeded || row.call == cFailingCalls::clStat || !exists("top"));
        EXPECT_EQ(tree("outside/"), treeOf("outside"));
    };
    auto const made =
        failEach([&] { makeTree("top"); }, [&] { fs().removeRecursive(path("top"), false); }, check);
    EXPECT_EQ(made, bits(cFailingCalls::clOpen, cFailingCalls::clStat, cFailingCalls::clRmdir,
                         cFailingCalls::clUnlink, cFailingCalls::clOpenDir, cFailingCalls::clReadDir));
}

TEST_F(failingCallsTest, theCacheWritesItsChangesAndNothingElse)
{
    std::string const bytes(70000, '-'); // more than the cache holds
    auto changed = bytes;
    changed[1] = 'x';
    changed[69999] = 'y';
    auto const step = [&] {
        cFile file = fs().openFile(path("file"), nio::omReadWrite, nio::cmMustExist, nio::wmOverwrite);
        static_cast<nstd::tAbstractArrayProxy<char>&>(file).proxyAt(1) = 'x';
        static_cast<nstd::tAbstractArrayProxy<char>&>(file).proxyAt(69999) = 'y';
        file.close();
    };
    auto const made = failEach([&] { remake("file", bytes); }, step,
                               [&](auto&, bool succeeded) {
                                   auto found = content("file");
                                   EXPECT_TRUE(!succeeded || found == changed);
                                   ASSERT_EQ(found.size(), bytes.size());
                                   found[1] = found[69999] = '-';
                                   EXPECT_TRUE(found == bytes);
                               });
    EXPECT_EQ(made, bits(cFailingCalls::clOpen, cFailingCalls::clRead, cFailingCalls::clWrite,
                         cFailingCalls::clClose, cFailingCalls::clSeek));
}

TEST_F(failingCallsTest, otherOperationsAreDoneOrRaise)
{
    auto const step = [&] {
        fs().createPath(nio::cPath(path("made/in")));
        cFile file = fs().fileOpenWrite(path("made/in/file"), nio::cmCreate, nio::wmTruncate);
        file.proxyPatchData(0, 5, "12345");
        file.truncate(3);
        file.lastModified();
        file.rename(path("made/in/renamed"));
        file.close();
        cFile mapped = fs().fileOpenRead(path("made/in/renamed"));
        mapped.mmap();
    };
    auto const made =
        failEach([&] { files::remove_all(name("made")); }, step,
                 [&](auto&, bool succeeded) {
                     EXPECT_TRUE(!succeeded || tree("made/") == "made/in/ made/in/renamed=123 ");
                 });
    EXPECT_EQ(made, bits(cFailingCalls::clOpen, cFailingCalls::clWrite, cFailingCalls::clClose,
                         cFailingCalls::clRename, cFailingCalls::clTruncate, cFailingCalls::clStat,
                         cFailingCalls::clMkdir, cFailingCalls::clSeek, cFailingCalls::clMap));
}

// Before each call of the removal, a directory makes place for a link to one outside that holds the same
// names.
TEST_F(failingCallsTest, aRemovalNeverLeavesTheTreeThroughALinkThatComesMeanwhile)
{
    struct {
        char const* directory;
        bool followLink; ///< a link in place of "top" itself is to be followed then
    } const rows[] = {{"top", false}, {"top/a", false}, {"top/a/b", false}, {"top/a/b", true}};
    makeTree("outside");
    for (auto const& row : rows) {
        SCOPED_TRACE(row.directory);
        auto const prepare = [&] {
            fs().removeRecursive(path("top"), false);
            fs().removeRecursive(path("away"), false);
            makeTree("top");
        };
        auto const before = descriptors();
        std::function<void()> const swapForLink = [&] {
            std::error_code ignored; // it may be removed already
            files::rename(name(row.directory), name("away"), ignored);
            if (!ignored)
                files::create_directory_symlink(name("outside"), name(row.directory), ignored);
        };
        auto const check = [&](std::exception_ptr const& raised) {
            EXPECT_EQ(tree("outside/"), treeOf("outside"));
            EXPECT_EQ(descriptors(), before);
            if (raised)
                ntest::raisedBy<nstd::cOSErrorException>([&] { std::rethrow_exception(raised); });
            else
                EXPECT_FALSE(exists("top"));
        };
        auto const calls = ntest::atEachCall(
            prepare, [&] { fs().removeRecursive(path("top"), row.followLink); }, check, cFailingCalls::clAny,
            swapForLink);
        EXPECT_GT(calls, 15u);
    }
}

} // namespace
