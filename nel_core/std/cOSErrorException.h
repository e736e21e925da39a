#pragma once

#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tExceptionLeaf.h"
#include "nel_core/ucs/cString.h"

namespace nstd {

/// The operating system refused a call; its own words are linked as the cause.
class NEL_EXPORT cOSErrorException : public tExceptionLeaf<cOSErrorException, cRuntimeException> {
public:
    /// `operation` is the name of the call, `code` the error number that it left.
    cOSErrorException(cAsciiString const& operation, int code);
    /// The same for a call that concerns a file.
    cOSErrorException(cAsciiString const& operation, int code, nucs::cString const& file);
    cOSErrorException(cOSErrorException const&) = default;
    cOSErrorException(cOSErrorException&&) = default;
    ~cOSErrorException() override;
    cOSErrorException& operator=(cOSErrorException other) noexcept;
    void swap(cOSErrorException& other) noexcept;

    /// The name of the call.
    cAsciiString const& operation() const { return msOperation; }
    /// The error number.
    int osErrorCode() const { return miCode; }
    /// Empty when the call concerned no file.
    nucs::cString const& file() const { return msFile; }

private:
    void linkSystemText();

    cAsciiString msOperation;
    int miCode;
    nucs::cString msFile;
};

} // namespace nstd
