#include "tools/nel-dump/cStreamDump.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/storedForm.h"

namespace {

using ntest::context;
using ntest::word;

class streamDumpTest : public ntest::cSystemFixture {
protected:
    // The lines; `result` becomes how the dump ended.
    std::string dump(std::string const& bytes)
    {
        ntest::cDebugRecorder const silence;
        nstd::tArray<char> const data(bytes.data(), static_cast<unsigned int>(bytes.size()));
        std::string lines;
        result = cStreamDump(cStreamDump::tBytesRef(data), [&](std::string_view text) {
                     lines += text;
                     return true;
                 }).run();
        return lines;
    }

    cStreamDump::Result result = cStreamDump::rsNotWritten;
};

std::string namedContext(std::string const& name, std::string const& body)
{
    auto const rest = ntest::boolean(true) + ntest::ascii(name) + body;
    return word(12) + ntest::number(static_cast<unsigned int>(8 + rest.size())) + rest;
}

void writeNumbers(nsa::cSerializeBinary& target)
{
    target.store(static_cast<unsigned char>(200));
    target.store(static_cast<signed char>(-3));
    target.store(static_cast<unsigned short>(65535));
    target.store(static_cast<short>(-1));
    target.store(4294967295u);
    target.store(-5);
    target.store(~0ULL);
    target.store(std::numeric_limits<long long>::min());
    target.store(true);
    target.store(0.1);
    target.store(-0.0);
    target.store(5e-324);
    target.store(-std::numeric_limits<double>::infinity());
    target.store(std::numeric_limits<double>::quiet_NaN());
    target.store(-std::numeric_limits<double>::quiet_NaN());
}

void writeTexts(nsa::cSerializeBinary& target)
{
    nucs::cString text(L"\"\\\n\u20ac\u202e");
    target.store(nstd::cAsciiString("a\"\\\x01\x7f\xff"));
    target.store(text);
    text.append(0x110000u);
    text.append(0xD800u);
    target.store(text);
    target.setStringStoreMode(nsa::cSerializeBinary::ssmUTF8);
    target.store(nucs::cString("a"));
    target.storeBlock("", 0);
    target.storeBlock("0123456789abcdefg", 17);
}

std::string textContent()
{
    return ntest::written(writeTexts);
}

TEST_F(streamDumpTest, everyItemHasALine)
{
    struct {
        char const* name;
        std::string bytes;
        char const* lines;
    } const rows[] = {
        {"nothing", "", ""},
        {"numbers", ntest::written(writeNumbers),
         "       0 piUChar 200\n"
         "       5 piChar -3\n"
         "      10 piUInt16 65535\n"
         "      16 piInt16 -1\n"
         "      22 piUInt32 4294967295\n"
         "      30 piInt32 -5\n"
         "      38 piUInt64 18446744073709551615\n"
         "      50 piInt64 -9223372036854775808\n"
         "      62 piBool true\n"
         "      70 piDouble 0.1\n"
         "      82 piDouble -0\n"
         "      94 piDouble 5e-324\n"
         "     106 piDouble -inf\n"
         "     118 piDouble nan\n"
         "     130 piDouble nan 0xfff8000000000000\n"},
        {"texts and blocks", textContent(),
         "       0 cAsciiString \"a\\\"\\\\\\x01\\x7f\\xff\"\n"
         "      14 cString \"\\\"\\\\\\u{a}\u20ac\\u{202e}\"\n"
         "      42 cString \"\\\"\\\\\\u{a}\u20ac\\u{202e}\\u{110000}\\u{d800}\"\n"
         "      78 cString (UTF-8) \"a\"\n"
         "      87 rawBytes length 0\n"
         "      95 rawBytes length 17: 30 31 32 33 34 35 36 37 38 39 61 62 63 64 65 66 ...\n"},
        {"what is never written",
         word(0) + word(19) + word(14) + word(2) + word(1) + "hi" + word(15) + ntest::longNumber(28, 0)
             + ntest::boolean(false) + ntest::boolean(false),
         "       0 invalid\n"
         "       4 invalid\n"
         "       8 rawBytes64 length 2: 68 69\n"
         "      22 context64\n"
         "      46   piBool false\n"},
        {"contexts and labels",
         namedContext("X", ntest::label("") + context(ntest::label("\n"))) + namedContext("", "")
             + ntest::number(1),
         "       0 context \"X\"\n"
         "      29   label \"\"\n"
         "      41   context\n"
         "      61     label \"\\x0a\"\n"
         "      74 context \"\"\n"
         "     102 piUInt32 1\n"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(dump(row.bytes), row.lines);
        EXPECT_EQ(result, cStreamDump::rsWhole);
    }
}

TEST_F(streamDumpTest, damageEndsTheDump)
{
    auto const beyond = word(12) + ntest::number(24) + ntest::boolean(false);
    struct {
        char const* name;
        std::string bytes;
        char const* lines;
    } const rows[] = {
        {"a type that is none", ntest::number(1) + word(20),
         "       0 piUInt32 1\n"
         "       8 error: Invalid type id (20) while deserializing!\n"},
        {"a context beyond the data", beyond,
         "       0 context\n"
         "      20 error: The context claims more bytes than there are!\n"},
        {"a context beyond its parent", context(beyond) + ntest::number(1),
         "       0 context\n"
         "      20   context\n"
         "      40 error: The context claims more bytes than there are!\n"},
        {"a context without room for its name",
         word(12) + ntest::number(16) + ntest::boolean(true) + ntest::ascii("n") + ntest::number(1),
         "       0 context \"n\"\n"
         "      20 error: The context ends inside its header!\n"},
        {"an item beyond its context", context(word(10) + word(8)) + ntest::number(1) + ntest::number(2),
         "       0 context\n"
         "      20 error: The item is longer than what is left for it!\n"},
        {"a length that wraps", word(10) + word(0xFFFFFFFC),
         "       0 error: The item is longer than any stream!\n"},
        {"a label without a name", ntest::number(1) + word(13) + ntest::number(2),
         "       0 piUInt32 1\n"
         "       8 error: Type mismatch: Expecting type \"cAsciiString\" but got object of type "
         "\"piUInt32\"!\n"},
        {"no UTF-8", word(16) + word(1) + "\xff",
         "       0 error: Unicode decode error!: UTF8 decode error - unsupported length of 7!\n"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(dump(row.bytes), row.lines);
        EXPECT_EQ(result, cStreamDump::rsDamaged);
    }
}

// What lies before the cut is shown as ever. The damage is where the item that does not fit starts; a cut
// between two items of the outermost level leaves a whole stream.
TEST_F(streamDumpTest, cutAtEveryByte)
{
    auto const bytes = ntest::label("l") + ntest::written(writeNumbers)
                       + namedContext("X", context(textContent()) + ntest::longNumber(1, 2));
    auto const whole = dump(bytes);
    ASSERT_EQ(result, cStreamDump::rsWhole);

    std::size_t line = 0; // the last one that starts before the cut or there
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        SCOPED_TRACE(length);
        auto const next = whole.find('\n', line) + 1;
        if (next < whole.size() && std::stoul(whole.substr(next)) == length)
            line = next;
        bool const isBetween = std::stoul(whole.substr(line)) == length && whole[line + 9] != ' ';

        auto const lines = dump(bytes.substr(0, length));
        ASSERT_EQ(result, isBetween ? cStreamDump::rsWhole : cStreamDump::rsDamaged);
        EXPECT_EQ(lines.substr(0, line), whole.substr(0, line));
        if (!isBetween) {
            EXPECT_EQ(lines.substr(line, 16), whole.substr(line, 8) + " error: ");
            EXPECT_EQ(lines.find('\n', line), lines.size() - 1);
        } else {
            EXPECT_EQ(lines.size(), line);
        }
    }
}

TEST_F(streamDumpTest, nestingOfAnyDepthIsLinear)
{
    constexpr unsigned int kDepth = 100000;
    std::string bytes;
    for (unsigned int level = 0; level < kDepth; ++level)
        bytes += word(12) + ntest::number(16 + 20 * (kDepth - 1 - level)) + ntest::boolean(false);
    auto const lines = dump(bytes);
    EXPECT_EQ(result, cStreamDump::rsWhole);
    EXPECT_LT(lines.size(), kDepth * 120);
    EXPECT_NE(lines.find(" 1999980 " + std::string(80, ' ') + "[99999] context\n"), std::string::npos);

    bytes.resize(bytes.size() - 10);
    dump(bytes);
    EXPECT_EQ(result, cStreamDump::rsDamaged);
}

TEST_F(streamDumpTest, aSinkThatFailsEndsTheDump)
{
    nstd::tArray<char> data;
    data.appendElements(100000, 0);
    unsigned int calls = 0;
    cStreamDump refused(cStreamDump::tBytesRef(data), [&](std::string_view) { return ++calls == 0; });
    EXPECT_EQ(refused.run(), cStreamDump::rsNotWritten);
    EXPECT_EQ(calls, 1u);
}

} // namespace
