#include "nel_core/ncs/cComponentLocation.h"

#include <gtest/gtest.h>

#include <string>

#include "nel_core/pi/cPlatform.h"
#include "nel_core/std/cRuntimeException.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace {

using ncs::cComponentAddr;
using ncs::cComponentLocation;

constexpr unsigned int kMax = 0xFFFFFFFFU;

class cComponentLocationTest : public ntest::cSystemFixture {
protected:
    cComponentAddr const mAddress{1, 7};
    cComponentLocation const mAlpha{mAddress, "alpha", "", 4711};
};

TEST_F(cComponentLocationTest, itProvidesThisProcess)
{
    cComponentLocation location(mAddress, "alpha", "x", 1);
    location.provide();
    EXPECT_EQ(location, cComponentLocation(mAddress, npi::cPlatform::hostname(), "", npi::cPlatform::pid()));
    EXPECT_EQ(cComponentLocation().address(), cComponentAddr());
}

TEST_F(cComponentLocationTest, everyFieldCountsForEquality)
{
    EXPECT_NE(mAlpha, cComponentLocation(cComponentAddr(7, 1), "alpha", "", 4711));
    EXPECT_NE(mAlpha, cComponentLocation(mAddress, "beta", "", 4711));
    EXPECT_NE(mAlpha, cComponentLocation(mAddress, "alpha", "x", 4711));
    EXPECT_NE(mAlpha, cComponentLocation(mAddress, "alpha", "", 4712));

    cComponentAddr address = mAddress;
    EXPECT_TRUE(address == true && address == false);
    address.invalidate();
    EXPECT_NE(address, mAddress);
    EXPECT_FALSE(address == true || address == false);
}

TEST_F(cComponentLocationTest, anAddressIsParsedUpToASecondColon)
{
    struct {
        char const *text, *written;
        unsigned int queue, module;
    } const rows[] = {
        {"1:7", "1:7", 1, 7},    {"1:7:9", "1:7", 1, 7}, {" 0x10:007", "16:7", 16, 7},
        {"1:7: :", "1:7", 1, 7}, {"1:", "1:0", 1, 0},    {"0:4294967295", "0:4294967295", 0, kMax},
    };
    for (auto const& row : rows) {
        cComponentAddr const address(row.text);
        EXPECT_EQ(address, cComponentAddr(row.queue, row.module)) << row.text;
        EXPECT_EQ(address.toString(), row.written);
    }
    EXPECT_EQ(cComponentAddr().toString(), "0:0");
}

TEST_F(cComponentLocationTest, theTextIsWrittenAndParsed)
{
    struct {
        char const *text, *host, *localId;
        unsigned int pid;
        char const* written;
    } const rows[] = {
        {"1:7-4711@alpha", "alpha", "", 4711, "1:7-4711@alpha"},
        {"1:7-4294967295@alpha:x", "alpha", "x", kMax, "1:7-4294967295@alpha:x"},
        {"1:7-4711@my-host:x", "my", "", 4711, "1:7-4711@my"},
        {"\t--1:7 \r\n 4711@@al@pha:x y", "al", "pha", 4711, "1:7-4711@al:pha"},
        {"1:7", "", "", 0, "1:7-0@"},
    };
    for (auto const& row : rows) {
        cComponentLocation const location(row.text);
        EXPECT_EQ(location, cComponentLocation(mAddress, row.host, row.localId, row.pid)) << row.text;
        EXPECT_EQ(location.toString(), row.written);
        EXPECT_EQ(cComponentLocation(row.written), location);
    }
}

TEST_F(cComponentLocationTest, aMalformedTextTellsWhyAndChangesNothing)
{
    std::string const colon = "; Expecting \":\"!";
    auto const badAddress = [](std::string const& text) {
        return "Malformed component address (\"" + text + "\")!";
    };
    auto const badNumber = [](std::string const& text, char index) {
        return "Invalid decimal number (\"" + text + "\"). Character at index " + index
               + " not points to digit!";
    };
    std::string const longText(100000, '1');
    struct {
        std::string text, messages;
    } const rows[] = {
        {" 17-4711@alpha", badAddress("17") + colon},
        {"", badAddress("") + colon},
        {":7", badAddress(":7") + colon},
        {longText, badAddress(longText) + colon},
        {"1x:7", badAddress("1x:7") + "; " + badNumber("1x", '1')},
        {"1::7", badAddress("1::7") + "; " + badNumber(":", '0')},
        {"17-47:11@alpha", badNumber("47:11", '2')},
        {"1:7-@alpha", badNumber("alpha", '0')},
    };
    for (auto const& row : rows) {
        auto location = mAlpha;
        auto const error = ntest::raisedBy<nstd::cRuntimeException>(
            [&] { location.fromString(nstd::cAsciiString(row.text)); });
        ASSERT_TRUE(error);
        nucs::cString messages;
        error->createMessage(messages, "; ", nstd::cAbstractException::mfHistory, nullptr);
        EXPECT_EQ(ntest::text(messages), row.messages);
        EXPECT_EQ(location, mAlpha);
    }
}

} // namespace
