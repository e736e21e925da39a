#include "nel_core/std/tArrayRef.h"

#include <string>

#include <gtest/gtest.h>

#include "nel_core/std/cBugException.h"
#include "nel_core/std/cOutOfBoundsException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_core/std/tArray.h"
#include "tests/support/raisedBy.h"

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
    {"append an element", [](cView& v) { EXPECT_EQ(v.append('x'), 3u); }, "abcdxe", "bcdx"},
    {"append an own element", [](cView& v) { v.append(v[0]); }, "abcdbe", "bcdb"},
    {"append elements", [](cView& v) { v.append("xyz", 2); }, "abcdxye", "bcdxy"},
    {"append a text", [](cView& v) { EXPECT_EQ(v.append("xy"), 3u); }, "abcdxye", "bcdxy"},
    {"append itself", [](cView& v) { v.append(v.proxyProvideData(0, 3), 3); }, "abcdbcde", "bcdbcd"},
    {"insert in front", [](cView& v) { v.insert(0, "xy", 2); }, "axybcde", "xybcd"},
    {"insert at the end", [](cView& v) { EXPECT_EQ(v.proxyInsert(3, "x", 1), 1u); }, "abcdxe", "bcdx"},
    {"erase", [](cView& v) { v.erase(1, 2); }, "abe", "b"},
    {"erase everything", [](cView& v) { v.proxyErase(0, 3); }, "ae", ""},
    {"truncate", [](cView& v) { v.truncate(1); }, "abe", "b"},
    {"truncate nothing",
     [](cView& v) {
         v.erase(0, 3);
         v.truncate(0);
     },
     "ae", ""},
    {"shrink", [](cView& v) { v.setSize(2); }, "abce", "bc"},
    {"keep the size", [](cView& v) { v.setSize(3); }, "abcde", "bcd"},
    {"grow",
     [](cView& v) {
         v.setSize(5);
         v[3] = 'x';
         v.at(4) = 'y';
     },
     "abcdxye", "bcdxy"},
    {"open a gap",
     [](cView& v) {
         EXPECT_EQ(v.proxyInsertDefaultObjects(1, 2), 2u);
         v.proxyPatchData(1, 2, "xy");
     },
     "abxycde", "bxycd"},
    {"patch", [](cView& v) { v.proxyPatchData(1, 2, "xy"); }, "abxye", "bxy"},
    {"write directly", [](cView& v) { *v.proxyProvideWriteableData(2, 1) = 'x'; }, "abcxe", "bcx"},
    {"write an element", [](cView& v) { v.proxyAt(0) = 'x'; }, "axcde", "xcd"},
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

struct cFailure {
    char const* name;
    void (*call)(cView&);
    char const* operation;
    int type; // of out-of-range, or -1 for out-of-bounds
    long long value, max;
};

cFailure const kFailures[] = {
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
    {"find",
     [](cView& v) {
         bool f;
         v.find('b', f, 4);
     },
     "find", -1, 0, 0},
    {"append too many", [](cView& v) { v.append("x", 0xFFFFFFFDu); }, "append", -1, 0, 0},
};

TEST(tArrayRefTest, failuresNameTheLimitAndChangeNothing)
{
    for (auto const& row : kFailures) {
        SCOPED_TRACE(row.name);
        cBytes bytes("abcde");
        cView view(bytes, 1, 3);
        auto const call = [&] { row.call(view); };
        if (row.type < 0) {
            auto const error = ntest::raisedBy<nstd::cOutOfBoundsException>(call);
            ASSERT_TRUE(error.has_value());
            EXPECT_TRUE(error->container() == "tArrayRef" && error->operation() == row.operation);
        } else {
            auto const error = ntest::raisedBy<nstd::cOutOfRangeException>(call);
            ASSERT_TRUE(error.has_value());
            EXPECT_TRUE(error->container() == "tArrayRef" && error->operation() == row.operation);
            EXPECT_EQ(static_cast<int>(error->rangeType()), row.type);
            EXPECT_EQ(error->value(), row.value);
            EXPECT_EQ(error->max(), row.max);
        }
        EXPECT_EQ(textOf(bytes), "abcde");
        EXPECT_EQ(textOf(view), "bcd");
    }
}

TEST(tArrayRefTest, writingToAnUnsetViewAsserts)
{
    void (*const calls[])() = {
        [] { cView().append('x'); },
        [] { cView().append("x"); },
        [] { cView().insert(1, "x", 1); },
        [] { cView().erase(1, 1); },
        [] { cView().truncate(0); },
        [] { cView().setSize(0); },
        [] { cView().proxySetSize(0); },
        [] { cView().proxyInsertDefaultObjects(1, 1); },
        [] { cView().proxyPatchData(1, 1, "x"); },
        [] { cView().proxyProvideWriteableData(1, 1); },
        [] {
            unsigned int offset;
            cView().proxyPhysical(offset);
        },
    };
    for (auto const call : calls) {
        SCOPED_TRACE(&call - calls);
        auto const error = ntest::raisedBy<nstd::cBugException>(call);
        ASSERT_TRUE(error.has_value());
        auto const message = ntest::messageOf(*error);
        EXPECT_NE(message.find("mpData != 0"), std::string::npos) << message;
        EXPECT_NE(message.find("nel_core/std/tArrayRef"), std::string::npos) << message;
    }
}

TEST(tArrayRefTest, resizingTheProxyLeavesTheViewAlone)
{
    cBytes bytes("abcde");
    cView view(bytes, 1, 3);
    view.setOpBlockSize(2);
    view.proxySetSize(9);
    EXPECT_EQ(bytes.length(), 9u);
    EXPECT_EQ(view.length(), 3u);
    EXPECT_EQ(view.proxyPreferredBlockSize(), 2u);
    view.append('x');
    EXPECT_EQ(view.proxyPreferredBlockSize(), 0u); // set anew
}

} // namespace
