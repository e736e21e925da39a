#include "readValues.h"

#include "nel_core/io/cFile.h"
#include "nel_core/io/cIOExceptions.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cRuntimeException.h"

namespace {

constexpr unsigned int kMaxSize = 4096;

nstd::tArray<char> contentOf(nucs::cString const& path)
{
    nio::cFile file(path, nio::omRead, nio::cmMustExist, nio::wmOverwrite);
    nstd::tArray<char> bytes(kMaxSize);
    bytes.truncate(static_cast<unsigned int>(file.read(bytes.data(), bytes.length())));
    return bytes;
}

void addValue(nstd::tArray<double>& values, nstd::cAsciiString& word)
{
    if (word.length() > 0)
        values.append(word.toDouble());
    word.truncate(0);
}

nstd::tArray<double> valuesIn(nstd::tArray<char> const& text)
{
    nstd::tArray<double> values;
    nstd::cAsciiString word;
    bool inWord = true;
    for (char const c : text) {
        if (c == '\n')
            addValue(values, word);
        else if (inWord && c != ' ')
            word += c;
        inWord = c == '\n' || (inWord && c != ' ');
    }
    if (text.length() < kMaxSize) // or else the rest of the last line is missing
        addValue(values, word);
    return values;
}

} // namespace

nstd::tArray<double> readValues(nucs::cString const& path)
{
    try {
        auto values = valuesIn(contentOf(path));
        if (values.length() > 0)
            return values;
        nucs::cLIMessage message;
        message << "$MTR$There is no value in it!";
        throw nstd::cRuntimeException(message);
    } catch (nstd::cAbstractException const& cause) {
        nio::cIOExceptions::throwUnableReadFile(cause, path);
    }
}
