#include "nel_core/std/tArrayRef.h"

#include <string>

#include <gtest/gtest.h>

#include "nel_core/std/tArray.h"
#include "tests/support/expectRefusal.h"

using cBytes = nstd::tArray<char>;
using cView = nstd::tArrayRef<char>;

namespace {

std::string textOf(nstd::tAbstractConstArrayProxy<char> const& proxy)
{
    std::string text(proxy.proxyLength(), '\0');
    proxy.proxyCopyPartTo(text.data(), 0, proxy.proxyLength());
    return text;
}

struct cWrite {
    char const* name;
    void (*call)(cView&);
    char const *array, *view;
};

// The view is bcd of abcde.
cWrite const kWrites[] = {
    {"append an own element", [](cView& v) { v.append(v[0]); }, "abcdbe", "bcdb"},
    {"append itself", [](cView& v) { v.append(v.proxyProvideData(0, 3), 3); }, "abcdbcde", "bcdbcd"},
    {"insert in front", [](cView& v) { v.insert(0, "xy", 2); }, "axybcde", "xybcd"},
    {"erase", [](cView& v) { v.erase(1, 2); }, "abe", "b"},
    {"truncate", [](cView& v) { v.truncate(1); }, "abe", "b"},
    {"shrink", [](cView& v) { v.setSize(2); }, "abce", "bc"},
    {"grow", [](cView& v) { v.setSize(4), v.at(3) = 'x'; }, "abcdxe", "bcdx"},
    {"gap", [](cView& v) { v.proxyInsertDefaultObjects(1, 1), v[1] = 'x'; }, "abxcde", "bxcd"},
    {"patch with itself", [](cView& v) { v.proxyPatchData(1, 2, v.proxyProvideData(0, 2)); }, "abbce", "bbc"},
    {"write directly", [](cView& v) { *v.proxyProvideWriteableData(2, 1) = 'x'; }, "abcxe", "bcx"},
    {"write through a part", [](cView& v) { v.cut(1, 2).append('x'); }, "abcxde", "bcx"},
};

TEST(tArrayRefTest, writingChangesTheProxyAndTheView)
{
    for (auto const& row : kWrites) {
        SCOPED_TRACE(row.name);
        cBytes bytes("abcde");
        cView view(bytes, 1, 3);
        row.call(view);
        EXPECT_EQ(textOf(bytes), row.array);
        EXPECT_EQ(textOf(view), row.view);
        EXPECT_EQ(view.offset(), 1u);
    }
}

struct cRefusedCall {
    char const* name;
    void (*call)(cView&);
    char const* operation;
    int type;
    long long value = 0, max = 0;
};

cRefusedCall const kRefusedCalls[] = {
    {"at", [](cView& v) { v.at(3) = 'x'; }, "at", cSTDExceptions::ortIndex, 3, 2},
    {"insert", [](cView& v) { v.insert(4, "x", 1); }, "insert", cSTDExceptions::ortIndex, 4, 3},
    {"erase", [](cView& v) { v.erase(2, 2); }, "erase", cSTDExceptions::ortSize, 2, 1},
    {"truncate to the length", [](cView& v) { v.truncate(3); }, "truncate", cSTDExceptions::ortIndex, 3, 2},
    {"a gap that leaves the view", [](cView& v) { v.proxyInsertDefaultObjects(2, 2); },
     "proxyInsertDefaultObjects", cSTDExceptions::ortSize, 2, 1},
    {"patch", [](cView& v) { v.proxyPatchData(4, 1, "x"); }, "proxyPatchData", cSTDExceptions::ortIndex, 4,
     2},
    {"write directly", [](cView& v) { v.proxyProvideWriteableData(0, 4); }, "proxyProvideWriteableData",
     cSTDExceptions::ortSize, 4, 3},
    {"provide", [](cView& v) { v.proxyProvideData(0, 4); }, "provideData", cSTDExceptions::ortSize, 4, 3},
    {"cut", [](cView& v) { v.cut(0, 4); }, "cut", cSTDExceptions::ortEndValue, 4, 3},
    {"append too many", [](cView& v) { v.append("x", 0xFFFFFFFDu); }, "append", ntest::kOutOfBounds},
};

TEST(tArrayRefTest, aRefusedCallNamesTheLimitAndChangesNothing)
{
    for (auto const& row : kRefusedCalls) {
        SCOPED_TRACE(row.name);
        cBytes bytes("abcde");
        cView view(bytes, 1, 3);
        ntest::expectRefusal([&] { row.call(view); },
                             {"tArrayRef", row.operation, row.type, row.value, row.max});
        EXPECT_EQ(textOf(bytes), "abcde");
        EXPECT_EQ(textOf(view), "bcd");
    }
}

TEST(tArrayRefTest, writingToAnUnsetViewAsserts)
{
    void (*const calls[])() = {
        [] { cView().append('x'); },
        [] { cView().insert(1, "x", 1); },
        [] { cView().truncate(0); },
        [] { cView().proxyPatchData(1, 1, "x"); },
        [] { cView().proxyProvideWriteableData(1, 1); },
    };
    for (auto const call : calls) {
        SCOPED_TRACE(&call - calls);
        ntest::expectAssertion(call, "mpData != 0", "nel_core/std/tArrayRef");
    }
}

} // namespace
