#include "tests/support/raisedBy.h"

#include "nel_core/std/tArray.h"
#include "nel_core/ucs/cEnDecUTF8.h"
#include "nel_core/ucs/cLIMessage.h"

namespace ntest {

std::string text(nstd::cAsciiString const& string)
{
    return std::string(string.c_str(), string.length());
}

std::string text(nucs::cString const& string)
{
    nstd::tArray<char> bytes;
    nucs::cEnDecUTF8().encode(string, bytes);
    return bytes.length() ? std::string(bytes.data(), bytes.length()) : std::string();
}

std::string messageOf(nstd::cAbstractException const& exception)
{
    nucs::cLIMessage const* const message = exception.liMessage();
    if (!message)
        return exception.what();
    nucs::cString shown;
    message->untranslated(shown);
    return text(shown);
}

std::string describe(nstd::cAbstractException const& exception)
{
    return text(exception.typeName()) + ": " + messageOf(exception);
}

} // namespace ntest

namespace nstd {

void PrintTo(cAsciiString const& string, std::ostream* out)
{
    *out << '"' << ntest::text(string) << '"';
}

void PrintTo(cAbstractException const& exception, std::ostream* out)
{
    *out << ntest::describe(exception);
}

} // namespace nstd

namespace nucs {

void PrintTo(cString const& string, std::ostream* out)
{
    *out << '"' << ntest::text(string) << '"';
}

} // namespace nucs
