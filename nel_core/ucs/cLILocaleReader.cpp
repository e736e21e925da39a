#include "nel_core/ucs/cLILocaleReader.h"

#include "nel_core/io/cPath.h"
#include "nel_core/io/readFile.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/raise.h"
#include "nel_core/ucs/cEnDecUTF8.h"
#include "nel_core/ucs/cLILocale.h"
#include "nel_core/ucs/cLITrReader.h"
#include "nel_core/ucs/cUCSExceptions.h"

namespace nucs {
namespace {

constexpr unsigned int kDepthMax = 10;
constexpr unsigned int kFilesMax = 1000;
constexpr char kAssignExpected[] = "$MTR$\"=\" expected!";
constexpr char kQuoteExpected[] = "$MTR$\" expected!";

[[noreturn]] void raise(char const* message)
{
    nstd::raiseRuntime(nstd::makeMessage(message));
}

[[noreturn]] void throwTooDeep()
{
    raise("$MTR$Maximum include depth exceeded!");
}

void require(cLITrReader& reader, cLITrReader::Token token, char const* message)
{
    if (!reader.accept(token))
        raise(message);
}

cString readQuoted(cLITrReader& reader)
{
    cString text;
    if (!reader.readQuoted(text))
        raise(kQuoteExpected);
    return text;
}

} // namespace

// Counts a level while it lives.
class cLILocaleReader::cDepth {
public:
    explicit cDepth(unsigned int& depth) : miDepth(depth) { ++miDepth; }
    cDepth(cDepth const&) = delete;
    cDepth& operator=(cDepth const&) = delete;
    ~cDepth() { --miDepth; }

private:
    unsigned int& miDepth;
};

// The file that is being read.
struct cLILocaleReader::cFile {
    explicit cFile(cString const& filePath) : path(filePath), reader(cLITrReader::fmLocale)
    {
        nio::cPath::storePathComponent(path, directory);
    }

    cString path;
    cString directory;
    cLITrReader reader;
};

cLILocaleReader::cLILocaleReader(cLILocale& target, cString& fileName, unsigned int& depth)
    : mTarget(target),
      mFileName(fileName),
      miDepth(depth)
{
}

void cLILocaleReader::read(cString const& path)
{
    cFile file(path);
    cDepth const level(miDepth);
    if (miDepth > kDepthMax)
        throwTooDeep();
    countFile();
    try {
        file.reader.load(file.path);
    } catch (nstd::cAbstractException const& cause) {
        cUCSExceptions::throwUnableToReadTranslationFile(cause, file.path);
    }
    try {
        readStatements(file);
    } catch (nstd::cAbstractException const& cause) {
        cUCSExceptions::throwUnableToParseTranslationFile(cause, file.path, file.reader.line());
    }
    mFileName = file.path;
}

// The nesting is limited, but a few files that include each other would be read again and again.
void cLILocaleReader::countFile()
{
    if (miFiles == kFilesMax)
        throwTooDeep();
    ++miFiles;
}

void cLILocaleReader::readStatements(cFile& file)
{
    for (unsigned int token = 0; file.reader.next(token);)
        readStatement(file, token);
}

void cLILocaleReader::readStatement(cFile& file, unsigned int token)
{
    auto& reader = file.reader;
    switch (token) {
    case cLITrReader::tkComment: reader.skipComment(); return;
    case cLITrReader::tkQuote: {
        auto const key = readQuoted(reader);
        require(reader, cLITrReader::tkAssign, kAssignExpected);
        mTarget.moTable.addTranslation(key.ascii('?'), readString(file));
        return;
    }
    case cLITrReader::tkName:
        require(reader, cLITrReader::tkAssign, kAssignExpected);
        mTarget.msName = readString(file);
        return;
    case cLITrReader::tkFlag:
        require(reader, cLITrReader::tkAssign, kAssignExpected);
        mTarget.msFlag = nio::cPath(file.path).path() + readString(file);
        return;
    case cLITrReader::tkInclude: read(file.directory + readString(file)); return;
    default: return; // passed over
    }
}

cString cLILocaleReader::readString(cFile& file)
{
    unsigned int token = cLITrReader::tkText;
    file.reader.next(token);
    if (token == cLITrReader::tkQuote)
        return readQuoted(file.reader);
    if (token != cLITrReader::tkText || !file.reader.text().ccs("fromFile"))
        raise(kQuoteExpected);
    return readStringFromFile(file);
}

// The rest of a value, behind the word "fromFile".
cString cLILocaleReader::readStringFromFile(cFile& file)
{
    auto& reader = file.reader;
    require(reader, cLITrReader::tkOpen, "$MTR$\"(\" expected!");
    require(reader, cLITrReader::tkQuote, kQuoteExpected);
    require(reader, cLITrReader::tkText, "$MTR$Filename expected!");
    auto const name = file.directory + reader.text();
    require(reader, cLITrReader::tkQuote, kQuoteExpected);
    require(reader, cLITrReader::tkClose, "$MTR$\")\" expected!");

    countFile();
    nstd::tArray<char> bytes;
    nio::readWholeFile(name, bytes);
    cString text;
    if (!bytes.empty())
        cEnDecUTF8().decode(bytes, text);
    return text;
}

} // namespace nucs
