#include "nel_core/io/cAbstractIOBlockDevice.h"

#include <random>

#include <gtest/gtest.h>

#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tArrayRef.h"
#include "nel_core/std/tConstArrayRef.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cFakeDevice.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/expectMessage.h"
#include "tests/support/expectRefusal.h"

namespace {

using ntest::cFakeDevice;
using tView = nstd::tConstArrayRef<char>;

char readAt(nio::cAbstractIOBlockDevice const& device, unsigned int i)
{
    return device.proxyAt(i);
}

constexpr auto expectRuntime = [](auto&& call, char const* message) {
    ntest::expectMessage<nstd::cRuntimeException>(call, message);
};
constexpr auto expectBug = [](auto&& call, char const* message) {
    ntest::expectMessage<nstd::cBugException>(call, message);
};

std::string countingBytes(unsigned int count)
{
    std::string bytes;
    for (unsigned int i = 0; i < count; ++i)
        bytes += static_cast<char>(i % 251);
    return bytes;
}

TEST(cAbstractIOBlockDeviceTest, aViewReadsEveryPieceOnce)
{
    cFakeDevice device(countingBytes(200000));
    device.bytes[199999] = '\xFF';
    tView const view(device);
    bool found = false;
    EXPECT_EQ(view.find('\xFF', found), 199999u);
    EXPECT_TRUE(found);
    EXPECT_EQ(device.reads, 4u);
    EXPECT_EQ(view.find(device.bytes.data() + 65000, 1000, found, 60000), 60231u);
    EXPECT_TRUE(view.isEqual(device.bytes.data(), 200000));
    EXPECT_EQ(view.relation(tView(device)), 0);
}

TEST(cAbstractIOBlockDeviceTest, nothingIsFoundBeyondTheEnd)
{
    for (unsigned int const size : {0u, 1u, 70000u}) {
        cFakeDevice device{std::string(size, 'x')};
        for (unsigned int const i : {size, size + 1, ~0u})
            for (bool const forWriting : {false, true})
                ntest::expectRefusal([&] { forWriting ? device.proxyAt(i) : readAt(device, i); },
                                     {"cAbstractIOBlockDevice", "proxyAt", 0, i, size == 0 ? 0 : size - 1});
        expectRuntime([&] { device.proxyProvideData(size, 1); }, "Unable to read 1 bytes!");
        expectRuntime([&] { device.proxyProvideData(0, ~0u); }, "Unable to read 4294967295 bytes!");
        device.flush();
        EXPECT_EQ(device.writes, "");
        EXPECT_TRUE(size == 0 || readAt(device, size - 1) == 'x');
    }
}

TEST(cAbstractIOBlockDeviceTest, whatIsNotReadIsNeitherHandedOutNorWrittenBack)
{
    cFakeDevice device(countingBytes(1000));
    device.maxRead = 10;
    EXPECT_EQ(readAt(device, 5), 5);
    EXPECT_EQ(readAt(device, 15), 15);
    device.proxyAt(100) = 'x';
    expectRuntime([&] { device.proxyProvideData(300, 20); }, "Unable to read 20 bytes!");
    EXPECT_EQ(readAt(device, 100), 'x');
    EXPECT_EQ(device.writes, "10 ");
    auto expected = countingBytes(1000);
    expected[100] = 'x';
    EXPECT_EQ(device.bytes, expected);

    device.onRead = [&] { device.bytes.resize(200); };
    ntest::expectRefusal([&] { readAt(device, 300); }, {"cAbstractIOBlockDevice", "proxyAt", 0, 300, 199});
    EXPECT_EQ(device.proxyProvideData(199, 1)[0], expected[199]);
}

TEST(cAbstractIOBlockDeviceTest, changesAreWrittenBackOrKept)
{
    cFakeDevice device("0123456789");
    device.proxyAt(3) = 'x';
    device.maxWrite = 4;
    expectRuntime([&] { device.flush(); }, "Unable to write 7 bytes!");
    device.maxWrite = 10;
    device.bytes = "0123456789";
    device.flush();
    EXPECT_EQ(device.bytes, "012x456789");
    device.flush();
    EXPECT_EQ(device.writes, "4 7 ");
}

// Single bytes are read and changed anywhere, against a text.
TEST(cAbstractIOBlockDeviceTest, bytesAreWhereTheyWerePut)
{
    std::mt19937 random(7);
    auto expected = countingBytes(300000);
    cFakeDevice device(expected);
    for (unsigned int n = 0; n < 2000; ++n) {
        device.maxRead = n % 7 == 0 ? 1000 : ~0ULL;
        auto const i = static_cast<unsigned int>(n % 3 == 0 ? 299990 + random() % 10 : random() % 300000);
        ASSERT_EQ(readAt(device, i), expected[i]) << n;
        expected[i] = static_cast<char>(n);
        device.proxyAt(i) = expected[i];
    }
    device.flush();
    EXPECT_EQ(device.bytes, expected);
}

TEST(cAbstractIOBlockDeviceTest, rangesMoveInFiveSteps)
{
    cFakeDevice device("0123456789AB");
    char target[12] = {};
    device.maxRead = device.maxWrite = 2;
    device.proxyCopyPartTo(target, 1, 10);
    EXPECT_EQ(std::string(target), "123456789A");
    device.proxyPatchData(2, 10, "abcdefghij");
    EXPECT_EQ(device.bytes, "01abcdefghij");
    expectRuntime([&] { device.proxyCopyPartTo(target, 0, 11); }, "Unable to read 11 bytes!");
    expectRuntime([&] { device.proxyPatchData(0, 11, target); }, "Unable to write 11 bytes!");
    device.maxRead = 100;
    expectRuntime([&] { device.proxyCopyPartTo(target, 8, 5); }, "Unable to read 5 bytes!");
    EXPECT_TRUE(device.eof());
    EXPECT_EQ(device.bytesLeft(), 0u);
    device.place = 100;
    EXPECT_EQ(device.bytesLeft(), 0u);
}

class cBlockDeviceSizeTest : public ntest::cSystemFixture { };

TEST_F(cBlockDeviceSizeTest, onlyTheEndMoves)
{
    ntest::cDebugRecorder recorder;
    cFakeDevice device("0123456789");
    nstd::tArrayRef<char> view(device);
    view.append("abc", 3);
    view.erase(11, 2);
    EXPECT_EQ(device.bytes, "0123456789a");
    EXPECT_EQ(view.length(), 11u);
    EXPECT_EQ(recorder.count("AIOB-Erase at 11 / 2 => truncate at 13 / size: 13"), 1u);
    ASSERT_EQ(recorder.files().size(), 1u);
    EXPECT_EQ(recorder.files()[0], "nel_core/io/cAbstractIOBlockDevice");

    auto const refusedErase = "Data remove anywhere in the middle of file is not supported yet - sorry!";
    expectBug([&] { device.proxyErase(0, 1); }, refusedErase);
    expectBug([&] { device.proxyErase(12, ~0u); }, refusedErase);
    EXPECT_EQ(recorder.lines().size(), 3u);
    expectBug([&] { device.proxyInsert(10, "x", 1); },
              "Insertion anywhere in the middle of file is not supported yet - sorry!");
    expectBug([&] { device.proxySetSize(3); }, "Not implemented: cAbstractIOBlockDevice::setSize()");
    EXPECT_EQ(device.bytes, "0123456789a");

    device.writes.clear();
    device.proxyInsertDefaultObjects(11, 0);
    device.proxyInsertDefaultObjects(11, 131073);
    EXPECT_EQ(device.writes, "65536 65536 1 ");
    EXPECT_EQ(device.bytes, "0123456789a" + std::string(131073, '\0'));
    device.maxWrite = 6000;
    expectRuntime([&] { device.proxyInsertDefaultObjects(0, 65536); }, "Unable to write 65536 bytes!");
}

TEST(cAbstractIOBlockDeviceTest, aCopyWritesToItself)
{
    cFakeDevice device("abc");
    device.proxyAt(0) = 'x';
    cFakeDevice copy(device);
    cFakeDevice assigned;
    assigned = device;
    device.flush();
    EXPECT_EQ(device.bytes + copy.bytes + assigned.bytes, "xbcabcabc");
    copy.flush();
    assigned.flush();
    EXPECT_EQ(copy.bytes + assigned.bytes, "xbcxbc");

    copy.proxyAt(1) = 'y';
    copy.nio::cAbstractIOBlockDevice::swap(device);
    copy.flush();
    device.flush();
    EXPECT_EQ(device.bytes + copy.bytes, "xycxbc");
}

} // namespace
