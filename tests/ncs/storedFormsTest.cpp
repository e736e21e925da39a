// The descriptions and addresses of the component system as bytes, and what is left when those are cut.

#include <gtest/gtest.h>

#include <string>

#include "nel_core/ncs/cComponentLocation.h"
#include "nel_core/ncs/cInterfaceDesc.h"
#include "nel_core/ncs/cModuleInfo.h"
#include "nel_core/std/cRuntimeException.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/expectMessage.h"
#include "tests/support/storedForm.h"

namespace {

using ncs::cComponentAddr;
using ncs::cInterfaceDesc;
using ntest::ascii;
using ntest::label;
using ntest::number;

template<typename T>
std::string bytesOf(T const& value, bool preferNoLabels)
{
    return ntest::written([&](auto& target) { value >> target; }, preferNoLabels);
}

// `value` is stored as `bytes`; they give it back, and any cut leaves the default T as it is.
template<typename T>
void expectStored(T const& value, std::string const& bytes, bool preferNoLabels)
{
    EXPECT_EQ(bytesOf(value, preferNoLabels), bytes);

    T loaded;
    auto const load = [&](auto& source) { loaded << source; };
    auto const blank = bytesOf(loaded, preferNoLabels);
    for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
        EXPECT_THROW(ntest::read(bytes.substr(0, cut), load, preferNoLabels), nstd::cAbstractException);
        EXPECT_EQ(bytesOf(loaded, preferNoLabels), blank) << cut;
    }
    ntest::read(bytes, load, preferNoLabels);
    EXPECT_EQ(bytesOf(loaded, preferNoLabels), bytes);
}

class storedFormsTest : public ntest::cSystemFixture { };

TEST_F(storedFormsTest, addressesAndLocations)
{
    cComponentAddr address(1, 7);
    auto const plain = number(7) + number(1);
    auto const labelled = label("ID") + number(7) + label("Queue") + number(1);
    expectStored(address, plain, true);
    expectStored(address, labelled, false);

    auto const body = ascii("ModuleAddress") + labelled;
    auto const context =
        ntest::word(12) + number(static_cast<unsigned int>(16 + body.size())) + ntest::boolean(true) + body;
    ncs::cComponentLocation const location(address, "alpha", "x", 0xFFFFFFFFU);
    expectStored(location, plain + ascii("alpha") + ascii("x") + number(0xFFFFFFFFU), true);
    expectStored(location,
                 label("LocalAddress") + context + label("HostName") + ascii("alpha") + label("LocalID")
                     + ascii("x") + label("PID") + number(0xFFFFFFFFU),
                 false);

    address.invalidate();
    ntest::read(bytesOf(address, true), [&](auto& source) { address << source; });
    EXPECT_TRUE(address.valid());
}

TEST_F(storedFormsTest, modulesHaveALineForPeopleToo)
{
    ncs::cModuleInfo info;
    info.setName("n");
    info.setAuthor("a");
    info.setDescription("d");
    info.setContext("c");
    info.bi() = nstd::cBuildInfo("s", "cc", "9", "h", "t", 0xFFFFFFFFU);
    EXPECT_EQ(info.toString(), "n (build 4294967295) Written by a builded on \"h\" (t) using cc - 9");
    auto const build =
        ascii("s") + ascii("cc") + ascii("9") + ascii("h") + ascii("t") + ntest::longNumber(0xFFFFFFFFU, 0);
    for (bool const preferNoLabels : {false, true})
        expectStored(info, ascii("n") + ascii("a") + ascii("d") + build + ascii("c"), preferNoLabels);
}

TEST_F(storedFormsTest, interfacesOfAnUnknownTypeAreRefused)
{
    auto const rest = ascii("n") + ascii("a") + number(3) + ascii("d");
    cInterfaceDesc const desc(cInterfaceDesc::itProvided, "n", "a", 3, "d");
    for (bool const preferNoLabels : {false, true})
        expectStored(desc, number(0) + rest, preferNoLabels);

    cInterfaceDesc loaded;
    for (unsigned int const type : {2U, 0xFFFFFFFFU}) {
        ntest::expectMessage<nstd::cRuntimeException>(
            [&] { ntest::read(number(type) + rest, [&](auto& source) { loaded << source; }); },
            "Unable to deserialize interface description of \"n\"!");
        EXPECT_EQ(loaded, cInterfaceDesc(cInterfaceDesc::itRequired, "", "", 0, "any"));
    }
    for (auto const& other : {cInterfaceDesc(cInterfaceDesc::itRequired, "n", "a", 3, "d"),
                              cInterfaceDesc(cInterfaceDesc::itProvided, "m", "a", 3, "d"),
                              cInterfaceDesc(cInterfaceDesc::itProvided, "n", "b", 3, "d"),
                              cInterfaceDesc(cInterfaceDesc::itProvided, "n", "a", 4, "d")})
        EXPECT_NE(desc, other);
}

} // namespace
