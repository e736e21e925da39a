#include "nel_core/pi/cPlatform.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

#include "nel_core/pi/cAbstractMutexImpl.h"
#include "nel_core/pi/cAbstractProcessEvents.h"
#include "nel_core/pi/cAbstractRunnableImpl.h"
#include "nel_core/pi/cSysTime.h"
#include "nel_core/std/cRuntimeException.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace {

using npi::cPlatform;

// Sets a variable of the environment, or removes it (null), and puts it back at the end.
class cVariable {
public:
    cVariable(char const* name, char const* value) : mpName(name)
    {
        if (char const* const now = std::getenv(name))
            mBefore = now;
        set(value);
    }
    ~cVariable() { set(mBefore ? mBefore->c_str() : nullptr); }

private:
    void set(char const* value)
    {
        if (value)
            setenv(mpName, value, 1);
        else
            unsetenv(mpName);
    }

    char const* mpName;
    std::optional<std::string> mBefore;
};

class cPlatformTest : public ntest::cSystemFixture { };

TEST_F(cPlatformTest, environment)
{
    struct {
        char const* name;
        char const* value;
        char const* raw;
        char const* user;
    } const rows[] = {
        {"set", "me", "me", "me"},
        {"empty", "", "", ""},
        {"not set", nullptr, nullptr, "unknown"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        cVariable const user("USER", row.value);
        EXPECT_STREQ(cPlatform::tryGetEnv("USER"), row.raw);
        EXPECT_TRUE(cPlatform::getEnv("USER") == (row.raw ? row.raw : ""));
        EXPECT_TRUE(cPlatform::userName() == row.user);
    }
}

TEST_F(cPlatformTest, theHomeDirectoryIsDecoded)
{
    {
        cVariable const home("HOME", "/home/\xC3\xA9");
        auto const directory = cPlatform::homeDirectory();
        ASSERT_EQ(directory.length(), 7u);
        EXPECT_EQ(directory[6], 0xE9u);
    }
    {
        cVariable const home("HOME", nullptr);
        EXPECT_EQ(cPlatform::homeDirectory().length(), 0u);
    }
    cVariable const home("HOME", "/\xFF");
    EXPECT_TRUE(
        ntest::raisedBy<nstd::cRuntimeException>([] { (void)cPlatform::homeDirectory(); }).has_value());
}

TEST_F(cPlatformTest, factoriesMakeWorkingObjects)
{
    auto const mutex = cPlatform::createMutexImpl();
    mutex->lock();
    EXPECT_TRUE(mutex->tryLock());
    mutex->unlock();
    mutex->unlock();

    int calls = 0;
    auto const thread = cPlatform::createThread([](void* count) { ++*static_cast<int*>(count); }, &calls);
    EXPECT_EQ(calls, 0);
    thread->stop();
    thread->start();
    thread->start();
    thread->stop();
    EXPECT_EQ(calls, 2);

    EXPECT_TRUE(cPlatform::createProcessEvents()->supportsAIO());
}

TEST_F(cPlatformTest, theZoneOffsetIsUTCMinusLocalTime)
{
    struct {
        char const* zone;
        long long minutes;
    } const rows[] = {{"UTC", 0}, {"WST5:30", 330}, {"EST-2", -120}, {"EST-14", -840}};
    for (auto const& row : rows) {
        SCOPED_TRACE(row.zone);
        cVariable const zone("TZ", row.zone);
        EXPECT_EQ(npi::cSysTime::zoneOffset().get(), static_cast<unsigned long long>(row.minutes * 60000000));
    }
}

TEST_F(cPlatformTest, theClockTellsMicrosecondsSinceTheEpoch)
{
    auto const before = static_cast<unsigned long long>(time(nullptr));
    auto const now = npi::cSysTime::utcTime();
    auto const after = static_cast<unsigned long long>(time(nullptr));
    EXPECT_LE(before, now.toSec() + 1); // the two clocks tick at slightly different moments
    EXPECT_LE(now.toSec(), after + 1);

    auto const anHourAgo = now - 3600000000LL;
    EXPECT_GE(npi::cSysTime::diffTime(anHourAgo).toSec(), 3600u);
    EXPECT_LT(npi::cSysTime::diffTime(anHourAgo).toSec(), 3700u);
}

} // namespace
