#pragma once

#include "nel_core/export.h"
#include "nel_core/std/fwd.h"

/// The throw functions of networking. Each makes an nstd::cRuntimeException without a source position, links
/// a copy of the cause where it takes one, and throws it.
class NEL_EXPORT cNETExceptions {
public:
    /// The transfer was given up after that many milliseconds.
    [[noreturn]] static void throwTransferTimeout(unsigned int milliseconds);
    /// The transmitter still sends an earlier packet.
    [[noreturn]] static void throwConnectionTxBusy();
    /// The other side, or an error, ended the connection.
    [[noreturn]] static void throwConnectionClosedUnexpectedly(nstd::cAbstractException const& cause);
    /// The connection ended before a request was answered.
    [[noreturn]] static void
    throwUnableToCompleteConnectionClosedUnexpectedly(nstd::cAbstractException const& cause);
    /// A text or a stored form gave no address.
    [[noreturn]] static void throwInvalidAddress(nstd::cAbstractException const& cause);
};
