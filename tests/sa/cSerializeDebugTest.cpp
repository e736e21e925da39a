#include "nel_core/sa/cSerializeDebug.h"

#include <gtest/gtest.h>

#include "nel_core/pi/cSystem.h"
#include "nel_core/sa/cContext.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tArrayRef.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace {

using nsa::cContext;
using nsa::cSerializeDebug;

class cSerializeDebugTest : public ntest::cSystemFixture { };

TEST_F(cSerializeDebugTest, everyItemIsALine)
{
    struct {
        char const* line;
        void (*store)(cSerializeDebug&);
    } const kRows[] = {
        {"piUChar = 255;", [](cSerializeDebug& out) { out.store(static_cast<unsigned char>(255)); }},
        {"piChar = -1;", [](cSerializeDebug& out) { out.store(static_cast<signed char>(-1)); }},
        {"piUInt16 = 65535;", [](cSerializeDebug& out) { out.store(static_cast<unsigned short>(65535)); }},
        {"piInt16 = -32768;", [](cSerializeDebug& out) { out.store(static_cast<short>(-32768)); }},
        {"piUInt32 = 4294967295;", [](cSerializeDebug& out) { out.store(0xFFFFFFFFu); }},
        {"piInt32 = -7;", [](cSerializeDebug& out) { out.store(-7); }},
        {"piUInt64 = 18446744073709551615;", [](cSerializeDebug& out) { out.store(~0ull); }},
        {"piInt64 = -5000000000;", [](cSerializeDebug& out) { out.store(-5000000000ll); }},
        {"piBool = true;", [](cSerializeDebug& out) { out.store(true); }},
        {"piBool = false;", [](cSerializeDebug& out) { out.store(false); }},
        {"piDoubleID = x.y;", [](cSerializeDebug& out) { out.store(0.5); }},
        {"cAsciiString = \"a\"b\";", [](cSerializeDebug& out) { out.store(nstd::cAsciiString("a\"b")); }},
        {"cString = \"z??\";", [](cSerializeDebug& out) { out.store(nucs::cString(L"z\u00FC\U0001F600")); }},
        {"<raw bytes of size 3000000000>;", [](cSerializeDebug& out) { out.storeBlock("", 3000000000u); }},
    };
    npi::system().defaults.numberFormat.setBase(16); // it does not matter here
    for (auto const& row : kRows) {
        ntest::cDebugRecorder const recorder;
        cSerializeDebug out;
        row.store(out);
        EXPECT_EQ(recorder.text(), std::string(row.line) + "\n");
        EXPECT_EQ(recorder.files().at(0), "nel_core/sa/cSerializeDebug");
    }
    npi::system().defaults.numberFormat.setBase(10);
}

TEST_F(cSerializeDebugTest, contextsIndentAndLabelsStandInFrontOfTheNextLine)
{
    ntest::cDebugRecorder const recorder;
    cSerializeDebug out;
    out.newLabel("Lost").newLabel("Outer");
    {
        cContext outer(out.newContext("unknown"));
        out.newLabel("Grow").store(5);
        {
            cContext inner(out.newContext(nullptr));
            inner.release();
            out.store(true); // the context ends with the handle, not with its release
        }
        cContext(out.newContext("")).release();
        outer.release();
    }
    out.releaseCurrentContext(); // one too many
    out.store(6);
    EXPECT_EQ(recorder.text(), "<label Outer> <context \"unknown\">\n"
                               "  {\n"
                               "    <label Grow> piInt32 = 5;\n"
                               "    <context (unnamed)>\n"
                               "      {\n"
                               "        piBool = true;\n"
                               "      }\n"
                               "    <context \"\">\n"
                               "      {\n"
                               "      }\n"
                               "  }\n"
                               "  }\n"
                               "piInt32 = 6;\n");
}

TEST_F(cSerializeDebugTest, anAbandonedContextIsNotClosed)
{
    ntest::cDebugRecorder const recorder;
    cSerializeDebug out;
    cContext(out.newContext("X")).unset();
    out.store(1);
    EXPECT_EQ(recorder.text(), "<context \"X\">\n  {\n    piInt32 = 1;\n");
}

TEST_F(cSerializeDebugTest, aContextClosesWithoutMemoryForItsLastLine)
{
    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    ntest::cDebugRecorder recorder;
    cSerializeDebug out;
    cContext outer(out.newContext("outer")), inner(out.newContext("inner"));
    inner.release();
    {
        ntest::cFailingMemory const shortage(1, ntest::cFailingMemory::moShortage);
        inner.unset();
    }
    recorder.clear();
    out.store(1);
    EXPECT_EQ(recorder.text(), "    piInt32 = 1;\n");
}

TEST_F(cSerializeDebugTest, nothingCanBeTakenBack)
{
    cSerializeDebug out;
    nstd::tArray<char, nstd::tArrayByteLevelTraits<char>> bytes;
    auto const expectUnsupported = [](std::string const& operation, auto&& call) {
        auto const error = ntest::raisedBy<nstd::cBugException>(call);
        EXPECT_EQ(error ? ntest::messageOf(*error) : "",
                  "The operation \"cSerializeDebug::" + operation + "\" is not supported!");
    };
    expectUnsupported("rewind()", [&] { out.rewind(); });
    expectUnsupported("clear()", [&] { out.clear(); });
    expectUnsupported("data()", [&] { out.data(); });
    expectUnsupported("swapData()", [&] { out.swapData(bytes); });
}

} // namespace
