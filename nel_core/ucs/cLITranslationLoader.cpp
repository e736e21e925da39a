#include "nel_core/ucs/cLITranslationLoader.h"

#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/raise.h"
#include "nel_core/ucs/cLITrReader.h"
#include "nel_core/ucs/cLITrTable.h"

namespace nucs {
namespace {

[[noreturn]] void throwExpected(char const* message, cString const& path, cLITrReader const& reader)
{
    cSTDExceptions::throwTextParseError(nstd::makeMessage(message), "tr", path, reader.line(), 0);
}

// The rest of an entry, behind the quote that opens its key.
void readEntry(cLITrReader& reader, cString const& path, cLITrTable& table)
{
    static constexpr char kQuoteExpected[] = "$MTR$\" expected!";
    cString key;
    cString value;
    if (!reader.readQuoted(key))
        throwExpected(kQuoteExpected, path, reader);
    if (!reader.accept(cLITrReader::tkAssign))
        throwExpected("$MTR$\"=\" expected!", path, reader);
    if (!reader.accept(cLITrReader::tkQuote) || !reader.readQuoted(value))
        throwExpected(kQuoteExpected, path, reader);
    table.addTranslation(key.ascii('?'), value);
}

} // namespace

void cLITranslationLoader::loadFile(cString const& path, cLITrTable& table)
{
    cString const file(path); // may be a text of the table
    table.clear();
    patchFromFile(file, table);
}

void cLITranslationLoader::patchFromFile(cString const& path, cLITrTable& table)
{
    cLITrReader reader(cLITrReader::fmPlain);
    reader.load(path);
    for (unsigned int token = 0; reader.next(token);) {
        if (token == cLITrReader::tkComment)
            reader.skipComment();
        else if (token == cLITrReader::tkQuote)
            readEntry(reader, path, table);
    }
}

} // namespace nucs
