#include <algorithm>
#include <cerrno>
#include <random>
#include <set>
#include <string>
#include <sys/resource.h>
#include <vector>

#include <dirent.h>

#include "nel_core/io/cAbstractDirImpl.h"
#include "nel_core/io/cPath.h"
#include "nel_core/io/cPermissions.h"
#include "nel_core/pi/platform/dependend/native_linux/cLinuxFsImpl.h"
#include "nel_core/std/cDateTime.h"
#include "nel_core/std/cRuntimeException.h"
#include "tests/io/cFsFixture.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/expectRefusal.h"

namespace {

using nio::cDir;
using nio::cFileInfo;
using nio::cFileInfoFlags;
using nio::cPermissions;

unsigned int descriptors()
{
    unsigned int count = 0;
    DIR* const directory = ::opendir("/proc/self/fd");
    while (::readdir(directory))
        ++count;
    ::closedir(directory);
    return count;
}

class cFsTest : public ntest::cFsFixture, public testing::WithParamInterface<int> {
protected:
    void SetUp() override { setUp(static_cast<Kind>(GetParam())); }
};

INSTANTIATE_TEST_SUITE_P(, cFsTest, testing::Values(0, 1),
                         [](auto const& kind) { return kind.param == 0 ? "native" : "memory"; });

struct cFailingCall {
    char const* operation;
    int code;
    char const* name; ///< of the path that the error tells
    void (*call)(nio::cFs& fs, nucs::cString const& path, nucs::cString const& root);
};

cFailingCall const kFailingCalls[] = {
    {"mkdir", EEXIST, "dir", [](auto& fs, auto& path, auto&) { fs.mkdir(path); }},
    {"mkdir", EEXIST, "file", [](auto& fs, auto& path, auto&) { fs.mkdir(path); }},
    {"mkdir", ENOENT, "none/a", [](auto& fs, auto& path, auto&) { fs.mkdir(path); }},
    {"mkdir", ENOTDIR, "file/a", [](auto& fs, auto& path, auto&) { fs.mkdir(path); }},
    {"unlink", ENOTEMPTY, "full", [](auto& fs, auto& path, auto&) { fs.remove(path); }},
    {"opendir", ENOENT, "none", [](auto& fs, auto& path, auto&) { fs.openDir(path); }},
    {"opendir", ENOTDIR, "file", [](auto& fs, auto& path, auto&) { fs.openDir(path); }},
    {"stat", ENOENT, "none", [](auto& fs, auto& path, auto&) { fs.fileInfo(path).type(); }},
    {"stat", ENOTDIR, "file/", [](auto& fs, auto& path, auto&) { fs.fileInfo(path).size(); }},
    {"stat", ENOTDIR, "file/a/b", [](auto& fs, auto& path, auto&) { fs.fileInfo(path).permissions(); }},
    {"readlink", EINVAL, "file", [](auto& fs, auto& path, auto&) { fs.fileInfo(path).readLink(); }},
    {"readlink", ENOENT, "none", [](auto& fs, auto& path, auto&) { fs.fileInfo(path).readLink(); }},
    {"chmod", ENOENT, "none", [](auto& fs, auto& path, auto&) { fs.setPermissions(path, cPermissions()); }},
    {"rename", ENOENT, "none", [](auto& fs, auto& path, auto& root) { fs.rename(path, root + "a"); }},
    {"rename", ENOENT, "file", [](auto& fs, auto& path, auto& root) { fs.rename(path, root + "none/a"); }},
    {"rename", ENOTDIR, "dir", [](auto& fs, auto& path, auto& root) { fs.rename(path, root + "file"); }},
    {"rename", ENOTDIR, "file", [](auto& fs, auto& path, auto& root) { fs.rename(path, root + "new/"); }},
    {"rename", EISDIR, "file", [](auto& fs, auto& path, auto& root) { fs.rename(path, root + "dir"); }},
    {"rename", ENOTEMPTY, "dir", [](auto& fs, auto& path, auto& root) { fs.rename(path, root + "full"); }},
    {"rename", EINVAL, "full", [](auto& fs, auto& path, auto& root) { fs.rename(path, root + "full/a"); }},
};

TEST_P(cFsTest, whatFailsRaisesTheCallItsErrorAndThePathAndChangesNothing)
{
    fs().mkdir(path("dir"));
    fs().mkdir(path("full"));
    write("full/in", "1");
    write("file", "2");
    auto const before = tree();
    ASSERT_EQ(before, "dir/ file=2 full/ full/in=1 ");
    for (auto const& row : kFailingCalls) {
        SCOPED_TRACE(std::string(row.operation) + " " + row.name);
        expectOSError([&] { row.call(fs(), path(row.name), path("")); }, row.operation, row.code, row.name);
        EXPECT_EQ(tree(), before);
    }
}

// The system would take a name with a zero inside for a shorter one.
TEST_P(cFsTest, aNameWithAZeroInsideIsRefused)
{
    write("file");
    auto name = path("file");
    name.append(0u);
    name.append('x');
    EXPECT_FALSE(fs().exists(name));
    for (auto const& row : kFailingCalls) {
        SCOPED_TRACE(row.operation);
        auto const error = ntest::raisedBy<nstd::cOSErrorException>([&] { row.call(fs(), name, path("")); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->operation(), row.operation);
        EXPECT_EQ(error->osErrorCode(), EINVAL);
    }
    EXPECT_EQ(tree(), "file=x ");
}

TEST_P(cFsTest, renameReplacesAndRemoveLeavesWhatIsOpenToItsFile)
{
    fs().mkdir(path("a"));
    fs().mkdir(path("b"));
    write("a/one", "1");
    write("two", "22");
    auto open = fs().fileOpenRead(path("two"));
    fs().rename(path("a/one"), path("two"));
    fs().rename(path("a"), path("b/"));
    fs().rename(path("two"), path("two"));
    EXPECT_EQ(tree(), "b/ two=1 ");
    char bytes[3] = {};
    EXPECT_EQ(open.read(bytes, 3), 2u);
    EXPECT_STREQ(bytes, "22");
    fs().remove(path("two"));
    fs().remove(path("two"));
    fs().remove(path("b"));
    EXPECT_EQ(tree(), "");
}

TEST_P(cFsTest, fileInfoTellsTypeSizePermissionsAndTimes)
{
    nstd::cTime const before(nstd::cTime().toSec() * 1000000
                             - 1000000); // the system's clock of files is coarse
    fs().mkdir(path("dir"));
    write(".file", "12345");
    auto const info = fs().fileInfo(path(".file"));
    EXPECT_TRUE(info.isFile());
    EXPECT_FALSE(info.isSymLink());
    EXPECT_TRUE(info.isHidden());
    EXPECT_EQ(info.size(), 5u);
    EXPECT_TRUE(fs().fileInfo(path("dir/")).isDir());
    EXPECT_FALSE(fs().fileInfo(path("dir/.")).isHidden());
    unsigned int const bits = cPermissions::pmOwnerRead | cPermissions::pmOwnerWrite
                              | cPermissions::pmGroupExecute | cPermissions::pmSticky;
    fs().setPermissions(path(".file"), cPermissions(bits | cPermissions::pmArchive));
    EXPECT_EQ(info.permissions().permissions(), bits | cPermissions::pmHidden);
    for (auto const which : {cFileInfoFlags::tsLastAccess, cFileInfoFlags::tsLastModification,
                             cFileInfoFlags::tsLastStatusChange}) {
        nstd::cDateTime stamp(nstd::cTime(0));
        ASSERT_TRUE(info.exists(true, &stamp, which));
        EXPECT_EQ(stamp, info.timeStamp(which));
        EXPECT_EQ(stamp.internTime().get() % 1000000, 0u);
        EXPECT_FALSE(stamp.internTime() < before);
        EXPECT_FALSE(stamp.internTime() > nstd::cTime());
    }
}

// Random transfers, beside a string that they are done to as well.
TEST_P(cFsTest, aFileHoldsWhatIsWritten)
{
    std::mt19937 random(7);
    auto const below = [&](unsigned int limit) { return static_cast<unsigned int>(random() % limit); };
    std::string model;
    auto file = fs().fileOpenWrite(path("file"), nio::cmCreate, nio::wmTruncate);
    for (unsigned int i = 0; i < 400; ++i) {
        auto const place = below(300000);
        if (i % 7 == 0) {
            file.truncate(place);
            model.resize(place);
            continue;
        }
        file.seek(place, nio::smStart);
        std::string bytes(1 + below(100000), static_cast<char>('a' + i % 26));
        if (i % 2 == 0) {
            ASSERT_EQ(file.write(bytes.data(), bytes.size()), bytes.size());
            model.resize(std::max(model.size(), place + bytes.size()));
            model.replace(place, bytes.size(), bytes);
        } else {
            auto const expected = place < model.size() ? model.substr(place, bytes.size()) : std::string();
            ASSERT_EQ(file.read(bytes.data(), bytes.size()), expected.size());
            ASSERT_TRUE(bytes.compare(0, expected.size(), expected) == 0);
        }
        ASSERT_EQ(file.size(true), model.size());
    }
    file.close();
    EXPECT_TRUE(read("file") == model);
}

TEST_P(cFsTest, filesAreOpenedAsTheModesSay)
{
    write("file", "12345");
    auto appending = fs().openFile(path("file"), nio::omWrite, nio::cmMustExist, nio::wmAppend);
    auto copy = appending;
    appending.seek(1, nio::smStart);
    EXPECT_EQ(appending.write("6", 1), 1u);
    EXPECT_EQ(copy.pos(), 6u) << "copies share the position";
    appending.close();
    EXPECT_EQ(copy.write("7", 1), 1u);
    char byte = 0;
    expectOSErrorCode([&] { copy.read(&byte, 1); }, "read", EBADF);
    expectOSErrorCode([&] { appending.write("8", 1); }, "write", EBADFD);
    expectOSErrorCode([&] { copy.seek(-1, nio::smStart); }, "seek", EINVAL);
    copy.close();
    {
        auto over = fs().fileOpenWrite(path("file"), nio::cmMustExist, nio::wmOverwrite);
        over.write("xy", 2);
        over.setRemoveOnClose();
        over.release();
    }
    EXPECT_EQ(read("file"), "xy34567");
    auto reading = fs().fileOpenRead(path("file"));
    expectOSErrorCode([&] { reading.write("x", 1); }, "write", EBADF);
    expectOSErrorCode([&] { reading.truncate(1); }, "truncate", EINVAL);
    reading.mmap();
    EXPECT_EQ(reading.proxyAt(2), '3');
    reading.setRemoveOnClose();
    reading.close();
    EXPECT_EQ(tree(), "");
    EXPECT_TRUE(ntest::raisedBy<nstd::cRuntimeException>([&] { fs().fileOpenRead(path("file")); }));
}

TEST_P(cFsTest, walksAndTheirCopiesGoTheirOwnWay)
{
    for (char const* const name : {"a", "b", "c", ".d"})
        write(name);
    std::set<std::string> all, copied;
    cDir walk(fs(), path(""), cDir::dfSkipDot | cDir::dfSkipDotDot);
    all.insert(ntest::text(walk.element().fullPath()));
    walk.setNext();
    cDir copy(walk);
    EXPECT_TRUE(copy == walk);
    EXPECT_EQ(copy.element(), walk.element());
    for (auto const& entry : copy.list())
        copied.insert(ntest::text(entry.fullPath()));
    EXPECT_TRUE(copy == walk) << "list() walks by itself";
    copy.setNext();
    EXPECT_FALSE(copy == walk);
    EXPECT_EQ(copied.size(), 3u);
    for (; !walk.isEnd(); walk.setNext())
        all.insert(ntest::text(walk.element().fullPath()));
    walk.setNext();
    EXPECT_TRUE(cDir(walk).isEnd());
    EXPECT_EQ(all, (std::set<std::string>{msRoot + "a", msRoot + "b", msRoot + "c", msRoot + ".d"}));

    unsigned int count = 0;
    for (auto const& entry : fs().openDir(nucs::cString(msRoot.substr(0, msRoot.size() - 1).c_str()))) {
        EXPECT_EQ(ntest::text(entry.fullPath()).substr(0, msRoot.size()), msRoot);
        ++count;
    }
    EXPECT_EQ(count, 6u);
    cDir moved(std::move(walk));
    ntest::expectAssertion([&] { walk.element(); }, "mpImpl.get() != 0", "nel_core/io/cDir");
}

TEST_P(cFsTest, createPathMakesWhatIsMissing)
{
    fs().createPath(nio::cPath(path("a/b/../c/d")));
    fs().createPath(nio::cPath(path("a/c/d")));
    EXPECT_EQ(tree(), "a/ a/c/ a/c/d/ ");
    write("a/file");
    auto const error =
        ntest::raisedBy<nstd::cRuntimeException>([&] { fs().createPath(nio::cPath(path("a/file/x"))); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(ntest::messageOf(*error), "Unable to create path \"" + msRoot + "a/file/x/\"!");
    ASSERT_NE(error->history(), nullptr);
    EXPECT_EQ(ntest::messageOf(*error->history()), "Item \"" + msRoot + "a/file/\" is not a directory!");
    EXPECT_EQ(tree(), "a/ a/c/ a/c/d/ a/file=x ");
    EXPECT_EQ(fs().tryFindInPath(nio::cPath(path("a")), "file"), path("a/file"));
    EXPECT_TRUE(fs().tryFindInPath(nio::cPath(path("a")), "c").empty());
}

TEST_P(cFsTest, removeRecursiveTakesTheWholeTree)
{
    fs().createPath(nio::cPath(path("top/a/b/c")));
    for (unsigned int i = 0; i < 300; ++i)
        write("top/a/" + std::to_string(i));
    write("top/.hidden");
    write("beside");
    auto const before = descriptors();
    fs().removeRecursive(path("top///"), false);
    fs().removeRecursive(path("top"), false);
    EXPECT_EQ(tree(), "beside=x ");
    fs().removeRecursive(path("beside"), true);
    EXPECT_EQ(tree(), "");
    EXPECT_EQ(descriptors(), before);
}

class cNativeFsTest : public ntest::cFsFixture {
protected:
    void SetUp() override { setUp(native); }
};

TEST_F(cNativeFsTest, symbolicLinksAreToldFromTheirTargets)
{
    write("file", "123");
    fs().createSymLink("file", path("link"));
    fs().createSymLink("none", path("dead"));
    auto const link = fs().fileInfo(path("link"));
    EXPECT_TRUE(link.isSymLink() && link.isFile() && !link.isDeadSymLink());
    EXPECT_EQ(link.size(false), 4u);
    EXPECT_EQ(link.readLink(), "file");
    auto const dead = fs().fileInfo(path("dead"));
    EXPECT_TRUE(dead.exists(false) && !dead.exists(true) && dead.isSymLink() && dead.isDeadSymLink());
    EXPECT_TRUE(fs().isDeadSymLink(path("dead")) && fs().fileExists(path("link")));
    EXPECT_FALSE(fs().fileExists(path("link"), false));
    expectOSError([&] { fs().createSymLink("x", path("link")); }, "symlink", EEXIST, "link");
    EXPECT_TRUE(fs().supportsSymLinks());
}

TEST_F(cNativeFsTest, removeRecursiveNeverLeavesTheTreeThroughALink)
{
    fs().createPath(nio::cPath(path("outside/in")));
    write("outside/in/kept");
    for (char const* const top : {"top", "link", "link/"}) {
        SCOPED_TRACE(top);
        fs().createPath(nio::cPath(path("top/a")));
        fs().createSymLink("../../outside", path("top/a/link"));
        fs().createSymLink("outside", path("link"));
        fs().removeRecursive(path(top), false);
        EXPECT_EQ(tree("outside/"), "outside/in/ outside/in/kept=x ");
        fs().remove(path("link"));
        fs().removeRecursive(path("top"), true);
        EXPECT_EQ(tree(), "outside/ outside/in/ outside/in/kept=x ");
    }
    fs().createSymLink("outside/in", path("link"));
    fs().createSymLink("outside/in/kept", path("toFile"));
    fs().removeRecursive(path("toFile"), true);
    EXPECT_EQ(read("outside/in/kept"), "x");
    fs().removeRecursive(path("link"), true);
    EXPECT_EQ(tree(), "outside/ outside/in/ ") << "the link's target is emptied, and stays";
}

// Claims nothing; swaps a directory for a link just before it is opened.
class cSwapper : public nio::cMemoryFs {
public:
    cSwapper(nio::cFs& fs, nucs::cString const& path, nucs::cString const& outside)
        : cMemoryFs(fs, "/swapper/"),
          msPath(path),
          msOutside(outside)
    {
    }
    bool matches(nucs::cString& path, Operation operation) override
    {
        if (operation == opCreateDirImpl && path == msPath) {
            fs().rename(msPath, msPath + ".away");
            fs().createSymLink(msOutside, msPath);
        }
        return operation == opUnbind;
    }

private:
    nucs::cString msPath, msOutside;
};

TEST_F(cNativeFsTest, aDirectoryThatIsSwappedForALinkIsNotEntered)
{
    fs().mkdir(path("outside"));
    write("outside/kept");
    fs().createPath(nio::cPath(path("top/a/b")));
    write("top/a/b/file");
    fs().bind(ntest::tFsPtr(new cSwapper(fs(), path("top"), path("outside"))));
    expectOSError([&] { fs().removeRecursive(path("top"), false); }, "opendir", ENOTDIR, "top");
    fs().unbind("");
    fs().remove(path("top"));

    auto const walk = fs().createDirectoryImpl(path("top.away"), 3);
    fs().rename(path("top.away/a"), path("a"));
    fs().createSymLink("../outside", path("top.away/a"));
    expectOSError([&] { walk->enterEntry(); }, "opendir", ENOTDIR, "top.away/a");

    // Once a directory is open, it does not matter what becomes of its path.
    auto const inside = fs().createDirectoryImpl(path("a"), 3);
    fs().rename(path("a"), path("moved"));
    fs().createSymLink("outside", path("a"));
    fs().mkdir(path("outside/b"));
    auto const deeper = inside->enterEntry();
    ASSERT_TRUE(deeper);
    deeper->removeEntry();
    inside->removeEntry();
    EXPECT_EQ(tree("outside/"), "outside/b/ outside/kept=x ");
    EXPECT_EQ(tree("moved/"), "");
}

// The native file system, with walks that have nothing but the operations that every walk must have.
class cPlainFs : public npi::cLinuxFsImpl {
public:
    using cLinuxFsImpl::cLinuxFsImpl;
    bool matches(nucs::cString&, Operation operation) override { return operation != opBind; }
    nstd::tAutoPtr<nio::cAbstractDirImpl> createDirImpl(nio::cFs const& fs, nucs::cString const& path,
                                                        int flags) const override
    {
        return nstd::tAutoPtr<nio::cAbstractDirImpl>(
            new cPlainWalk(fs, path, cLinuxFsImpl::createDirImpl(fs, path, flags)));
    }

private:
    class cPlainWalk : public nio::cAbstractDirImpl {
    public:
        cPlainWalk(nio::cFs const& fs, nucs::cString const& path, nstd::tAutoPtr<cAbstractDirImpl> walk)
            : cAbstractDirImpl(fs, path),
              mpWalk(std::move(walk))
        {
        }
        void setNext() override { mpWalk->setNext(); }
        nio::cDirInfo const& element() const override { return mpWalk->element(); }
        bool isEnd() const override { return mpWalk->isEnd(); }
        nstd::tAutoPtr<cAbstractDirImpl> createCopy() const override { return mpWalk->createCopy(); }

    private:
        nstd::tAutoPtr<cAbstractDirImpl> mpWalk;
    };
};

TEST_F(cNativeFsTest, removeRecursiveWorksOnAnyFileSystem)
{
    fs().createPath(nio::cPath(path("top/a/b")));
    fs().mkdir(path("outside"));
    write("outside/kept");
    write("top/a/b/file");
    fs().createSymLink("../outside", path("top/link"));
    fs().bind(ntest::tFsPtr(new cPlainFs(fs())));
    fs().removeRecursive(path("top"), false);
    EXPECT_EQ(tree(), "outside/ outside/kept=x ");
}

TEST_F(cNativeFsTest, aNameThatCannotBeDecodedIsToldAndPassed)
{
    fs().mkdir(path("dir"));
    for (unsigned int i = 0; i < 5; ++i) {
        auto const bytes = msRoot + "dir/" + std::to_string(i) + (i % 2 == 0 ? "\xFF" : "");
        std::fclose(std::fopen(bytes.c_str(), "w"));
    }
    unsigned int good = 0, bad = 0;
    cDir walk(fs(), path("dir/"), 3);
    bool raises = false;
    for (; !walk.isEnd();) {
        try {
            walk.element();
            ++good;
        } catch (nstd::cRuntimeException const&) {
            ++bad;
        }
        try {
            walk.setNext();
        } catch (nstd::cRuntimeException const&) {
            raises = true;
        }
    }
    EXPECT_TRUE(good == 2 && bad == 3 && raises) << good << " and " << bad;
    fs().removeRecursive(path("dir"), false);
    EXPECT_EQ(tree(), "");
}

TEST_F(cNativeFsTest, aTreeThatNeedsTooManyDescriptorsRaisesAndLeaksNone)
{
    std::string deep = "top";
    for (unsigned int i = 0; i < 100; ++i)
        deep += "/a";
    // Once with enough of them: without any, the sanitizer's own look at a new class fails.
    for (auto const* const name : {"top", "missing"}) {
        fs().createPath(nio::cPath(path(deep)));
        fs().removeRecursive(path(name), false);
        EXPECT_THROW(nio::cDir(fs(), path("missing"), 0), nstd::cOSErrorException);
    }
    auto const before = descriptors();
    rlimit limit = {};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    rlimit const few = {before + 40, limit.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &few);
    auto const error =
        ntest::raisedBy<nstd::cOSErrorException>([&] { fs().removeRecursive(path("top"), false); });
    ::setrlimit(RLIMIT_NOFILE, &limit);
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->operation(), "opendir");
    EXPECT_EQ(error->osErrorCode(), EMFILE);
    EXPECT_EQ(descriptors(), before);
}

class cMemoryFsTest : public ntest::cFsFixture {
protected:
    void SetUp() override { setUp(memory); }
};

TEST_F(cMemoryFsTest, takesMemoryOnlyForWhatIsWritten)
{
    auto const before = ntest::cFailingMemory::inUse();
    auto file = fs().fileOpenWrite(path("file"), nio::cmCreate, nio::wmTruncate);
    file.seek(0xFFFFFFFDLL, nio::smStart);
    EXPECT_EQ(file.write("abcd", 4), 2u) << "the size has 32 bits";
    expectOSErrorCode([&] { file.write("c", 1); }, "write", EFBIG);
    EXPECT_EQ(file.size(true), 0xFFFFFFFFu);
    char bytes[3] = {'x', 'x', 'x'};
    file.seek(0xFFFFFFFCLL, nio::smStart);
    EXPECT_EQ(file.read(bytes, 3), 3u);
    EXPECT_EQ(std::string(bytes, 3), std::string("\0ab", 3));
    EXPECT_LT(ntest::cFailingMemory::inUse() - before, 4 << 20);
}

TEST_F(cMemoryFsTest, withoutMemoryNothingChanges)
{
    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    fs().mkdir(path("a"));
    write("file", "123");
    auto file = fs().fileOpenWrite(path("file"), nio::cmMustExist, nio::wmOverwrite);
    std::string const block(200000, 'b');
    bool done = false;
    auto const attempt = [&](auto const& call, std::string const& before) {
        done = false;
        EXPECT_GT(ntest::failEachRequest(
                      [&] {
                          call();
                          done = true;
                      },
                      [&] { EXPECT_EQ(done ? before : tree(), before); }),
                  0u);
    };
    attempt([&] { file.seek(1, nio::smStart), file.write(block.data(), block.size()); }, "a/ file=123 ");
    EXPECT_EQ(file.size(true), block.size() + 1);
    file.truncate(1);
    attempt([&] { fs().mkdir(path("b")); }, "a/ file=1 ");
    attempt([&] { fs().rename(path("b"), path("a/c")); }, "a/ b/ file=1 ");
    EXPECT_EQ(tree(), "a/ a/c/ file=1 ");
}

// Built from the inside outwards, so that no path is long.
TEST_F(cMemoryFsTest, deepTreesAreNoDanger)
{
    for (unsigned int copy = 0; copy < 2; ++copy) {
        fs().mkdir(path("a"));
        for (unsigned int i = 0; i < 50000; ++i) {
            fs().mkdir(path("b"));
            fs().rename(path("a"), path("b/a"));
            fs().rename(path("b"), path("a"));
        }
        if (copy == 0)
            fs().removeRecursive(path("a"), false);
    }
    fs().unbind(path(""));
    EXPECT_FALSE(fs().exists(path("a")));
}

TEST_F(cMemoryFsTest, claimsWhatLiesBelowItsPrefix)
{
    nio::cMemoryFs mounted(fs(), "/mount");
    auto const claims = [&](char const* text, auto operation) {
        nucs::cString copy(text);
        return mounted.matches(copy, operation) && copy == text;
    };
    for (char const* const own : {"/mount", "/mount/", "/mount/a", "/mount//a/../b/", "/mount/a/.."})
        EXPECT_TRUE(claims(own, nio::cAbstractFsImpl::opExists)) << own;
    for (char const* const foreign : {"", "/", "/mounta", "mount/a", "/mount/../a", "/mount/a/../../mount/b"})
        EXPECT_FALSE(claims(foreign, nio::cAbstractFsImpl::opExists)) << foreign;
    EXPECT_TRUE(claims("/mount", nio::cAbstractFsImpl::opUnbind));
    EXPECT_FALSE(claims("/mount/a", nio::cAbstractFsImpl::opUnbind));
    EXPECT_FALSE(claims("/mount/", nio::cAbstractFsImpl::opBind));
    EXPECT_FALSE(mounted.supportsSymLinks());
    expectOSError([&] { fs().createSymLink(path("a"), path("b")); }, "symlink", EPERM, "b");
    expectOSError([&] { fs().rename(path(""), path("b")); }, "rename", EBUSY, "");
    expectOSError([&] { fs().remove(path("")); }, "unlink", EBUSY, "");
}

TEST_F(cMemoryFsTest, isUnboundOnlyWhenNothingOfItIsOpen)
{
    write("file");
    auto const info = fs().fileInfo(path("file"));
    auto file = fs().fileOpenRead(path("file"));
    auto const inUse = "Filesystem (" + msRoot + ") is in use!";
    auto const message = [&] {
        auto const error = ntest::raisedBy<nstd::cBugException>([&] { fs().unbind(path("")); });
        return error ? ntest::messageOf(*error) : "";
    };
    EXPECT_EQ(message(), inUse);
    file.close();
    {
        cDir const walk(fs(), path(""), 0);
        EXPECT_EQ(message(), inUse);
    }
    fs().unbind(path(""));
    EXPECT_FALSE(fs().exists(path("")));
    expectOSError([&] { info.type(); }, "stat", ENODEV, "file");
}

} // namespace
