#include "nel_core/std/cUTF8StringTokenizer.h"

#include <gtest/gtest.h>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/raisedBy.h"

using nstd::cUTF8StringTokenizer;

namespace {

TEST(cUTF8StringTokenizerTest, decodesTokens)
{
    nstd::tArray<char> const text("gr\xC3\xBC\xC3\x9F\xE2\x86\x92"
                                  "a\xC2\xA7 b");
    cUTF8StringTokenizer tokenizer(text);
    tokenizer.context().addKey(nucs::cString(L"\x2192"), 4);
    tokenizer.context().addSeparator("\xC2\xA7");
    tokenizer.context().addSeparator(" ");
    nucs::cString token;
    EXPECT_EQ(tokenizer.expectToken(token), 0u);
    EXPECT_TRUE(token == L"gr\xFC\xDF");
    EXPECT_EQ(tokenizer.expectToken(token), 4u);
    EXPECT_TRUE(token == L"\x2192");
    tokenizer >> token >> token >> token;
    EXPECT_TRUE(token == "b");
    auto const error = ntest::raisedBy<nstd::cRuntimeException>([&] { tokenizer.expectToken(token); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(ntest::messageOf(*error), "Unexpected end of input!");
}

TEST(cUTF8StringTokenizerTest, invalidUTF8LeavesTheTokenAsItWas)
{
    cUTF8StringTokenizer tokenizer("\xC3,b");
    tokenizer.context().addSeparator(",");
    nucs::cString token("old");
    unsigned int id = 0;
    auto const error = ntest::raisedBy<nstd::cRuntimeException>([&] { tokenizer.getNextToken(token, id); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(ntest::messageOf(*error), "Unicode decode error!");
    EXPECT_TRUE(token == "old");
    EXPECT_TRUE(tokenizer.getNextToken(token, id) && token == "b");
}

TEST(cUTF8StringTokenizerTest, keepsTemporariesAndViewsEverythingElse)
{
    nstd::cAsciiString const string("a,b");
    nstd::cAsciiString taken("x");
    nstd::cAsciiString const taker(std::move(taken));
    EXPECT_TRUE(cUTF8StringTokenizer(std::move(taken)).empty());
    cUTF8StringTokenizer fromArray(nstd::tArray<char>("a,b")), fromTemporary(nstd::cAsciiString("a,b")),
        fromString(string), fromLiteral("a,b"), fromView(nstd::tConstArrayRef<char>(string, 0, 3));
    for (auto* tokenizer : {&fromArray, &fromTemporary, &fromString, &fromLiteral, &fromView}) {
        tokenizer->context().addSeparator(",");
        nucs::cString first, second;
        *tokenizer >> first >> second;
        EXPECT_TRUE(first == "a" && second == "b");
    }
}

} // namespace
