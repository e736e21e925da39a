#include "nel_core/ucs/cLITrTable.h"

#include <gtest/gtest.h>
#include <string>

#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cLIMessage.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"
#include "tests/support/storedForm.h"

namespace {

using nucs::cLITrTable;
using nucs::cString;
using namespace ntest;

class cLITrTableTest : public cSystemFixture { };

std::string found(cLITrTable const& table, char const* key)
{
    auto const* const item = table.hasTranslation(key);
    return item ? text(item->translation) : "(none)";
}

TEST_F(cLITrTableTest, hashesUnsignedBytes)
{
    struct cRow {
        char const* key;
        unsigned int place1, place2;
    };
    for (auto const& row : {cRow{"", 0, 0},
                            {"abc", 3, 11},
                            {"xyz", 3, 11},
                            {"a", 1, 194 % 23},
                            {"\xFF\xFE", 2, 509 % 23},
                            {"1234567890123456789012345", 0, ('1' + '3') % 23}}) {
        EXPECT_EQ(nucs::hashKey1(row.key), row.place1) << row.key;
        EXPECT_EQ(nucs::hashKey2(row.key), row.place2) << row.key;
    }
}

TEST_F(cLITrTableTest, findsTheFirstTranslationOfAKey)
{
    cLITrTable table;
    EXPECT_EQ(found(table, "abc"), "(none)");
    for (auto const* const key : {"xyz", "abc", "", "hello", "hello"})
        table.addTranslation(key, cString(key) + cString(found(table, "hello").c_str()));
    EXPECT_EQ(found(table, "abc"), "abc(none)");
    EXPECT_EQ(found(table, "xyz"), "xyz(none)");
    EXPECT_EQ(found(table, ""), "(none)");
    EXPECT_EQ(found(table, "hello"), "hello(none)");
    EXPECT_EQ(found(table, "acb"), "(none)") << "another place of level 2";
    EXPECT_EQ(found(table, "bac"), "(none)");

    cLITrTable other;
    other.swap(table);
    EXPECT_EQ(found(table, "abc"), "(none)");
    EXPECT_EQ(found(other, "abc"), "abc(none)");
    other.clear();
    EXPECT_EQ(found(other, "abc"), "(none)");
}

TEST_F(cLITrTableTest, translatesMessages)
{
    cLITrTable table;
    table.addTranslation("%a% of %b%", "von %b% %a%");
    cString out("old");
    EXPECT_TRUE(table.translation(nucs::cLIMessage() << "$MTR$%a% of %b%" << 1 << 2, out));
    EXPECT_EQ(text(out), "von 2 1");
    EXPECT_FALSE(table.translation(nucs::cLIMessage() << "$MTR$other %a%" << 1, out));
    EXPECT_EQ(text(out), "other 1");
}

std::string named(std::string const& body)
{
    return word(12) + number(static_cast<unsigned int>(31 + body.size())) + boolean(true) + ascii("unknown")
           + body;
}

std::string item(std::string const& key, std::string const& translation)
{
    return label("Translation") + context(ascii(key) + unicode(translation));
}

std::string repeated(std::string const& part, unsigned int count)
{
    std::string all;
    while (count-- != 0)
        all += part;
    return all;
}

// Adds a translation of the key beside one of "xyz", with each request for memory refused in turn.
void addWithRefusals(char const* key)
{
    SCOPED_TRACE(key);
    auto const fill = [](cLITrTable& table) { table.addTranslation("xyz", "1"); };
    auto const bytes = [](cLITrTable const& table) { return written([&](auto& to) { table >> to; }); };
    cLITrTable table;
    cLITrTable full;
    fill(table);
    fill(full);
    auto const old = bytes(full);
    full.addTranslation(key, "2");
    bool isAdded = false;
    auto const add = [&] {
        table.addTranslation(key, "2");
        isAdded = true;
    };
    auto const check = [&] {
        EXPECT_EQ(bytes(table), isAdded ? bytes(full) : old);
        table.clear();
        fill(table);
        isAdded = false;
    };
    EXPECT_GT(failEachRequest(add, check), 0U);
}

TEST_F(cLITrTableTest, aFailedCallAddsNothing)
{
    if (!cFailingMemory::isAvailable())
        GTEST_SKIP();
    addWithRefusals("abc"); // takes what is taken once in a process
    auto const before = cFailingMemory::inUse();
    for (auto const* const key : {"abc", "bbb", "hello"}) // in the list of "xyz", beside it, in another part
        addWithRefusals(key);
    EXPECT_EQ(cFailingMemory::inUse(), before);
}

std::string const kEmpty = boolean(true);
// A table whose only list, at 3/11, has these items.
std::string stored(std::string const& items)
{
    return named(repeated(kEmpty, 3) + boolean(false) + label("Hash-Part")
                 + named(repeated(kEmpty, 11) + boolean(false) + label("Hash") + context(items)));
}

TEST_F(cLITrTableTest, hasAStoredFormWithLabels)
{
    cLITrTable table;
    EXPECT_EQ(written([&](auto& to) { table >> to; }), named(""));
    table.addTranslation("abc", "1");
    table.addTranslation("xyz", "2");
    table.addTranslation("abc", "3");
    auto const bytes = stored(item("abc", "1") + item("xyz", "2") + item("abc", "3"));
    EXPECT_EQ(written([&](auto& to) { table >> to; }), bytes);

    cLITrTable loaded;
    loaded.addTranslation("old", "old");
    read(bytes, [&](auto& from) { loaded << from; });
    EXPECT_EQ(written([&](auto& to) { loaded >> to; }), bytes);
    unsigned int refused = 0;
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        try {
            read(bytes.substr(0, length), [&](auto& from) { loaded << from; });
        } catch (nstd::cAbstractException const&) {
            ++refused;
            ASSERT_EQ(written([&](auto& to) { loaded >> to; }), named("")) << "cut at " << length;
        }
    }
    EXPECT_GT(refused, bytes.size() / 2);
}

TEST_F(cLITrTableTest, refusesMorePlacesThanKeysHave)
{
    struct cRow {
        char const* name;
        std::string bytes;
        bool loads;
    };
    auto const level2 = [](unsigned int places) {
        return named(boolean(false) + label("Hash-Part") + named(repeated(kEmpty, places)));
    };
    for (auto const& row : {cRow{"25 places", named(repeated(kEmpty, 25)), true},
                            {"26 places", named(repeated(kEmpty, 26)), false},
                            {"23 places below", level2(23), true},
                            {"24 places below", level2(24), false}}) {
        SCOPED_TRACE(row.name);
        cLITrTable table;
        auto const load = [&] { read(row.bytes, [&](auto& from) { table << from; }); };
        if (row.loads)
            load();
        else
            raisedBy<nstd::cRuntimeException>(load);
        EXPECT_EQ(found(table, ""), "(none)");
    }
}

TEST_F(cLITrTableTest, printsStatistics)
{
    struct cRow {
        std::string bytes;
        char const* lines;
    };
    for (auto const& row : {cRow{named(""), "Number of translations  : 0\n"
                                            "h1-places               : 0 unused / 0 used (0%)\n"
                                            "h2-places               : 0 unused / 0 used (0%)\n"
                                            "Number of used lists    : 0\n"
                                            "Number of collisions    : 0\n"},
                            {stored(""), "Warning: Unused list detected: 3/11\n"
                                         "Number of translations  : 0\n"
                                         "h1-places               : 3 unused / 1 used (25%)\n"
                                         "h2-places               : 11 unused / 1 used (8%)\n"
                                         "Number of used lists    : 1\n"
                                         "Number of collisions    : 0\n"},
                            {stored(item("abc", "1") + item("xyz", "2")),
                             "Item: abc\n"
                             "Item: xyz\n"
                             "Warning: List at /3/11 contains collisions (2 translations)\n"
                             "         * First key is \"abc\"\n"
                             "Number of translations  : 1\n"
                             "h1-places               : 3 unused / 1 used (25%)\n"
                             "h2-places               : 11 unused / 1 used (8%)\n"
                             "Number of used lists    : 0\n"
                             "Number of collisions    : 1\n"}}) {
        cLITrTable table;
        read(row.bytes, [&](auto& from) { table << from; });
        cDebugRecorder recorder;
        table.printStatistics();
        EXPECT_EQ(recorder.text(), row.lines);
    }
}

} // namespace
