#include "nel_core/pi/cPlatform.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

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
    cVariable const user("USER", nullptr);
    EXPECT_EQ(cPlatform::tryGetEnv("USER"), nullptr);
    EXPECT_TRUE(cPlatform::getEnv("USER") == "");
    EXPECT_TRUE(cPlatform::userName() == "unknown");
}

TEST_F(cPlatformTest, theHomeDirectoryIsDecoded)
{
    {
        cVariable const home("HOME", "/home/\xC3\xA9");
        auto const directory = cPlatform::homeDirectory();
        ASSERT_EQ(directory.length(), 7u);
        EXPECT_EQ(directory[6], 0xE9u);
    }
    cVariable const home("HOME", "/\xFF");
    EXPECT_TRUE(
        ntest::raisedBy<nstd::cRuntimeException>([] { (void)cPlatform::homeDirectory(); }).has_value());
}

TEST_F(cPlatformTest, theZoneOffsetIsUTCMinusLocalTime)
{
    struct {
        char const* zone;
        long long minutes;
    } const rows[] = {{"UTC", 0}, {"WST5:30", 330}, {"EST-14", -840}};
    for (auto const& row : rows) {
        SCOPED_TRACE(row.zone);
        cVariable const zone("TZ", row.zone);
        EXPECT_EQ(npi::cSysTime::zoneOffset().get(), static_cast<unsigned long long>(row.minutes * 60000000));
    }
}

} // namespace
