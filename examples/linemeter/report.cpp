#include "report.h"

#include <cstdio>

#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/ucs/cString.h"

namespace {

using nstd::cAbstractException;

void write(char const* introduction, cAbstractException const& error, char const* separator,
           unsigned int flags)
{
    nucs::cString text;
    error.createMessage(text, separator, flags, nullptr);
    std::fprintf(stderr, "%s%s\n", introduction, text.ascii().c_str());
}

} // namespace

void report(char const* introduction, cAbstractException const& error)
{
    write(introduction, error, "\n", cAbstractException::mfHistory | cAbstractException::mfIndent);
}

void reportLine(char const* introduction, cAbstractException const& error)
{
    write(introduction, error, " ", cAbstractException::mfHistory);
}
