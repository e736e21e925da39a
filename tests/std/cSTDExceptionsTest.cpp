#include "nel_core/std/cSTDExceptions.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "nel_core/std/cBugException.h"
#include "nel_core/std/cNumberConversionException.h"
#include "nel_core/std/cOSErrorException.h"
#include "nel_core/std/cOutOfBoundsException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_core/std/cTextParseException.h"
#include "nel_core/std/cTypeMissmatchException.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace {

using ntest::raisedBy;

class cSTDExceptionsTest : public ntest::cSystemFixture { };

TEST_F(cSTDExceptionsTest, outOfRangeNamesTheLimits)
{
    struct {
        char const* name;
        unsigned int type;
        char const* text;
    } const rows[] = {
        {"index", 0,
         "Index out of range in tX / at. The index should be between -3 - 9000000000 but is 9000000001!"},
        {"value", 1,
         "Value out of range in tX / at. The value should be between -3 and 9000000000 but is 9000000001!"},
        {"size", 2,
         "Size is out of range in tX / at. The size must be a value -3 and 9000000000 but is 9000000001!"},
        {"index or size", 3,
         "Index or size is out of range in tX / at. The value must be between -3 and 9000000000 but is "
         "9000000001!"},
        {"end", 4,
         "End-value is out of range in tX / at. The value must be between -3 and 9000000000 but is "
         "9000000001!"},
        {"unknown", 7,
         "Index out of range in tX / at. The index should be between -3 - 9000000000 but is 9000000001!"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        auto const type = static_cast<cSTDExceptions::OutOfRangeType>(row.type);
        auto const error = raisedBy<nstd::cOutOfRangeException>(
            [&] { cSTDExceptions::throwOutOfRange("tX", "at", type, 9000000001, -3, 9000000000); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::messageOf(*error), row.text);
        EXPECT_EQ(error->rangeType(), type);
        EXPECT_EQ(error->value(), 9000000001);
        EXPECT_EQ(error->min(), -3);
        EXPECT_EQ(error->max(), 9000000000);
        EXPECT_EQ(error->container(), "tX");
        EXPECT_EQ(error->operation(), "at");
    }
}

TEST_F(cSTDExceptionsTest, missingWordsAreReplaced)
{
    auto const range = raisedBy<nstd::cOutOfRangeException>(
        [] { cSTDExceptions::throwOutOfRange(nullptr, nullptr, cSTDExceptions::ortIndex, 1, 0, 0); });
    ASSERT_TRUE(range.has_value());
    EXPECT_EQ(range->container(), "unknown");
    EXPECT_EQ(range->operation(), "unknown");
    EXPECT_EQ(ntest::messageOf(*range).substr(0, 41), "Index out of range in unknown / unknown. ");

    auto const bounds =
        raisedBy<nstd::cOutOfBoundsException>([] { cSTDExceptions::throwOutOfBounds(nullptr, "at"); });
    ASSERT_TRUE(bounds.has_value());
    EXPECT_EQ(bounds->container(), "");
    EXPECT_EQ(bounds->operation(), "at");
}

TEST_F(cSTDExceptionsTest, anAssertionKeepsItsPositionInTheMessageOnly)
{
    auto const error = raisedBy<nstd::cBugException>([] { NEL_ASSERT_AT(1 == 2, "nel_core/std/tX", 7); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(ntest::messageOf(*error), "Assertion failed in file nel_core/std/tX:7. (1 == 2)!");
    EXPECT_STREQ(error->sourceFileName(), "");
    EXPECT_EQ(error->sourceFileLine(), 0u);

    auto const bare =
        raisedBy<nstd::cBugException>([] { nstd::cBugException::throwAssertionFailed(nullptr, nullptr, 0); });
    ASSERT_TRUE(bare.has_value());
    EXPECT_EQ(ntest::messageOf(*bare), "Assertion failed in file unknown file:0. (unknown)!");
}

TEST_F(cSTDExceptionsTest, aCoreBugCarriesItsPosition)
{
    auto const error =
        raisedBy<nstd::cBugException>([] { cSTDExceptions::throwCoreBug("odd", "x.cpp", 12); });
    ASSERT_TRUE(error.has_value());
    EXPECT_STREQ(error->sourceFileName(), "x.cpp");
    EXPECT_EQ(error->sourceFileLine(), 12u);
}

TEST_F(cSTDExceptionsTest, anOSErrorLinksTheSystemsText)
{
    nstd::cOSErrorException const plain("stat", ENOENT);
    nstd::cOSErrorException const named("open", EACCES, "/x");
    EXPECT_EQ(ntest::messageOf(plain), "OS-Error while trying operation \"stat\"!");
    EXPECT_EQ(ntest::messageOf(named), "OS-Error while trying operation \"open\" on file \"/x\"!");
    EXPECT_EQ(plain.osErrorCode(), ENOENT);
    EXPECT_EQ(plain.operation(), "stat");
    EXPECT_EQ(plain.file(), "");
    EXPECT_EQ(named.file(), "/x");
    ASSERT_NE(named.history(), nullptr);
    EXPECT_EQ(named.history()->typeName(), "cRuntimeException");
    EXPECT_EQ(ntest::messageOf(*named.history()), std::string("Error: \"") + std::strerror(EACCES) + "\"!");
}

TEST_F(cSTDExceptionsTest, fieldsCanBeReadBack)
{
    auto const types =
        raisedBy<nstd::cTypeMissmatchException>([] { cSTDExceptions::throwWrongAnyDereference("tA", "tB"); });
    ASSERT_TRUE(types.has_value());
    EXPECT_EQ(types->expectedType(), "tA");
    EXPECT_EQ(types->assignedType(), "tB");
    EXPECT_EQ(static_cast<nstd::cAbstractException const&>(*types).type(), nstd::cAbstractException::tyBug);

    nucs::cLIMessage message;
    message << "$MTR$Odd %what%!"
            << "comma";
    auto const parse = raisedBy<nstd::cTextParseException>(
        [&] { cSTDExceptions::throwTextParseError(message, "ini", "f.ini", 3, 14); });
    ASSERT_TRUE(parse.has_value());
    EXPECT_EQ(ntest::messageOf(*parse), "Odd comma!");
    EXPECT_EQ(parse->format(), "ini");
    EXPECT_EQ(parse->fileName(), "f.ini");
    EXPECT_EQ(parse->row(), 3u);
    EXPECT_EQ(parse->column(), 14u);

    nstd::cNumberConversionException const number("12x", 2);
    EXPECT_EQ(number.errornousNumber(), "12x");
    EXPECT_EQ(number.errornousIndex(), 2u);
}

TEST_F(cSTDExceptionsTest, leavesSwapAndAssignTheirFields)
{
    nstd::cOutOfRangeException range("tA", "at", cSTDExceptions::ortSize, 1, 2, 3);
    nstd::cOutOfRangeException other("tB", "cut", cSTDExceptions::ortValue, 4, 5, 6);
    range.swap(other);
    EXPECT_EQ(range.container(), "tB");
    EXPECT_EQ(range.operation(), "cut");
    EXPECT_EQ(range.rangeType(), cSTDExceptions::ortValue);
    EXPECT_EQ(range.value() * 100 + range.min() * 10 + range.max(), 456);
    EXPECT_EQ(other.value() * 100 + other.min() * 10 + other.max(), 123);
    other = range;
    EXPECT_EQ(other.container(), "tB");
    EXPECT_EQ(ntest::messageOf(other), ntest::messageOf(range));

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
