#pragma once

#include "nel_core/export.h"
#include "nel_core/pi/cAbstractOut.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tVector.h"

namespace npi {

/// The debug output: whole lines on standard error.
///
/// A line is held back until its line feed and then written in one piece: the name of the entry's source file
/// without its folders, ':', the line, ": ", two spaces for each indentation level, the text. Outside an
/// entry the line begins with the indentation. Lines of entries whose source path contains one of the filter
/// words are dropped. A line that is unfinished when the output dies is lost. Raises nothing: what finds no
/// memory is left out.
class NEL_EXPORT cDebugStdErr : public cAbstractOut {
public:
    /// Takes the filter words, separated by spaces, from the environment variable PIDBG_FILTER, now and never
    /// again.
    cDebugStdErr();
    /// Takes the filter words from `words`; null or an empty text filters nothing.
    explicit cDebugStdErr(char const* words);
    ~cDebugStdErr() override;

    void printChar(char c) override;
    /// Writes the unfinished line as it stands, without indentation, position or line feed.
    void flush() override;

private:
    void addFilterWords(char const* words);
    bool isFiltered() const;
    void endLine();
    void writeLine() const;

    nstd::cAsciiString msLine;
    nstd::tVector<nstd::cAsciiString> maFilter;
};

} // namespace npi
