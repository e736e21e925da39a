#pragma once

#include "nel_core/nce/net++/cNetAbstractAddress.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_net/cAbstractTcpFactory.h"

/// Loads the extension for TCP over IPv4 and returns what makes servers and clients. It lives until the core
/// extensions are cleared.
nnet::cAbstractTcpFactory const& loadTcp();
/// The address that a text like "127.0.0.1:8080" stands for, empty when it stands for none. loadTcp() comes
/// first.
[[nodiscard]] nstd::tAutoPtr<nce::cNetAbstractAddress> parseAddress(char const* text);
/// The address with its port.
nstd::cAsciiString textOf(nce::cNetAbstractAddress const& address);
