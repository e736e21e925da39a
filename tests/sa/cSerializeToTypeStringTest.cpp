#include "nel_core/sa/cSerializeToTypeString.h"

#include <gtest/gtest.h>

#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/tArrayRef.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/raisedBy.h"

namespace {

using cBytes = nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>;

TEST(cSerializeToTypeStringTest, theTypesStandInTheOrderOfTheStores)
{
    nsa::cSerializeToTypeString types;
    static_cast<unsigned char>(1) >> types;
    static_cast<signed char>(1) >> types;
    static_cast<unsigned short>(1) >> types;
    static_cast<short>(1) >> types;
    types.newLabel("unseen");
    1u >> types;
    1 >> types;
    types.releaseCurrentContext();
    1ull >> types;
    1ll >> types;
    true >> types;
    1.0 >> types;
    types.store(nstd::cAsciiString("text"));
    types.store(nucs::cString("text"));
    types.storeBlock("text", 4);
    EXPECT_EQ(ntest::text(types.typeString()),
              "piUChar, piChar, piUInt16, piInt16, piUInt32, piInt32, piUInt64, piInt64, piBool, piDouble, "
              "cAsciiString, cString, char*");
}

TEST(cSerializeToTypeStringTest, emptiedItBeginsWithoutAComma)
{
    nsa::cSerializeToTypeString types;
    for (auto const empty : {&nsa::cSerializeToTypeString::clear, &nsa::cSerializeToTypeString::rewind}) {
        1 >> types;
        true >> types;
        (types.*empty)();
        EXPECT_EQ(types.typeString(), "");
    }
    piVoid() >> types;
    1 >> types;
    EXPECT_EQ(types.typeString(), "piInt32");
}

TEST(cSerializeToTypeStringTest, theTextIsCopiedWithoutATerminator)
{
    nsa::cSerializeToTypeString types;
    cBytes target("old", 3);
    types.swapData(target);
    EXPECT_EQ(target.length(), 0u);
    1 >> types;
    types.swapData(target);
    EXPECT_TRUE(target.isEqual("piInt32", 7));
    EXPECT_EQ(types.typeString(), "piInt32");
}

TEST(cSerializeToTypeStringTest, contextsAndBytesAreRefused)
{
    nsa::cSerializeToTypeString types;
    auto const expectUnsupported = [](std::string const& operation, auto&& call) {
        auto const error = ntest::raisedBy<nstd::cBugException>(call);
        EXPECT_EQ(error ? ntest::messageOf(*error) : "",
                  "The operation \"cSerializeToTypeString::" + operation + "\" is not supported!");
    };
    expectUnsupported("newContext(...)", [&] { nstd::tList<int>() >> types; });
    expectUnsupported("data()", [&] { types.data(); });
}

} // namespace
