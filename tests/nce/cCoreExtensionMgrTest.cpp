#include "nel_core/nce/cCoreExtensionMgr.h"

#include <fstream>
#include <functional>

#include "nel_core/nce/cAbstractEnDecExtension.h"
#include "nel_core/nce/cAbstractSAExtension.h"
#include "nel_core/nce/cGenericExtension.h"
#include "nel_core/nce/cNetAbstractAddressExtension.h"
#include "nel_core/nce/cUnsupportedExtensionException.h"
#include "nel_core/nce/net++/cNetAbstractAddress.h"
#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/cModuleLoadException.h"
#include "nel_core/sa/cAbstractDeserializer.h"
#include "nel_core/sa/cAbstractSerializer.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tVector.h"
#include "nel_core/ucs/cAbstractEnDec.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/expectMessage.h"
#include "tests/support/expectRefusal.h"
#include "tests/support/modules.h"

namespace {

using nce::cCoreExtensionMgr;
using nstd::cAsciiString;
using nstd::tAutoPtr;
using tExtension = nce::cAbstractCoreExtension;
using tBytesRef = nstd::tConstArrayRef<char>;
using tAction = std::function<void()>;

std::string gAsked; // the last call of a fake extension

// Supports one name, tells when it is asked for that or goes, and creates nothing.
template<typename Base>
struct tFake : Base {
    explicit tFake(
        char const* name, tAction onLookup = [] {}, tAction onEnd = [] {})
        : msName(name),
          mOnLookup(onLookup),
          mOnEnd(onEnd)
    {
    }
    ~tFake() override { mOnEnd(); }

    cAsciiString description() const override { return msName; }
    nstd::cBuildInfo const& buildInfo() const override { return mBuildInfo; }
    bool supports(cAsciiString const& name) const override { return mOnLookup(), name == msName; }
    void provides(nstd::tVector<cAsciiString>& names) const override { names.append(msName); }

private:
    nstd::cBuildInfo mBuildInfo;
    cAsciiString msName;
    tAction mOnLookup, mOnEnd;
};

template<typename T, typename Text>
tAutoPtr<T> asked(char const* call, Text const& argument)
{
    gAsked = call + ntest::text(argument);
    return {};
}

struct cCodecs : tFake<nce::cAbstractEnDecExtension> {
    using tFake::tFake;
    tAutoPtr<nucs::cAbstractEnDec> createEnDec(cAsciiString const& name) const override
    {
        return asked<nucs::cAbstractEnDec>("codec ", name);
    }
};

struct cFormats : tFake<nce::cAbstractSAExtension> {
    using tFake::tFake;
    tAutoPtr<nsa::cAbstractSerializer> createSerializer(cAsciiString const& argument) const override
    {
        return asked<nsa::cAbstractSerializer>("serializer ", argument);
    }
    tAutoPtr<nsa::cAbstractDeserializer> createDeserializer(tBytesRef const& data) const override
    {
        return asked<nsa::cAbstractDeserializer>("data ", cAsciiString(data));
    }
    tAutoPtr<nsa::cAbstractDeserializer> createDeserializer(nucs::cString const& fileName) const override
    {
        return asked<nsa::cAbstractDeserializer>("file ", fileName);
    }
};

struct cAddresses : tFake<nce::cNetAbstractAddressExtension> {
    using tFake::tFake;
    tAutoPtr<nce::cNetAbstractAddress> createNetAddress(cAsciiString const& name) const override
    {
        return asked<nce::cNetAbstractAddress>("address ", name);
    }
};

// Says that it is of another kind.
struct cImpostor : cAddresses {
    using cAddresses::cAddresses;
    ExtensionType extensionType() const override { return etEnDec; }
};

template<typename T, typename... A>
void add(cCoreExtensionMgr& manager, A... arguments)
{
    manager.add(tAutoPtr<tExtension>(new T(arguments...)));
}

struct cService {
    char const *asked, *kind, *name;
    void (*create)(cCoreExtensionMgr const&);
};

cService const kServices[] = {
    {"codec MY-NAME", "Encoder / Decoder", "MY-NAME", [](auto& m) { (void)m.createEnDec("My-Name"); }},
    {"serializer Arg", "serializer", "My-Name", [](auto& m) { (void)m.createSerializer("My-Name", "Arg"); }},
    {"file F", "serializer", "My-Name",
     [](auto& m) { (void)m.createDeserializer("My-Name", nucs::cString("F")); }},
    {"data D", "serializer", "My-Name",
     [](auto& m) { (void)m.createDeserializer("My-Name", tBytesRef(cAsciiString("D"))); }},
    {"address My-Name", "netwok address", "My-Name", [](auto& m) { (void)m.createNetAddress("My-Name"); }},
};

void expectMissing(cCoreExtensionMgr const& manager, bool othersFound)
{
    for (auto const& row : kServices) {
        SCOPED_TRACE(row.asked);
        auto const error = ntest::raisedBy<nce::cUnsupportedExtensionException>([&] { row.create(manager); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->className(), row.kind);
        EXPECT_EQ(error->extensionName(), row.name);
        EXPECT_EQ(error->otherExtensionsFound(), othersFound);
    }
}

TEST(cCoreExtensionMgrLookupTest, servicesAreFoundByKindAndUpperCaseName)
{
    cCoreExtensionMgr manager;
    expectMissing(manager, false);
    for (auto const type : {tExtension::etNetAddress, tExtension::etSerialization, tExtension::etEnDec})
        add<nce::cGenericExtension>(manager, "generic", type);
    add<cCodecs>(manager, "OTHER");
    expectMissing(manager, true);
    EXPECT_EQ(manager.hasExtension("my-name"), nullptr);

    add<cAddresses>(manager, "MY-NAME");
    add<cFormats>(manager, "MY-NAME");
    add<cCodecs>(manager, "MY-NAME");
    add<cCodecs>(manager, "MY-NAME", [] { ADD_FAILURE() << "the first one counts"; });
    for (auto const& row : kServices) {
        row.create(manager);
        EXPECT_EQ(gAsked, row.asked);
    }
    ASSERT_NE(manager.hasExtension("my-name"), nullptr);
    EXPECT_EQ(manager.hasExtension("my-name")->extensionType(), tExtension::etNetAddress);

    nstd::tVector<cAsciiString> names;
    names.append("before");
    manager.provides(tExtension::etEnDec, names);
    ASSERT_EQ(names.size(), 4u);
    EXPECT_EQ(names[1], "OTHER");
}

TEST(cCoreExtensionMgrLookupTest, whatCannotBeUsedFailsAnAssertion)
{
    cCoreExtensionMgr manager;
    add<cImpostor>(manager, "X");
    ntest::expectMessage<nstd::cBugException>(
        [&] { (void)manager.createEnDec("x"); },
        "Assertion failed in file nel_core/nce/cCoreExtensionMgr:153. (p != 0)!");
    ntest::expectAssertion([&] { manager.add(tAutoPtr<tExtension>()); }, "mpExtension != 0",
                           "nel_core/nce/cExtensionPair");
}

TEST(cCoreExtensionMgrLookupTest, extensionsMayUseTheManagerWhileTheyAreAskedOrGo)
{
    std::string parted;
    {
        cCoreExtensionMgr manager;
        auto const addX = [&] { add<cCodecs>(manager, "X"); };
        auto const refused = [&] {
            parted += "C";
            ntest::expectMessage<nstd::cBugException>(
                addX, "The operation \"cCoreExtensionMgr::add()\" is not supported!");
        };
        add<cCodecs>(manager, "A", addX, [&] {
            parted += "A";
            EXPECT_EQ(manager.hasExtension("B"), nullptr);
            manager.clear();
            add<cCodecs>(
                manager, "C", [] {}, refused);
        });
        add<cCodecs>(
            manager, "B", [] {}, [&] { parted += "B"; });
        EXPECT_NE(manager.hasExtension("x"), nullptr);
        manager.clear();
        EXPECT_EQ(parted, "AB");
        EXPECT_NE(manager.hasExtension("C"), nullptr);
    }
    EXPECT_EQ(parted, "ABC");
}

struct cCoreExtensionMgrTest : ntest::cSystemFixture {
    cCoreExtensionMgr manager;
};

TEST_F(cCoreExtensionMgrTest, aModuleStaysLoadedUntilItsExtensionIsCleared)
{
    auto const name = ntest::moduleName("coreExtension"), file = ntest::moduleFile("coreExtension");
    nsa::cReferenceFrame frame;
    EXPECT_TRUE(manager.has(ntest::named(name)));
    EXPECT_FALSE(ntest::isMapped(file));
    auto const& plugIn = manager.load(cAsciiString(name.c_str()), frame);
    EXPECT_EQ(ntest::text(plugIn.moduleInfo().context()), "");
    manager.load(ntest::named(name));
    EXPECT_EQ(manager.createEnDec("loaded")->name(), "Endec-UTF8");
    manager.clear();
    EXPECT_FALSE(ntest::isMapped(file));
}

TEST_F(cCoreExtensionMgrTest, aModuleThatIsRefusedLeavesNothing)
{
    auto const path = testing::TempDir() + "libnoModule.so";
    nucs::cString const noModule((testing::TempDir() + "noModule").c_str());
    std::ofstream(path) << "text";
    EXPECT_TRUE(manager.has(noModule));
    EXPECT_TRUE(ntest::raisedBy<ncs::cModuleLoadException>([&] { manager.load(noModule); }));
    std::remove(path.c_str());
    EXPECT_FALSE(manager.has(noModule));

    auto const name = ntest::moduleName("brokenExtension");
    for (piBool claims : {false, true}) {
        nsa::cReferenceFrame frame;
        frame.addRef(claims, false, true);
        ntest::expectMessage<nstd::cRuntimeException>(
            [&] { manager.load(ntest::named(name), frame); },
            "Module (\"" + (claims ? "" : name) + "\") does not provide core extension functionality.");
        EXPECT_FALSE(ntest::isMapped(ntest::moduleFile("brokenExtension")));
    }
    // When the entry raises, the file stays mapped and the loader goes.
    EXPECT_TRUE(ntest::raisedBy<nstd::cOutOfBoundsException>([&] { manager.load(ntest::named(name)); }));
}

} // namespace
