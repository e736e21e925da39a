#include "nel_core/std/cSTDExceptions.h"

#include <gtest/gtest.h>

#include <string>

#include "nel_core/std/cBugException.h"
#include "nel_core/std/cOSErrorException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_core/std/cTextParseException.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace {

using ntest::raisedBy;

class cSTDExceptionsTest : public ntest::cSystemFixture { };

TEST_F(cSTDExceptionsTest, outOfRangeNamesTheLimits)
{
    char const* const texts[] = {
        "Index out of range in tX / at. The index should be between -3 - 9000000000 but is 9000000001!",
        "Value out of range in tX / at. The value should be between -3 and 9000000000 but is 9000000001!",
        "Size is out of range in tX / at. The size must be a value -3 and 9000000000 but is 9000000001!",
        "Index or size is out of range in tX / at. The value must be between -3 and 9000000000 but is "
        "9000000001!",
        "End-value is out of range in tX / at. The value must be between -3 and 9000000000 but is "
        "9000000001!",
        "Index out of range in tX / at. The index should be between -3 - 9000000000 but is 9000000001!",
    };
    for (unsigned int type = 0; type < std::size(texts); ++type) {
        auto const error = raisedBy<nstd::cOutOfRangeException>([&] {
            cSTDExceptions::throwOutOfRange("tX", "at", static_cast<cSTDExceptions::OutOfRangeType>(type),
                                            9000000001, -3, 9000000000);
        });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::messageOf(*error), texts[type]);
    }
}

TEST_F(cSTDExceptionsTest, anAssertionKeepsItsPositionInTheMessageOnly)
{
    auto const error = raisedBy<nstd::cBugException>([] { NEL_ASSERT_AT(1 == 2, "nel_core/std/tX", 7); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(ntest::messageOf(*error), "Assertion failed in file nel_core/std/tX:7. (1 == 2)!");
    EXPECT_STREQ(error->sourceFileName(), "");
}

TEST_F(cSTDExceptionsTest, aParseErrorHasTheTextItIsGiven)
{
    nucs::cLIMessage message;
    message << "$MTR$Odd %what%!"
            << "comma";
    auto const parse = raisedBy<nstd::cTextParseException>(
        [&] { cSTDExceptions::throwTextParseError(message, "ini", "f.ini", 3, 14); });
    ASSERT_TRUE(parse.has_value());
    EXPECT_EQ(ntest::messageOf(*parse), "Odd comma!");
    EXPECT_EQ(parse->format(), "ini");
    EXPECT_EQ(parse->fileName(), "f.ini");
    EXPECT_EQ(parse->row() * 100 + parse->column(), 314u);
}

TEST_F(cSTDExceptionsTest, leavesSwapAllTheirFields)
{
    nstd::cOutOfRangeException range("tA", "at", cSTDExceptions::ortSize, 1, 2, 3);
    nstd::cOutOfRangeException other("tB", "cut", cSTDExceptions::ortValue, 4, 5, 6);
    range.swap(other);
    EXPECT_EQ(range.container(), "tB");
    EXPECT_EQ(range.operation(), "cut");
    EXPECT_EQ(range.rangeType(), cSTDExceptions::ortValue);
    EXPECT_EQ(range.value() * 100 + range.min() * 10 + range.max(), 456);
    EXPECT_EQ(ntest::messageOf(range).substr(0, 5), "Value");

    nstd::cOSErrorException first("open", 2, "/a");
    nstd::cOSErrorException second("read", 5);
    auto const* const cause = first.history();
    first.swap(second);
    EXPECT_EQ(second.operation(), "open");
    EXPECT_EQ(second.file(), "/a");
    EXPECT_EQ(second.history(), cause);
    EXPECT_EQ(first.osErrorCode(), 5);
}

} // namespace
