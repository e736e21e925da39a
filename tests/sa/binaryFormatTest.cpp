#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "nel_core/rmi/cPublicSignal.h"
#include "nel_core/rmi/localSignal.h"
#include "nel_core/rmi/publicSlotCall.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cBuildInfo.h"
#include "nel_core/std/cDateTime.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/cTime.h"
#include "nel_core/ucs/cLIMessage.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/storedForm.h"

// The examples in docs/binary-format.md are what the library writes, byte for byte.
namespace {

using nsa::cSerializeBinary;

nucs::cLIMessage message(char const* key)
{
    nucs::cLIMessage made;
    made << key;
    return made;
}

void writeEveryItem(cSerializeBinary& target)
{
    nucs::cString const text(L"a\u20ac");
    target.storeBlock("abc", 3);
    target.store(static_cast<unsigned char>(200));
    target.store(static_cast<signed char>(-3));
    target.store(5u);
    target.store(-5);
    target.store(1ULL << 32);
    target.store(-2LL);
    target.store(true);
    target.store(-0.5);
    target.store(nstd::cAsciiString("ab"));
    target.store(text);
    target.setStringStoreMode(cSerializeBinary::ssmUTF8);
    target.store(text);
    target.store(static_cast<unsigned short>(1000));
    target.store(static_cast<short>(-1));
}

void writeContext(cSerializeBinary& target, char const* name, bool isEmpty)
{
    nsa::cContext context(target.newContext(name));
    if (!isEmpty)
        target.store(static_cast<short>(-1));
    context.release();
}

template<typename Container>
void writeNumbers(cSerializeBinary& target)
{
    Container numbers;
    numbers.append(1);
    numbers.append(2);
    numbers >> target;
}

void writeBytes(cSerializeBinary& target, bool withLabels)
{
    target.setPreferNoLabels(!withLabels);
    nstd::tArray<char> bytes("hi", 2);
    bytes.setGrowStep(4);
    bytes >> target;
}

void writeTime(cSerializeBinary& target, bool withLabel)
{
    target.setPreferNoLabels(!withLabel);
    nstd::cDateTime(nstd::cTime(1700000000000000ULL)) >> target;
}

void writeChain(cSerializeBinary& target)
{
    ntest::cDebugRecorder const silence;
    nstd::cRuntimeException error(message("$MTR$Late!"));
    error.link(nstd::cBugException(message("$MTR$Oops!")));
    error.storeRecursive(target);
}

void writeSlotValue(cSerializeBinary& target)
{
    nrmi::cSSValue value;
    value.set("piInt32", true, false);
    value.setDescription("the sum");
    value >> target;
}

void writeSignal(cSerializeBinary& target)
{
    nrmi::localSignal1<piVoid, int> signal;
    nrmi::cPublicSignal published("level", "piVoid", "piInt32", nrmi::cAbstractSignal::itDefault, "rises",
                                  signal);
    published.addParameter().set("piInt32", false, false);
    published.returnValue().set("piVoid", false, true);
    published >> target;
}

struct cAdder : nrmi::cConnectable {
    int sltAdd(int a, int b) { return a + b; }
};

void writeSlot(cSerializeBinary& target)
{
    cAdder adder;
    auto& published = nrmi::publishSlot(&adder, "add", &cAdder::sltAdd, "adds");
    char const* name = "a";
    for (auto& parameter : published.parameters())
        parameter.setDescription(std::exchange(name, "b"));
    published >> target;
}

void writeFrame(cSerializeBinary& target, bool alterable)
{
    int a = 20;
    int b = 22;
    int sum = 0;
    nsa::cReferenceFrame frame;
    frame.addRef(a, false, true).addRef(b, false, true).addRef(sum, true, false);
    cAdder adder;
    nrmi::publishSlot(&adder, "add", &cAdder::sltAdd, "adds");
    adder.invokeIndirectSlot("add", frame);
    frame.store(target, alterable, !alterable);
}

struct cExample {
    char const* name;
    void (*write)(cSerializeBinary& target);
};

cExample const kExamples[] = {
    {"every-item", writeEveryItem},
    {"context-without-name", [](auto& target) { writeContext(target, nullptr, true); }},
    {"context-with-name", [](auto& target) { writeContext(target, "X", false); }},
    {"label", [](auto& target) { target.newLabel("Level").store(5u); }},
    {"list", writeNumbers<nstd::tList<int>>},
    {"vector", writeNumbers<nstd::tVector<int>>},
    {"byte-array", [](auto& target) { writeBytes(target, false); }},
    {"byte-array-with-labels", [](auto& target) { writeBytes(target, true); }},
    {"date-and-time", [](auto& target) { writeTime(target, false); }},
    {"date-and-time-with-label", [](auto& target) { writeTime(target, true); }},
    {"build-info",
     [](auto& target) { nstd::cBuildInfo("make", "gcc", "12.2", "host", "today", 7) >> target; }},
    {"message-without-values", [](auto& target) { message("$MTR$Done!") >> target; }},
    {"message-with-one-value", [](auto& target) { (message("$MTR$Bad %n%!") << 42) >> target; }},
    {"exception", [](auto& target) { nstd::cBugException(message("$MTR$Oops!")).store(target); }},
    {"exception-chain", writeChain},
    {"slot-value", writeSlotValue},
    {"public-signal", writeSignal},
    {"public-slot", writeSlot},
    {"frame-arguments", [](auto& target) { writeFrame(target, false); }},
    {"frame-result", [](auto& target) { writeFrame(target, true); }},
};

std::string inBase16(std::string const& bytes)
{
    std::ostringstream text;
    text << std::hex << std::uppercase;
    for (char const byte : bytes)
        text << static_cast<unsigned int>(static_cast<unsigned char>(byte)) << ' ';
    return text.str();
}

// The blocks "```hex NAME" by their names; what stands behind a semicolon is no part of the bytes.
std::map<std::string, std::string> documentedBytes()
{
    std::map<std::string, std::string> blocks;
    std::string* block = nullptr;
    std::ifstream file(NEL_SOURCE_DIR "/docs/binary-format.md");
    for (std::string line; std::getline(file, line);) {
        if (line.rfind("```hex ", 0) == 0) {
            auto const added = blocks.emplace(line.substr(7), "");
            EXPECT_TRUE(added.second) << "two blocks named " << added.first->first;
            block = &added.first->second;
        } else if (line.rfind("```", 0) == 0) {
            block = nullptr;
        } else if (block) {
            std::istringstream words(line.substr(0, line.find(';')));
            for (std::string word; words >> word;)
                *block += static_cast<char>(std::stoi(word, nullptr, 16));
        }
    }
    return blocks;
}

class binaryFormatTest : public ntest::cSystemFixture { };

TEST_F(binaryFormatTest, theDocumentedExamplesAreWhatIsWritten)
{
    auto blocks = documentedBytes();
    for (auto const& example : kExamples) {
        SCOPED_TRACE(example.name);
        EXPECT_EQ(inBase16(ntest::written(example.write)), inBase16(blocks[example.name]));
        blocks.erase(example.name);
    }
    for (auto const& block : blocks)
        ADD_FAILURE() << "nobody writes the example " << block.first;
}

} // namespace
