#include "nel_core/io/cPath.h"

#include <cctype>
#include <random>
#include <string>

#include "nel_core/pi/cAbstractNELApp.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cBugException.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

using ntest::text;
using nucs::cString;

namespace {

class cPathTest : public ntest::cSystemFixture { };

// The rules of normalising, applied one after the other to keys and the plain text between them. "." and ".."
// count only as whole components, and a relative path never becomes an absolute one or gets a drive.
struct cReference {
    explicit cReference(std::string const& in)
        : relative(in.empty() || (in[0] != '/' && !(in.size() > 1 && std::isalpha(in[0]) && in[1] == ':')))
    {
        for (std::size_t i = 0; i < in.size() && !stopped;) {
            bool const begins = i == 0 || in[i - 1] == '/' || in[i - 1] == '\\';
            std::string const key = begins && in.compare(i, 3, "../") == 0  ? "../"
                                    : begins && in.compare(i, 2, "./") == 0 ? "./"
                                                                            : in.substr(i, 1);
            if (begins && i != 0 && out.empty() && relative && std::isalpha(in[i]) && in[i + 1] == ':')
                out = "./";
            take(key, i == 0);
            i += key.size();
        }
        if (out.empty())
            out = "./";
    }

    void take(std::string const& key, bool isFirst)
    {
        if (key == "../")
            climb();
        else if (key == "/" ? out.empty() ? isFirst || !relative : out.back() != '/' : key != "./" || isFirst)
            out += key;
    }

    void climb()
    {
        auto const at = out.size() > 1 ? out.find_last_of("/\\", out.size() - 2) : std::string::npos;
        if (at != std::string::npos)
            out = above && out.substr(at + 1) == "../" ? out + "../" : out.substr(0, at + 1);
        else if (!relative)
            stopped = true;
        else if (out == "./" || out == "../" || out.empty()) {
            out = out == "./" ? "../" : out + "../";
            above = true;
        } else
            out.clear();
    }

    std::string out;
    bool relative;
    bool above = false;
    bool stopped = false;
};

TEST_F(cPathTest, aPathIsNormalisedWhenItIsSet)
{
    struct {
        char const* in;
        char const* text;
        char drive;
        bool aboveStart;
    } const rows[] = {{"a/b/../c/", "a/c/", 0, false},
                      {"a//b/./c/", "a/b/c/", 0, false},
                      {"./x/", "./x/", 0, false},
                      {"../../x/", "../../x/", 0, true},
                      {"./..", "../", 0, true},
                      {"a/../", "./", 0, false},
                      {"a/..//etc", "etc/", 0, false},
                      {"a/../D:x", "./D:x/", 0, false},
                      {"/a/../../b/", "/", 0, false},
                      {"", "./", 0, false},
                      {"a./b../.c/...", "a./b../.c/.../", 0, false},
                      {"D:\\Data\\x", "/Data/x/", 'D', false},
                      {"d:x\\..", "./", 'D', false},
                      {"z:", "/", 'Z', false},
                      {"C:../a", "../a/", 0, true},
                      {"1:/a", "1:/a/", 0, false}};
    for (auto const& row : rows) {
        SCOPED_TRACE(row.in);
        nio::cPath const path(row.in);
        EXPECT_EQ(text(path.unixEquivalent()), row.text);
        EXPECT_EQ(path.driveLetter(), row.drive);
        cString again(row.text);
        bool aboveStart = !row.aboveStart;
        nio::fixupPath(again, aboveStart);
        EXPECT_EQ(text(again), row.text);
        EXPECT_EQ(aboveStart, row.aboveStart);
    }
    cString raw("a\\..\\b");
    EXPECT_EQ(nio::setPath(raw, raw, false), 0);
    EXPECT_EQ(text(raw), "a/../b/");
}

TEST_F(cPathTest, anyTextIsNormalisedAsTheRulesSay)
{
    char const* const pieces[] = {".", "..", "/", "\\", "a", "a.", "b:", "C:", "../", "./"};
    std::mt19937 random(7001);
    for (int round = 0; round < 20000; ++round) {
        std::string in;
        for (auto count = random() % 12; count != 0; --count)
            in += pieces[random() % std::size(pieces)];
        SCOPED_TRACE(in);
        cString path(in.c_str());
        bool aboveStart = false;
        nio::fixupPath(path, aboveStart);
        cReference const expected(in);
        ASSERT_EQ(text(path), expected.out);
        ASSERT_EQ(aboveStart, expected.above);
    }
}

TEST_F(cPathTest, partsAreCountedBehindTheRoot)
{
    nio::cPath const local("/usr/local/lib");
    EXPECT_EQ(text(local.getPart(0)) + "," + text(local.getPart(2)) + "," + text(local.getPart(3)),
              "usr,lib,");
    EXPECT_EQ(text(local.getParts(0)), "/usr/");
    EXPECT_EQ(text(local.getParts(1)), "/usr/local/");
    EXPECT_EQ(text(local.getParts(2)), "/usr/local/lib/");
    EXPECT_EQ(text(local.getParts(3)) + text(local.getParts(~0u)) + text(local.getPart(~0u)), "");

    nio::cPath const relative("a/b");
    EXPECT_EQ(text(relative.getPart(0)) + "," + text(relative.getPart(1)), "b,");
    EXPECT_EQ(text(relative.getParts(0)) + "," + text(relative.getParts(1)), "a/,a/b/");
    nio::cPath const drive("d:/x/y");
    EXPECT_EQ(text(drive.getPart(0)) + "," + text(drive.getParts(0)) + "," + text(drive.getParts(1)),
              "x,D:/,D:/x/");
}

TEST_F(cPathTest, cdAppendsWithoutNormalising)
{
    char const* const rows[][3] = {
        {"/a/", "sub", "/a/sub/"}, {"/a/", "../b\\", "/a/../b\\"}, {"/a/", "/b", "/b/"},
        {"/a/", "", "/a/"},        {"/a/", "c:x", "x/"},           {"a/", "\\b", "a/\\b/"},
    };
    for (auto const& row : rows) {
        nio::cPath path(row[0]);
        path.cd(row[1]);
        EXPECT_EQ(text(path.path()), row[2]);
    }
    nio::cPath twice("a/b");
    twice.cd(twice.unixEquivalent());
    EXPECT_EQ(text(twice.path()), "a/b/a/b/");
}

TEST_F(cPathTest, pathsAreSeenFromOthers)
{
    // A path, a base, and what makeRelative() and makeAbsolute() make of them.
    char const* const rows[][4] = {{"/a/b/c", "/a/x/y", "../../b/c/", "/a/b/c/"},
                                   {"/ab/c", "/a", "../ab/c/", "/ab/c/"},
                                   {"/a/b", "/a", "b/", "/a/b/"},
                                   {"/a", "/a/b", "../", "/a/"},
                                   {"/a", "/a", "./", "/a/"},
                                   {"/", "/", "./", "/"},
                                   {"/D:/x", "/", "./D:/x/", "/D:/x/"},
                                   {"C:/a", "D:/a", "C:/a/", "C:/a/"},
                                   {"C:/a", "C:/b", "../a/", "C:/a/"},
                                   {"../x", "/a/b", "../x/", "/a/x/"},
                                   {"x", "C:/a", "x/", "C:/a/x/"},
                                   {"../../x", "a", "../../x/", "../x/"}};
    for (auto const& row : rows) {
        SCOPED_TRACE(std::string(row[0]) + " from " + row[1]);
        nio::cPath path(row[0]);
        path.makeRelative(nio::cPath(row[1]));
        EXPECT_EQ(text(path.path()), row[2]);
        path.set(row[0]);
        path.makeAbsolute(nio::cPath(row[1]));
        EXPECT_EQ(text(path.path()), row[3]);
    }
    nio::cPath detour("/a/b");
    detour.cd("../c\\d");
    detour.makeRelative(nio::cPath("/a/c"));
    EXPECT_EQ(text(detour.path()), "d/");
}

TEST_F(cPathTest, aFileNameHasADirectoryPart)
{
    struct {
        char const* name;
        unsigned int length;
        char const* directory;
        char const* fromHome; ///< as seen from /home/me/
    } const rows[] = {
        {"file", 0, "./", "/home/me/file"},  {"../file.c", 3, "../", "/home/file.c"},
        {"a\\b", 2, "a\\", "/home/me/a\\b"}, {"/etc/x", 5, "/etc/", "/etc/x"},
        {"C:file", 2, "C:/", "C:file"},      {"..", 2, "../", "/home/"},
        {"a/.", 3, "a/./", "/home/me/a/"},   {"...", 0, "./", "/home/me/..."},
        {"ab:c", 0, "./", "/home/me/ab:c"},  {"", 0, "./", "/home/me/"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        cString name(row.name);
        EXPECT_EQ(nio::cPath::pathComponentLength(name), row.length);
        EXPECT_EQ(text(nio::cPath("/home/me").relativeTo(name)), row.fromHome);
        nio::cPath::storePathComponent(name, name);
        EXPECT_EQ(text(name), row.directory);
    }
    nio::cPath const here;
    EXPECT_TRUE(here.isAbsolute() && here.exists());
    EXPECT_EQ(text(nio::cPath("a").relativeTo("../b")), text(here.path()) + "b");
    EXPECT_FALSE(nio::cPath("/no such directory").exists());
}

TEST_F(cPathTest, equalPathsLeadToTheSamePlace)
{
    nio::cPath const path("/a/b");
    nio::cPath detour("/a//c/", false);
    EXPECT_NE(path, detour);
    detour.cd(".././b/");
    EXPECT_EQ(path, detour);
    EXPECT_EQ(nio::cPath("C:./..//x"), nio::cPath("C:../x"));
    EXPECT_NE(nio::cPath("C:/a"), nio::cPath("/a"));
}

TEST_F(cPathTest, theCacheIsBounded)
{
    auto& cache = npi::system().caches.createPathFixupHash();
    EXPECT_EQ(nio::cPath("D:../a").driveLetter(), 0);
    EXPECT_EQ(cache.size(), 1u);
    nio::cPath const cached("D:../a");
    EXPECT_EQ(text(cached.unixEquivalent()), "../a/");
    EXPECT_EQ(cached.driveLetter(), 'D'); // a result from the cache does not tell
    for (unsigned int i = 1; i <= 16384; ++i) {
        EXPECT_EQ(cache.size(), i);
        nio::cPath const path(("/" + std::to_string(i)).c_str());
    }
    EXPECT_EQ(cache.size(), 1u);
}

TEST_F(cPathTest, whenMemoryRunsOutPathAndCacheStay)
{
    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    auto& cache = npi::system().caches.createPathFixupHash();
    cString const start("a/../some/directory/with/a/long/name/");
    cString path;
    auto const fixup = [&] {
        path = start;
        bool aboveStart = false;
        nio::fixupPath(path, aboveStart);
    };
    auto const check = [&] {
        for (auto const& entry : cache)
            EXPECT_FALSE(entry.second.empty());
        EXPECT_TRUE(path.empty() || path == start || path == "some/directory/with/a/long/name/");
        cache.clear();
    };
    EXPECT_GT(ntest::failEachRequest(fixup, check), 2u);
}

TEST(cPathWithoutSystemTest, noSystemIsBuiltForAPath)
{
    npi::cSystem::cleanup();
    EXPECT_EQ(text(nio::cPath("a/../b").path()), "b/");
    cAbstractNELApp app;
    npi::cSystem::setApp(&app); // a system would keep it
    EXPECT_TRUE(ntest::raisedBy<nstd::cBugException>(&npi::cSystem::app));
}

} // namespace
