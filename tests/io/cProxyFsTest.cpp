#include <string>
#include <vector>

#include "nel_core/io/cAbstractDirImpl.h"
#include "nel_core/io/cAbstractFileImpl.h"
#include "nel_core/io/cPath.h"
#include "nel_core/io/cPermissions.h"
#include "nel_core/io/cProxyFs.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cDateTime.h"
#include "nel_core/std/cRuntimeException.h"
#include "tests/io/cFsFixture.h"

namespace {

using nucs::cString;

// Takes what begins with its letter, takes the letter off, and notes what it is asked for.
class cFakeFs : public nio::cAbstractFsImpl {
public:
    cFakeFs(nio::cFs& fs, char letter, std::vector<std::string>& log, bool isNative = false)
        : cAbstractFsImpl(fs),
          mcLetter(letter),
          maLog(log),
          mbNative(isNative)
    {
    }
    ~cFakeFs() override { note("gone", ""); }

    bool matches(cString& path, Operation operation) override
    {
        if (operation == opBind)
            return mbNative;
        bool const isOurs = !path.empty() && path[0] == static_cast<unsigned char>(mcLetter);
        if (!path.empty())
            path.erase(0, 1); // also of what it does not take
        return isOurs;
    }
    bool exists(cString const& path, bool, nstd::cDateTime*, nio::cFileInfoFlags::TimeStamp) const override
    {
        note("exists", path);
        return true;
    }
    void remove(cString const& path) override { note("remove", path); }
    nio::cPath cwd() const override { return note("cwd", ""), nio::cPath("/"); }
    void mkdir(cString const& path) override { note("mkdir", path); }
    void rename(cString const& from, cString const& to) override { note("rename", from + " " + to); }
    bool supportsSymLinks() const override { return note("supports", ""), true; }
    void createSymLink(cString const& to, cString const& link) override { note("symlink", to + " " + link); }
    void setPermissions(cString const& path, nio::cPermissions const&, bool) override { note("chmod", path); }
    nstd::tAutoPtr<nio::cAbstractDirImpl> createDirImpl(nio::cFs const&, cString const& path,
                                                        int) const override
    {
        note("opendir", path);
        return {};
    }
    nstd::tAutoPtr<nio::cAbstractFileInfoImpl> createFileInfoImpl(nio::cFs const&,
                                                                  cString const& path) const override
    {
        note("info", path);
        return {};
    }
    nstd::tAutoPtr<nio::cAbstractFileImpl> createFileImpl(nio::cFs&, nio::cAbstractIOBlockDevice&,
                                                          cString const&) const override
    {
        return {};
    }
    bool isUsed() const override { return isInUse; }

    bool isInUse = false;

private:
    void note(char const* operation, cString const& path) const
    {
        maLog.push_back(std::string(1, mcLetter) + " " + operation + " " + ntest::text(path));
    }

    char mcLetter;
    std::vector<std::string>& maLog;
    bool mbNative;
};

class cProxyFsTest : public ntest::cSystemFixture {
protected:
    using tLog = std::vector<std::string>;

    cFakeFs& bind(char letter, bool isNative = false)
    {
        auto* const fake = new cFakeFs(npi::system().fs, letter, maLog, isNative);
        proxy().bind(ntest::tFsPtr(fake));
        return *fake;
    }
    nio::cProxyFs& proxy()
    {
        if (!mpProxy)
            mpProxy.reset(new nio::cProxyFs(npi::system().fs), nstd::tAutoPtrType::ptObject);
        return *mpProxy;
    }
    tLog taken()
    {
        tLog log;
        log.swap(maLog);
        return log;
    }
    template<typename E, typename Call>
    static std::string messageOf(Call&& call)
    {
        auto const error = ntest::raisedBy<E>(call);
        return error ? ntest::messageOf(*error) : "";
    }

    tLog maLog;
    nstd::tAutoPtr<nio::cProxyFs> mpProxy;
};

TEST_F(cProxyFsTest, eachOperationGoesToTheFirstThatTakesItsPath)
{
    bind('n', true);
    bind('a');
    bind('b');
    bind('b');
    EXPECT_TRUE(taken().empty());
    proxy().exists("b/1", true, nullptr, nio::cFileInfoFlags::tsLastAccess);
    proxy().remove("a2");
    proxy().mkdir("x/3");
    proxy().rename("b4", "b5");
    proxy().createSymLink("x6", "x7");
    proxy().setPermissions("a8", nio::cPermissions(), true);
    static_cast<void>(proxy().createDirImpl(npi::system().fs, "b9", 0));
    static_cast<void>(proxy().createFileInfoImpl(npi::system().fs, "bb"));
    proxy().cwd();
    proxy().supportsSymLinks();
    EXPECT_EQ(taken(), (tLog{"b exists /1", "a remove 2", "n mkdir x/3", "b rename 4 5", "n symlink x6 x7",
                             "a chmod 8", "b opendir 9", "b info b", "n cwd ", "n supports "}));
    auto const across = "Rename across filesystem boundaries is not supported (a1 -> b2";
    EXPECT_EQ(messageOf<nstd::cRuntimeException>([&] { proxy().rename("a1", "b2"); }), across);
    EXPECT_EQ(messageOf<nstd::cRuntimeException>([&] { proxy().createSymLink("a1", "b2"); }), across);
    EXPECT_TRUE(taken().empty());
}

TEST_F(cProxyFsTest, unbindTakesAllThatMatchOrElseTheNativeOne)
{
    bind('n', true);
    auto& first = bind('a');
    bind('b');
    auto& last = bind('a');
    last.isInUse = true;
    EXPECT_EQ(messageOf<nstd::cBugException>([&] { proxy().unbind("ax"); }), "Filesystem (ax) is in use!");
    EXPECT_TRUE(taken().empty()) << "none is removed";
    last.isInUse = false;
    first.isInUse = false;
    proxy().unbind("ax");
    EXPECT_EQ(taken(), (tLog{"a gone ", "a gone "}));

    auto& native = bind('m', true);
    EXPECT_EQ(taken(), (tLog{"n gone "})) << "replaced";
    EXPECT_EQ(proxy().nativeFs().get(), &native);
    native.isInUse = true;
    EXPECT_EQ(messageOf<nstd::cBugException>([&] { proxy().unbind("x"); }), "Native filesystem  is in use!");
    native.isInUse = false;
    proxy().unbind("x");
    EXPECT_EQ(taken(), (tLog{"m gone "}));
    EXPECT_EQ(messageOf<nstd::cBugException>([&] { proxy().remove("x"); }),
              "ProxyFs has not valid filesystem for x and no registered filesystems at all!");
    EXPECT_EQ(messageOf<nstd::cBugException>([&] { proxy().cwd(); }), "ProxyFs has not valid filesystems!");
    proxy().unbind("x");
}

TEST_F(cProxyFsTest, theSystemsRootHoldsTheNativeFileSystemWhichStays)
{
    auto& fs = npi::system().fs;
    nio::cFs copy(fs);
    bind('n', true);
    EXPECT_EQ(messageOf<nstd::cBugException>([&] { copy.unbind("x"); }), "Native filesystem  is in use!");
    auto const unsupported = "Bind / unbind not supported for filesystem implementation!";
    auto& native = const_cast<nio::cAbstractFsImpl&>(*proxy().nativeFs());
    EXPECT_EQ(messageOf<nstd::cBugException>([&] { native.unbind("x"); }), unsupported);
    EXPECT_EQ(messageOf<nstd::cBugException>([&] { native.bind(ntest::tFsPtr()); }), unsupported);
    {
        nio::cFs own;
        copy = own;
    }
    EXPECT_TRUE(copy.exists("/")) << "the root goes by its own codec";
    copy.swap(fs);
    EXPECT_TRUE(fs.exists("/") && copy.exists("/"));
}

} // namespace
