#pragma once

#include <cstddef>

#include "nel_core/export.h"
#include "nel_core/np/cSynchronizable.h"
#include "nel_core/std/fwd.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/ucs/fwd.h"

namespace npi {

/// A stream of text with number formats, indentation and entries that carry a source position.
///
/// Derived classes provide the sink, printChar(). Everything else ends there: numbers become text, and a line
/// feed in a text arrives as carriage return and line feed. An entry is written as debugMessage(), values,
/// "\n" and clearDebugMessage, all while holding mutex(); npi::cDebugEntry does these steps.
///
/// With a linked output set, every operation is passed on to it and does nothing here.
class NEL_EXPORT cAbstractOut : public np::cSynchronizable {
public:
    /// Changes to the format of integers; everything that a mode does not name stays as it was.
    enum NumberFmt : unsigned int {
        nfHex = 0,       ///< base 16
        nfHex16 = 1,     ///< base 16, 16 digits
        nfHex8 = 2,      ///< base 16, 8 digits
        nfHex4 = 3,      ///< base 16, 4 digits
        nfHex2 = 4,      ///< base 16, 2 digits
        nfNextHex16 = 5, ///< as nfHex16 for one integer, after which the default format is back
        nfNextHex8 = 6,  ///< as nfHex8 for one integer
        nfNextHex4 = 7,  ///< as nfHex4 for one integer
        nfNextHex2 = 8,  ///< as nfHex2 for one integer
        nfUnchanged = 9, ///< keeps the format as it is
    };

    /// Ends an entry: forgets the source position.
    class clearDebugMessage { };
    /// Moves the following lines one level to the right.
    class indent { };
    /// Moves the following lines one level to the left; no effect at level 0.
    class unindent { };

    cAbstractOut();
    virtual ~cAbstractOut();
    cAbstractOut(cAbstractOut const&) = delete;
    cAbstractOut& operator=(cAbstractOut const&) = delete;

    /// Takes one character of the text.
    virtual void printChar(char c) = 0;
    /// Hands on what is held back; nothing is in the base.
    virtual void flush();
    /// Starts an entry at a source position. `file` is not copied and must outlive the entry.
    virtual cAbstractOut& debugMessage(char const* file, unsigned int line);
    /// Integers are written in this output's format if it has one, else in the system's default format.
    virtual cAbstractOut& operator<<(long long value);
    virtual cAbstractOut& operator<<(unsigned long long value);
    virtual cAbstractOut& operator<<(int value);
    virtual cAbstractOut& operator<<(unsigned int value);
    /// Writes a zero-terminated text; null writes nothing.
    virtual cAbstractOut& operator<<(char const* text);
    virtual cAbstractOut& operator<<(nstd::cAsciiString const& text);
    /// Writes in the system's default format.
    virtual cAbstractOut& operator<<(double value);
    /// Changes the format of integers, beginning with base 10 if there is no own format yet.
    virtual cAbstractOut& operator<<(NumberFmt mode);
    /// Takes a copy of `format` for integers.
    virtual cAbstractOut& operator<<(nstd::cNumberConversionFormat const& format);
    virtual cAbstractOut& operator<<(clearDebugMessage const&);
    virtual cAbstractOut& operator<<(indent const&);
    virtual cAbstractOut& operator<<(unindent const&);
    /// The encoder for Unicode text, null for none; owned by the output.
    virtual nucs::cAbstractEnDec const* hasEnDec() const;

    /// Passes everything on to `out`, which must outlive the link; null ends it. A link that would close a
    /// ring is ignored.
    void link(cAbstractOut* out);
    /// The output that everything is passed on to, or null.
    cAbstractOut* linked() const { return mpLinked; }

    /// The file of the current entry, null outside one.
    char const* debugFileName() const { return mpDebugFileName; }
    /// The line of the current entry, 0 outside one.
    unsigned int debugFileLine() const { return miDebugFileLine; }
    /// How far lines are moved to the right.
    unsigned int indentionLevel() const { return miIndentionLevel; }

private:
    template<typename T>
    cAbstractOut& printInteger(T value);
    void printText(char const* text, std::size_t length);
    nstd::cNumberConversionFormat& ownFormat();

    nstd::tAutoPtr<nstd::cNumberConversionFormat> mpNumberFormat; ///< null: the system's default
    cAbstractOut* mpLinked = nullptr;                             ///< not owned
    NumberFmt meNumberFmt = nfUnchanged;
    char const* mpDebugFileName = nullptr; ///< not owned
    unsigned int miDebugFileLine = 0;
    unsigned int miIndentionLevel = 0;
};

} // namespace npi
