#include <fstream>

#include "nel_core/nce/cBinarySAExtension.h"
#include "nel_core/nce/cCoreExtensionMgr.h"
#include "nel_core/nce/cStandardEnDecExtension.h"
#include "nel_core/sa/cAbstractDeserializer.h"
#include "nel_core/sa/cAbstractSerializer.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tArrayRef.h"
#include "nel_core/std/tVector.h"
#include "nel_core/ucs/cAbstractEnDec.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace {

using tExtension = nstd::tAutoPtr<nce::cAbstractCoreExtension>;
using tBytesRef = nstd::tConstArrayRef<char>;

struct standardExtensionsTest : ntest::cSystemFixture {
    nce::cCoreExtensionMgr manager;
};

TEST_F(standardExtensionsTest, everyCodecReadsWhatItHasWritten)
{
    manager.add(tExtension(new nce::cStandardEnDecExtension));
    nstd::tVector<nstd::cAsciiString> names;
    manager.provides(nce::cAbstractCoreExtension::etEnDec, names);
    ASSERT_EQ(names.size(), 4u);
    nucs::cString const written(U"a\u00FC\U0001F600");
    for (unsigned int i = 0; i < names.size(); ++i) {
        auto const codec = manager.createEnDec(names[i]);
        nstd::tArray<char> bytes;
        codec->encode(written, bytes);
        EXPECT_EQ(bytes.length(), i < 2 ? 7u : 10u);
        nucs::cString read;
        codec->decode(tBytesRef(bytes), read);
        EXPECT_EQ(read, written);
    }
}

TEST_F(standardExtensionsTest, deserializersKeepTheBytesThatTheyRead)
{
    manager.add(tExtension(new nce::cBinarySAExtension));
    auto const path = testing::TempDir() + "standardExtensionsTest.bin";
    auto const serializer = manager.createSerializer("binary", "");
    serializer->store(42u);
    serializer->storeToFile(path.c_str());
    auto bytes = nstd::cAsciiString(tBytesRef(serializer->data()));
    auto const fromData = manager.createDeserializer("binary", tBytesRef(bytes));
    auto const fromFile = manager.createDeserializer("binary", nucs::cString(path.c_str()));
    bytes = "other";
    std::ofstream(path) << "other";
    for (auto* const deserializer : {fromData.get(), fromFile.get()}) {
        unsigned int value = 0;
        deserializer->load(value);
        EXPECT_EQ(value, 42u);
        EXPECT_TRUE(deserializer->eoc());
    }
    EXPECT_TRUE(manager.createDeserializer("binary", tBytesRef())->eoc());

    std::remove(path.c_str());
    for (auto const& file : {path, testing::TempDir()}) {
        EXPECT_TRUE(ntest::raisedBy<nstd::cRuntimeException>(
            [&] { (void)manager.createDeserializer("binary", nucs::cString(file.c_str())); }));
    }
}

} // namespace
