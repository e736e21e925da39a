#include "show.h"

#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/ucs/cEnDecUTF8.h"
#include "nel_core/ucs/cString.h"

void show(std::FILE* file, nucs::cString const& text)
{
    nstd::tArray<char> bytes;
    nucs::cEnDecUTF8().encode(text, bytes);
    if (bytes.length() > 0)
        std::fwrite(bytes.data(), 1, bytes.length(), file);
}

void show(std::FILE* file, nstd::cAbstractException const& error)
{
    int indentation = 2;
    for (auto const* member = &error; member; member = member->history()) {
        char const* const kind = member->type() == nstd::cAbstractException::tyBug ? "bug" : "runtime";
        std::fprintf(file, "%*s%s (%s): ", indentation++, "", member->typeName().c_str(), kind);
        nucs::cString text;
        nstd::cAbstractException::createMessage(*member, text, 0, nullptr);
        show(file, text);
        std::fputc('\n', file);
    }
}
