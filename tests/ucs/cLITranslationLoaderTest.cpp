#include "nel_core/ucs/cLITranslationLoader.h"

#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>

#include "nel_core/std/cTextParseException.h"
#include "nel_core/ucs/cLITrTable.h"
#include "tests/ucs/cTranslationFiles.h"

namespace {

using namespace ntest;
using nucs::cLITranslationLoader;
using nucs::cLITrTable;

class cLITranslationLoaderTest : public cTranslationFiles { };

std::string found(cLITrTable const& table, char const* key)
{
    auto const* const item = table.hasTranslation(key);
    return item ? text(item->translation) : "(none)";
}

TEST_F(cLITranslationLoaderTest, readsEntries)
{
    struct cRow {
        char const *name, *text, *key, *translation;
    };
    for (auto const& row : {
             cRow{"nothing", "", "k", "(none)"},
             {"an entry", "\"k\"=\"v\"", "k", "v"},
             {"what separates", ";\t\"k\"\r\n=\r\r\"v\";;", "k", "v"},
             {"other words, which are no statements", "Name \"k\" = \"v\" include Flag = ( ) x", "k", "v"},
             {"a comment", "// \"k\" = \"w\"\n\"k\"=\"v\" // end", "k", "v"},
             {"an empty comment", "//\r\n//\n\"k\"=\"v\"//", "k", "v"},
             {"escapes", "\"k\" = \"a\\\"b\\\\c\\nd\"", "k", "a\"b\\cnd"},
             {"an escaped key", "\"\\\"k\" = \"v\"", "\"k", "v"},
             {"a line break in a text", "\"k\"=\"a\r\n// b;\"", "k", "a\r\n// b;"},
             {"characters that are not ASCII", "\"k\xC3\xBC\xE2\x82\xAC\" = \"\xC3\xBC\"", "k??", "\xC3\xBC"},
             {"a quote as a text", "\"k\"=\"\"\"", "k", "\""},
             {"the first of two", "\"k\"=\"v\" \"k\"=\"w\"", "k", "v"},
         }) {
        SCOPED_TRACE(row.name);
        cLITrTable table;
        table.addTranslation("old", "o");
        table.addTranslation("path", path("f"));
        cLITranslationLoader::patchFromFile(write("f", row.text), table);
        EXPECT_EQ(found(table, row.key), row.translation);
        EXPECT_EQ(found(table, "old"), "o");
        cLITranslationLoader::loadFile(table.hasTranslation("path")->translation, table);
        EXPECT_EQ(found(table, row.key), row.translation);
        EXPECT_EQ(found(table, "old"), "(none)");
    }
}

TEST_F(cLITranslationLoaderTest, reportsDamage)
{
    char const* const kQuote = "\" expected!";
    char const* const kAssign = "\"=\" expected!";
    struct cRow {
        char const *name, *text, *message;
        unsigned int line;
    };
    for (auto const& row : {
             cRow{"a key that is never closed", "\"a\"=\"b\"\n\"k", kQuote, 1},
             {"a quote at the end", "\r\r\r\"", kQuote, 3},
             {"an escape at the end", "\"k\" = \"v\\", kQuote, 0},
             {"an escaped quote at the end", "\"k\" = \"v\\\"", kQuote, 0},
             {"a doubled escape before the quote", "\"k\" = \"v\\\\\"", kQuote, 0},
             {"an empty key", "\"\" = \"v\"", kQuote, 0},
             {"an empty value", "\"k\" = \"\"", kQuote, 0},
             {"no =", "//\n\r\n\"k\" \"v\"", kAssign, 2},
             {"no = at all", "\"k\"\n\n", kAssign, 2},
             {"no value", "\"k\"=", kQuote, 0},
             {"a word as value", "\"k\"=fromFile(\"x\")", kQuote, 0},
             {"line breaks in a text, which do not count", "\"\n\n\"=\"\n\"\r\n\"k\"", kAssign, 1},
         }) {
        SCOPED_TRACE(row.name);
        cLITrTable table;
        auto const error = raisedBy<nstd::cTextParseException>(
            [&] { cLITranslationLoader::patchFromFile(write("f", row.text), table); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(messageOf(*error), row.message);
        EXPECT_EQ(text(error->format()), "tr");
        EXPECT_EQ(text(error->fileName()), text(path("f")));
        EXPECT_EQ(error->row(), row.line);
        EXPECT_EQ(error->column(), 0U);
        EXPECT_EQ(found(table, "k"), "(none)");
    }
    for (char const* const text : {"\"k\" = \"\xC3", "// \xFF", "\xC3", "\"k\xC3\" = \"v\""}) {
        cLITrTable table;
        EXPECT_NE(chainRaised([&] {
                      cLITranslationLoader::patchFromFile(write("f", text), table);
                  }).find("Unicode decode error!\n"),
                  std::string::npos);
    }
}

TEST_F(cLITranslationLoaderTest, readsRegularFilesOnly)
{
    ASSERT_EQ(::mkfifo((mDirectory / "pipe").c_str(), 0600), 0);
    std::filesystem::create_directory(mDirectory / "directory");
    cLITrTable table;
    for (char const* const name : {"pipe", "directory", "/dev/zero"}) {
        auto const file = name[0] == '/' ? nucs::cString(name) : path(name);
        auto const chain = chainRaised([&] { cLITranslationLoader::patchFromFile(file, table); });
        EXPECT_EQ(chain.rfind("Unable to open file \"", 0), 0U) << chain;
        EXPECT_NE(chain.find("is not a regular file!\n"), std::string::npos) << chain;
    }
    auto const chain = chainRaised([&] { cLITranslationLoader::patchFromFile(path("missing"), table); });
    EXPECT_EQ(chain.rfind("Unable to open file \"DIR/missing\"!\n", 0), 0U) << chain;

    std::filesystem::create_symlink("f", mDirectory / "link");
    write("f", "\"k\" = \"v\"");
    cLITranslationLoader::patchFromFile(path("link"), table);
    EXPECT_EQ(found(table, "k"), "v");
    cLITranslationLoader::patchFromFile("/proc/self/status", table); // measures 0 bytes
}

} // namespace
