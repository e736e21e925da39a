#pragma once

#include <exception>
#include <optional>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/ucs/cString.h"

namespace ntest {

/// The bytes of a string.
std::string text(nstd::cAsciiString const& string);
/// The code points of a string in UTF-8.
std::string text(nucs::cString const& string);
/// The exception's message with its values in place, or its kind text when it has no message.
std::string messageOf(nstd::cAbstractException const& exception);
/// The exception's class and message, for a person who reads a failed test.
std::string describe(nstd::cAbstractException const& exception);

/// Runs `callable` and gives a copy of the E that it raises. The test fails, and nothing is given, when it
/// raises something else or nothing at all.
template<typename E, typename Callable>
std::optional<E> raisedBy(Callable&& callable)
{
    try {
        callable();
        ADD_FAILURE() << "nothing was raised";
    } catch (E const& expected) {
        return expected;
    } catch (nstd::cAbstractException const& other) {
        ADD_FAILURE() << "another exception was raised: " << describe(other);
    } catch (std::exception const& other) {
        ADD_FAILURE() << "a standard exception was raised: " << other.what();
    }
    return std::nullopt;
}

} // namespace ntest

namespace nstd {

/// Prints strings and exceptions in test results.
void PrintTo(cAsciiString const& string, std::ostream* out);
void PrintTo(cAbstractException const& exception, std::ostream* out);

} // namespace nstd

namespace nucs {

void PrintTo(cString const& string, std::ostream* out);

} // namespace nucs
