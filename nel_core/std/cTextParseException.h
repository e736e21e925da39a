#pragma once

#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tExceptionLeaf.h"
#include "nel_core/ucs/cString.h"

namespace nstd {

/// A text in some format is malformed.
class NEL_EXPORT cTextParseException : public tExceptionLeaf<cTextParseException, cRuntimeException> {
public:
    /// `row` and `column` count from 1.
    cTextParseException(nucs::cLIMessage message, cAsciiString const& format, nucs::cString const& fileName,
                        unsigned int row, unsigned int column);
    cTextParseException(cTextParseException const&) = default;
    cTextParseException(cTextParseException&&) = default;
    ~cTextParseException() override;
    cTextParseException& operator=(cTextParseException other) noexcept;
    void swap(cTextParseException& other) noexcept;

    /// The name of the format.
    cAsciiString const& format() const { return msFormat; }
    /// The file that holds the text.
    nucs::cString const& fileName() const { return msFileName; }
    /// The line, from 1.
    unsigned int row() const { return miRow; }
    /// The character in that line, from 1.
    unsigned int column() const { return miColumn; }

private:
    cAsciiString msFormat;
    nucs::cString msFileName;
    unsigned int miRow;
    unsigned int miColumn;
};

} // namespace nstd
