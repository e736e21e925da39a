#include "nel_core/ucs/cEnDecUTF8.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cConstCStringRef.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/raisedBy.h"

namespace {

using nucs::cEnDecUTF8;
using nucs::cString;
using cBytes = nstd::tArray<char>;

constexpr char kDecodeError[] = "Unicode decode error!";

std::string literal(cBytes const& bytes)
{
    return std::string(bytes.data(true), bytes.length());
}

// A text that can be had in blocks only; a block is valid until the next one is asked for.
class cBlocks : public nstd::tAbstractConstArrayProxy<char> {
public:
    cBlocks(std::string const& text, unsigned int size) : msText(text), miSize(size) { }
    char const& proxyAt(unsigned int index) const override { return msText.at(index); }
    unsigned int proxyLength() const override { return static_cast<unsigned int>(msText.size()); }
    void proxyCopyPartTo(char* target, unsigned int start, unsigned int count) const override
    {
        ASSERT_LE(start + count, msText.size());
        msText.copy(target, count, start);
    }
    char const* proxyProvideData(unsigned int start, unsigned int count) const override
    {
        EXPECT_TRUE(miSize == 0 || count <= miSize);
        EXPECT_LE(start + count, msText.size());
        maBlock.assign(msText.begin() + start, msText.begin() + start + count);
        return maBlock.data();
    }
    unsigned int proxyPreferredBlockSize() const override { return miSize; }
    tAbstractConstArrayProxy const& constProxyPhysical(unsigned int& offset) const override
    {
        offset = 0;
        return *this;
    }

private:
    std::string msText;
    unsigned int miSize;
    mutable std::vector<char> maBlock;
};

// What decoding gave: the code points, and the messages of the failure and its cause.
struct cOutcome {
    cString text;
    std::string message;
    std::string cause;
};

template<typename Decode>
cOutcome outcomeOf(Decode const& decode)
{
    cOutcome outcome;
    outcome.text = "<";
    try {
        decode(outcome.text);
    } catch (nstd::cRuntimeException const& error) {
        outcome.message = ntest::messageOf(error);
        outcome.cause = error.history() ? ntest::messageOf(*error.history()) : "";
    }
    return outcome;
}

cOutcome decoded(std::string const& bytes, unsigned int blockSize = 0)
{
    cBlocks const blocks(bytes, blockSize);
    return outcomeOf([&](cString& out) { cEnDecUTF8().decode(nstd::tConstArrayRef<char>(blocks), out); });
}

// One character after the other out of zero-filled buffers.
cOutcome decodedLiterally(std::string const& bytes)
{
    return outcomeOf([&](cString& out) {
        for (std::size_t at = 0; at < bytes.size();) {
            char buffer[8] = {};
            bytes.copy(buffer, sizeof(buffer), at);
            unsigned int taken = 0;
            out.append(cEnDecUTF8::decodeUTF8(buffer, taken));
            at += taken;
        }
    });
}

struct cSequence {
    unsigned int codePoint;
    std::string bytes;
};

cSequence const kSequences[] = {
    {0x7F, "\x7F"},
    {0x80, "\xC2\x80"},
    {0xE9, "\xC3\xA9"},
    {0x7FF, "\xDF\xBF"},
    {0x800, "\xE0\xA0\x80"},
    {0xD800, "\xED\xA0\x80"},
    {0xFFFF, "\xEF\xBF\xBF"},
    {0x10000, "\xF0\x90\x80\x80"},
    {0x1F600, "\xF0\x9F\x98\x80"},
    {0x1FFFFF, "\xF7\xBF\xBF\xBF"},
};

TEST(cEnDecUTF8Test, goesForthAndBack)
{
    for (auto const& row : kSequences) {
        SCOPED_TRACE(row.codePoint);
        cString text;
        text.append(row.codePoint);
        cBytes bytes;
        cEnDecUTF8().encode(text, bytes);
        EXPECT_EQ(literal(bytes), row.bytes);
        cOutcome const outcome = decoded(row.bytes);
        EXPECT_TRUE(outcome.message.empty() && outcome.text == cString("<") + text);
    }
}

TEST(cEnDecUTF8Test, encodesWhatDoesNotDecode)
{
    cBytes bytes("<", 1);
    cEnDecUTF8::encodeChar(0, bytes);
    cEnDecUTF8::encodeChar(0x200000, bytes);
    cEnDecUTF8::encodeChar(0x3FFFFFF, bytes);
    cEnDecUTF8::encodeChar(0xFFFFFFFF, bytes);
    EXPECT_EQ(literal(bytes),
              std::string("<\0\xF8\x88\x80\x80\x80\xFB\xBF\xBF\xBF\xBF\xFF\xBF\xBF\xBF\xBF", 17));
}

struct cBadText {
    char const* name;
    std::string bytes;
    cString text; // what stays
    char const* cause;
};

#define EOD(index) "UTF8 decode error - unexpected end of data at index " #index "!"

cBadText const kBadTexts[] = {
    {"cut after one", "\xC3", "", EOD(1)},
    {"cut after two", "ab\xE2\x82", "ab", EOD(2)},
    {"cut after three", "a\xF0\x9F\x98", "a", EOD(3)},
    {"zero", std::string("ab\0c", 4), "ab", EOD(0)},
    {"zero in the middle", std::string("a\xF0\x9F\0\x80", 5), "a", EOD(2)},
    {"zero after 40", std::string(40, 'x') + std::string(1, '\0') + std::string(20, 'y'),
     std::string(40, 'x').c_str(), EOD(0)},
    {"five bytes", "a\xF8\x88\x80\x80\x80", "a", "UTF8 decode error - unsupported length of 4!"},
    {"six bytes", "\xFC", "", "UTF8 decode error - unsupported length of 5!"},
    {"seven bytes", "\xFE", "", "UTF8 decode error - unsupported length of 6!"},
    {"eight bytes", "\xFF", "", "UTF8 decode error - unsupported length of 7!"},
};

TEST(cEnDecUTF8Test, keepsWhatWasDecodedBeforeAnError)
{
    for (auto const& row : kBadTexts) {
        for (unsigned int blockSize : {0u, 1u, 3u}) {
            SCOPED_TRACE(row.name);
            cOutcome const outcome = decoded(row.bytes, blockSize);
            EXPECT_EQ(outcome.message, kDecodeError);
            EXPECT_EQ(outcome.cause, row.cause);
            EXPECT_TRUE(outcome.text == cString("<") + row.text);
        }
    }
}

TEST(cEnDecUTF8Test, acceptsWhatIsNotQuiteUtf8)
{
    EXPECT_TRUE(decoded("\x80\xBF").text == L"<\u0080\u00BF");
    EXPECT_TRUE(decoded("\xC1\x81").text == "<A");
    EXPECT_EQ(decoded("\xC0\x01").text[1], 0xFFFFFF81u);
    EXPECT_EQ(decoded(std::string(100000, '\x80')).text.length(), 100001u);
}

// Room for one character a byte is taken while decoding; what stays is the pool that the characters need.
TEST(cEnDecUTF8Test, givesBackRoomInGrowSteps)
{
    EXPECT_EQ(decoded("\xC3\xA9").text._poolSize(), 4u);
    EXPECT_EQ(decoded(std::string(1000, '\xC1') + '\0', 7).text._poolSize(), 504u);

    cString text;
    text.appendElements(50);
    text.truncate(0);
    cEnDecUTF8().decode(cBytes(std::string(60, '\xC1').c_str(), 60), text);
    EXPECT_EQ(text.length(), 30u);
    EXPECT_EQ(text._poolSize(), 52u);
}

// Bytes with long runs of ASCII, whole characters and, now and then, anything at all.
std::string randomText(std::mt19937& random, bool valid)
{
    std::string text;
    auto const parts = random() % 12;
    for (unsigned int part = 0; part < parts; ++part) {
        auto const kind = random() % 16;
        if (kind < 6)
            text.append(random() % 40, static_cast<char>('a' + part));
        else if (kind < 14 || valid)
            text += kSequences[random() % std::size(kSequences)].bytes;
        else
            text += static_cast<char>(random());
    }
    return text;
}

TEST(cEnDecUTF8Test, decodesInBulkAsCharacterByCharacter)
{
    std::mt19937 random(1);
    for (unsigned int round = 0; round < 4000; ++round) {
        std::string const bytes = randomText(random, false);
        cOutcome const expected = decodedLiterally(bytes);
        for (unsigned int blockSize : {0u, 1u, 2u, 5u, 64u}) {
            cOutcome const outcome = decoded(bytes, blockSize);
            ASSERT_TRUE(outcome.text == expected.text) << testing::PrintToString(bytes) << blockSize;
            ASSERT_EQ(outcome.message, expected.message);
            ASSERT_EQ(outcome.cause, expected.cause);
        }
    }
}

TEST(cEnDecUTF8Test, encodesInBulkAsCharacterByCharacter)
{
    std::mt19937 random(2);
    for (unsigned int round = 0; round < 1000; ++round) {
        std::string const bytes = randomText(random, true);
        cString const text = decoded(bytes).text;
        cBytes bulk;
        cBytes single;
        cEnDecUTF8().encode(text, bulk);
        for (unsigned int i = 0; i < text.length(); ++i)
            cEnDecUTF8::encodeChar(text[i], single);
        ASSERT_EQ(literal(bulk), "<" + bytes);
        ASSERT_EQ(literal(single), literal(bulk));
    }
}

TEST(cEnDecUTF8Test, takesAnEmptyTextForNothing)
{
    cString text;
    cEnDecUTF8().decode(nstd::tConstArrayRef<char>(), text);
    cEnDecUTF8().decode(cBytes(), text);
    EXPECT_EQ(text.length(), 0u);
    cBytes bytes;
    cEnDecUTF8().encodeCString(text, bytes);
    EXPECT_EQ(literal(bytes), std::string(4, '\0'));
}

TEST(cEnDecUTF8Test, refusesUnitsByName)
{
    cString text;
    nstd::tArray<unsigned short> units;
    auto const encoding = ntest::raisedBy<nstd::cBugException>([&] { cEnDecUTF8().encode(text, units); });
    auto const decoding = ntest::raisedBy<nstd::cBugException>([&] { cEnDecUTF8().decode(units, text); });
    ASSERT_TRUE(encoding.has_value() && decoding.has_value());
    EXPECT_EQ(ntest::messageOf(*encoding), "Not implemented: Endec-UTF8::encode (ucs32 -> ucs16)");
    EXPECT_EQ(ntest::messageOf(*decoding), "Not implemented: Endec-UTF8::decode (ucs16 -> ucs32)");
}

} // namespace
