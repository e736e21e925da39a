#include "nel_core/io/cSearchPaths.h"

#include "nel_core/io/cPath.h"
#include "tests/io/cFsFixture.h"

using nio::cSearchPaths;
using ntest::text;
using nucs::cString;

namespace {

using cNames = nstd::tVector<cString>;

// Directories a and b, searched in this order.
class cSearchPathsTest : public ntest::cFsFixture {
protected:
    void SetUp() override
    {
        setUp(native);
        paths = cSearchPaths(); // on the file system of this test's system
        for (char const* directory : {"a/sub", "b/sub", "b/only"})
            nio::cPath(path(directory)).mkdir();
        for (char const* file : {"a/both", "a/sub/x", "b/both", "b/only/y", "b/sub/x"})
            write(file);
        fs().createSymLink("nowhere", path("a/only"));
        fs().createSymLink("../b/only", path("b/link"));
        paths.addPath(path("a"));
        paths.addPath(path("b/"));
    }
    // Without the fixture's directory.
    std::string inside(cString const& name) const
    {
        std::string const full = text(name);
        return full.compare(0, msRoot.size(), msRoot) == 0 ? full.substr(msRoot.size()) : full;
    }
    std::string inside(cNames const& names) const
    {
        std::string list;
        for (auto const& name : names)
            list += inside(name) + ";";
        return list;
    }

    cSearchPaths paths;
};

TEST_F(cSearchPathsTest, aDirectoryIsHeldOnce)
{
    EXPECT_FALSE(paths.addPath(paths[0]));
    EXPECT_TRUE(paths.addPath(path("b"))); // another text
    EXPECT_TRUE(paths.addPath(""));

    cSearchPaths copy;
    copy.addPath("");
    copy.add(paths);
    copy.add(copy);
    EXPECT_EQ(copy.size(), 4u);
    EXPECT_EQ(text(copy[0]) + inside(copy[1]), "a");
    copy.removePath(copy[1]);
    EXPECT_EQ(text(copy[0]) + inside(copy[1]) + inside(copy[2]), "b/b");
    copy = paths;
    paths.clear();
    EXPECT_EQ(copy.size() * 10 + paths.size(), 40u);
}

TEST_F(cSearchPathsTest, theFirstEntryOfTheRightTypeIsFound)
{
    // A name, and what is found as a file, as a directory and as either.
    char const* const rows[][4] = {{"both", "a/both", "", "a/both"},
                                   {"sub", "", "a/sub", "a/sub"},
                                   {"only", "", "b/only", "b/only"},
                                   {"link/y", "b/link/y", "", "b/link/y"},
                                   {"../b/both", "a/../b/both", "", "a/../b/both"},
                                   {"link", "", "b/link", "b/link"},
                                   {"none", "", "", ""},
                                   {"both/x", "", "", ""}};
    for (auto const& row : rows) {
        SCOPED_TRACE(row[0]);
        EXPECT_EQ(inside(paths.tryFindFile(row[0], cSearchPaths::stFile)), row[1]);
        EXPECT_EQ(inside(paths.tryFindFile(row[0], cSearchPaths::stDirectory)), row[2]);
        cString result(row[0]);
        paths.tryFindFile(result, result, cSearchPaths::stFileOrDirectory);
        EXPECT_EQ(inside(result), row[3]);
        EXPECT_TRUE(paths.tryFindFile(row[0], static_cast<cSearchPaths::Type>(3)).empty());
    }
}

TEST_F(cSearchPathsTest, candidatesAreNormalisedAndHeldOnce)
{
    paths.addPath(path("b/../a"));
    cNames out;
    paths.candidates("sub/x", out);
    EXPECT_EQ(inside(out), "a/sub/x;b/sub/x;");
    paths.candidates("../x", out);
    EXPECT_EQ(inside(out), "x;");
    paths.candidates("x", out);
    EXPECT_EQ(inside(out), "a/x;b/x;");
    paths.existingCandidates(out[1], out, cSearchPaths::stDirectory);
    EXPECT_EQ(inside(out), "b/x;"); // absolute: not checked
    paths.existingCandidates("only", out, cSearchPaths::stDirectory);
    EXPECT_EQ(inside(out), "b/only;");
    cSearchPaths(fs()).candidates("x", out);
    EXPECT_TRUE(out.empty());
}

} // namespace
