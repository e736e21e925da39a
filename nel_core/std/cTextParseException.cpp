#include "nel_core/std/cTextParseException.h"

#include <utility>

namespace nstd {

cTextParseException::cTextParseException(nucs::cLIMessage message, cAsciiString const& format,
                                         nucs::cString const& fileName, unsigned int row, unsigned int column)
    : tExceptionLeaf(std::move(message)),
      msFormat(format),
      msFileName(fileName),
      miRow(row),
      miColumn(column)
{
}

cTextParseException::~cTextParseException() = default;

cTextParseException& cTextParseException::operator=(cTextParseException other) noexcept
{
    swap(other);
    return *this;
}

void cTextParseException::swap(cTextParseException& other) noexcept
{
    cRuntimeException::swap(other);
    msFormat.swap(other.msFormat);
    msFileName.swap(other.msFileName);
    std::swap(miRow, other.miRow);
    std::swap(miColumn, other.miColumn);
}

} // namespace nstd
