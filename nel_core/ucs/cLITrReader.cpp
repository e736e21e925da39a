#include "nel_core/ucs/cLITrReader.h"

#include "nel_core/io/readFile.h"
#include "nel_core/ucs/cEnDecUTF8.h"

namespace nucs {

cLITrReader::cLITrReader(Format format) : moTokenizer(nstd::cUTF8StringTokenizer::tView())
{
    moStatement.addSeparator("\r").leaveCount(&miReturns);
    moStatement.addSeparator("\n").leaveCount(&miFeeds);
    moStatement.addSeparator(" ");
    moStatement.addSeparator("\t");
    moStatement.addSeparator(";");
    addKeys(format);
    moComment.addKey("\r", 1).leaveCount(&miReturns);
    moComment.addKey("\n", 1).leaveCount(&miFeeds);
    moString.addKey("\"", tkQuote);
    moString.setSingleQuote("\\");
    moTokenizer.setContext(&moStatement);
}

void cLITrReader::addKeys(Format format)
{
    moStatement.addKey("\"", tkQuote);
    moStatement.addKey("=", tkAssign);
    moStatement.addKey("//", tkComment);
    if (format == fmPlain)
        return;
    moStatement.addKey("Name", tkName);
    moStatement.addKey("include", tkInclude);
    moStatement.addKey("Flag", tkFlag);
    moStatement.addKey("(", tkOpen);
    moStatement.addKey(")", tkClose);
}

void cLITrReader::load(cString const& path)
{
    nio::readWholeFile(path, maBytes);
    moTokenizer.set(maBytes);
}

bool cLITrReader::next(unsigned int& token)
{
    nstd::cUTF8StringTokenizer::tView view;
    bool const isFound = moTokenizer.getNext(view, token);
    cString text;
    if (isFound && token == tkText)
        cEnDecUTF8().decode(view, text);
    msText.swap(text);
    return isFound;
}

bool cLITrReader::accept(Token expected)
{
    unsigned int token = tkText;
    return next(token) && token == expected;
}

bool cLITrReader::readQuoted(cString& value)
{
    moTokenizer.setContext(&moString);
    unsigned int token = tkText;
    next(token);
    cString read(token == tkQuote ? "\"" : "");
    if (token == tkText)
        read.swap(msText);
    moTokenizer.removeQuotes(read);
    bool const isClosed = accept(tkQuote);
    moTokenizer.setContext(&moStatement);
    value.swap(read);
    return isClosed;
}

void cLITrReader::skipComment()
{
    unsigned int token = tkText;
    moTokenizer.setContext(&moComment);
    next(token);
    moTokenizer.setContext(&moStatement);
}

} // namespace nucs
