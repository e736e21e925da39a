#include <string>

#include "nel_core/io/cFileInfo.h"
#include "nel_core/io/cFs.h"
#include "nel_core/io/cPath.h"
#include "nel_core/pi/cAbstractPlatformInfo.h"
#include "nel_core/pi/cPlatform.h"
#include "nel_core/pi/cSystem.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace {

using nio::cFileInfo;
using nucs::cString;
using cFileInfoTest = ntest::cSystemFixture;

TEST_F(cFileInfoTest, aPathHasParts)
{
    struct {
        char const *path, *directory, *name, *base, *extension;
    } const rows[] = {
        {"/a/archive.tar.gz", "/a/", "archive.tar.gz", "archive", ".tar.gz"},
        {"name", "./", "name", "name", ""},
        {"/a.b/name", "/a.b/", "name", "name", ""},
        {"a/.hidden", "a/", ".hidden", "", ".hidden"},
        {"/a/", "/a/", "", "", ""},
        {"a/..", "a/../", "", "", ""},
        {"/x.", "/", "x.", "x", "."},
        {"", "./", "", "", ""},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.path);
        cFileInfo const info{cString(row.path)};
        EXPECT_EQ(info.fullPath(), row.path);
        EXPECT_EQ(ntest::text(info.pathComponent()), row.directory);
        EXPECT_EQ(ntest::text(info.fileName()), row.name);
        EXPECT_EQ(ntest::text(info.fileBaseName()), row.base);
        EXPECT_EQ(ntest::text(info.fileExtension()), row.extension);
    }
    EXPECT_EQ(cFileInfo("\xC3\xA4").fullPath(), L"\u00E4");
    cFileInfo const info(nstd::cAsciiString("\xC3\xA4/../b/c.d"));
    EXPECT_EQ(info.toPath().path(), "b/");
    EXPECT_EQ(info.fullAbsolutePath(), npi::system().fs.cwd().path() + "b/c.d");
    EXPECT_EQ(cFileInfo(cString("/a/b/c.d")).fullRelativePath(nio::cPath("/a/x/")), "../b/c.d");
}

// The second text may be the first one.
TEST_F(cFileInfoTest, pathsAreEditedInPlace)
{
    using tEdit = void (*)(cString&, cString const&);
    tEdit const into = [](cString& path, cString const& name) { cFileInfo::setFileName(path, name, true); };
    tEdit const name = [](cString& path, cString const& to) { cFileInfo::setFileName(path, to, false); };
    struct {
        tEdit edit;
        char const *path, *text, *expected;
    } const rows[] = {
        {name, "/a/b.c", "d", "/a/d"},
        {name, "b", "d", "d"},
        {into, "/a/b", "d", "/a/b/d"},
        {into, "a\\", "d", "a\\d"},
        {into, "", "d", "d"},
        {cFileInfo::setFilePath, "/a/b.c", "x", "x/b.c"},
        {cFileInfo::setFilePath, "/a/b.c", "x\\", "x\\b.c"},
        {cFileInfo::setFilePath, "/a/b.c", "", "b.c"},
        {cFileInfo::setFileNamePrefix, "a/core", "lib", "a/libcore"},
        {cFileInfo::setFileNamePrefix, "lib/libcore", "lib", "lib/libcore"},
        {cFileInfo::setFileNamePrefix, "core", "", "core"},
        {cFileInfo::setFileNameSuffix, "a.b/core.tar.gz", "_d", "a.b/core_d.tar.gz"},
        {cFileInfo::setFileNameSuffix, "core_d.so", "_d", "core_d.so"},
        {cFileInfo::setFileNameSuffix, "d", "_d", "d_d"},
        {cFileInfo::setFileNameSuffix, "core", "", "core"},
        {cFileInfo::setFileNameExtension, "a.b/core.tar.gz", ".so", "a.b/core.so"},
        {cFileInfo::setFileNameExtension, "a.b/core", ".so", "a.b/core.so"},
        {cFileInfo::setFileNameExtension, "core.so.1", "", "core"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(std::string(row.path) + " " + row.text);
        cString path(row.path);
        row.edit(path, cString(row.text));
        EXPECT_EQ(ntest::text(path), row.expected);
    }
    cString path("a");
    cFileInfo::setFilePath(path, path);
    cFileInfo::setFileNameExtension(path, path);
    EXPECT_EQ(path, "a/aa/a");
}

TEST_F(cFileInfoTest, thePlatformNamesItsFiles)
{
    auto const info = npi::cPlatform::createPlatformInfo();
    for (auto const& [name, expected] :
         {std::pair("core", "libcore.so"), std::pair("m/libx.dll", "m/libx.so")}) {
        cString file(name);
        info->osSpecificSOName(file);
        EXPECT_EQ(ntest::text(file), expected);
    }
    EXPECT_EQ(info->platformName(), "Linux");
    EXPECT_EQ(info->osAppFileExtension(), "");
}

} // namespace
