#include "show.h"

#include "nel_core/std/cAbstractException.h"
#include "nel_core/ucs/cEnDecUTF8.h"
#include "nel_core/ucs/cString.h"

void show(std::FILE* file, nucs::cString const& text)
{
    nstd::tArray<char> bytes;
    nucs::cEnDecUTF8().encode(text, bytes);
    if (bytes.length() > 0)
        std::fwrite(bytes.data(), 1, bytes.length(), file);
}

void show(std::FILE* file, nstd::cAbstractException const& error, nucs::cLILocale const& locale)
{
    using nstd::cAbstractException;
    nucs::cString text;
    error.createMessage(text, "\n  ", cAbstractException::mfHistory | cAbstractException::mfIndent, &locale);
    std::fputs("  ", file);
    show(file, text);
    std::fputc('\n', file);
}
