#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/ucs/cTranslationFiles.h"
#include "tools/nel-tr/cTranslationCheck.h"
#include "tools/nel-tr/scan.h"

namespace {

class translationToolTest : public ntest::cTranslationFiles {
protected:
    std::vector<std::string> findings(std::string const& content, char const* list) const
    {
        write("f.tr", content);
        cTranslationCheck file((mDirectory / "f.tr").string());
        cKeyList keys;
        keys.addLines(list);
        if (file.isRead())
            file.compare(keys);
        std::vector<std::string> shown;
        for (auto const& finding : file.findings())
            shown.push_back(finding.substr((mDirectory / "f.tr: ").string().size()));
        return shown;
    }
};

TEST_F(translationToolTest, findsKeysInSourcesAndBytes)
{
    struct cRow {
        char const* name;
        std::string content, keys;
    };
    for (auto const& row : {
             cRow{"literals", "f(\"$MTR$a\", \"$MTR$b\"); \"$MNTR$c\" \"x$MTR$d\"", "$MTR$a\n$MTR$b\n"},
             {"each once", "\"$MTR$a\" + \"$MTR$a\" + \"$MTR$\"", "$MTR$a\n"},
             {"side by side", "\"$MT\" /* , */ \"R$a\" // ;\n u8\"b\" \\\n\"c\"", "$MTR$abc\n"},
             {"escapes", "\"$MTR$\\\"\\\\\\n\\x25\\045\\r\\?\"", "$MTR$\"\\\\\\n%%\\r?\n"},
             {"raw", "R\"x($MTR$a\\)\"b)x\"", "$MTR$a\\\\)\"b\n"},
             {"comments", "// \"$MTR$a\"\n/* \"$MTR$b\" */ '\"' \"$MTR$c\"", "$MTR$c\n"},
             {"digit separators", "1'000 + \"$MTR$a\" + 0x1'0", "$MTR$a\n"},
             {"not closed", "\"$MTR$a\nb(\"$MTR$c", "$MTR$a\n$MTR$c\n"},
             {"an open raw literal", "\"$MTR$a\", R\"(", "$MTR$a\n"},
             {"no raw literal", "ER\"x\" \"$MTR$a\" + \"$MTR$b\" + f()", "$MTR$b\n"},
             {"an escape at the end", "\"$MTR$a\\", "$MTR$a\\\\\n"},
             {"an open comment", "/* \"$MTR$a\"", ""},
             {"bytes", std::string("\0$MTR$a\nb\0x$MTR$c\0$MTR$d", 24), "$MTR$a\\nb\n"},
             {"a number in front", std::string("\4@$MTR$a", 9), "$MTR$a\n"},
             {"an ELF file without sections", std::string("\177ELF\2\1\0$MTR$a\0", 14), "$MTR$a\n"},
         }) {
        SCOPED_TRACE(row.name);
        cKeyList keys;
        scanFile(row.content, keys);
        EXPECT_EQ(keys.text(), row.keys);
        cKeyList again;
        again.addLines("x\n" + keys.text());
        EXPECT_EQ(again.keys(), keys.keys());
    }
}

TEST_F(translationToolTest, checksTranslationFiles)
{
    struct cRow {
        char const *name, *content, *list;
        std::vector<std::string> findings;
    };
    for (auto const& row : {
             cRow{"nothing wrong", "\"a %x%\" = \"%x% b\"", "$MTR$a %x%", {}},
             {"syntax",
              "\n\"a\"",
              "$MTR$b",
              {"Unable to parse translation file (" + (mDirectory / "f.tr").string()
               + ") line 1! \"=\" expected!"}},
             {"placeholders",
              "\"a %x% %y\" = \"%y% %z% \\\\%x\"",
              "$MTR$a %x% %y",
              {"the translation of \"a %x% %y\" lacks %x%",
               "the key \"a %x% %y\" lacks %z%, which its translation has"}},
             {"a list with CR LF", "\"a\" = \"b\"", "$MTR$a\r\n$MTR$\r\n", {}},
             {"twice", "\"a\" = \"b\" \"a\" = \"c\"", "$MTR$a", {"duplicate key \"a\""}},
             {"keys", "\"a\" = \"b\"", "$MTR$c\\nd", {"missing key \"c\\nd\"", "unused key \"a\""}},
         }) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(findings(row.content, row.list), row.findings);
    }
}

TEST_F(translationToolTest, aStubTranslatesItsKey)
{
    for (std::string const key : {"a", "\"", "a\\\"b", "%x% \n"}) {
        cKeyList keys;
        keys.add(key);
        EXPECT_EQ(findings(cTranslationCheck::stub(key), keys.text().c_str()), std::vector<std::string>())
            << key;
    }
    for (std::string const key : {"", "a\\", "\xC3\xBC"})
        EXPECT_EQ(cTranslationCheck::stub(key), "") << key;
}

} // namespace
