#pragma once

#include "nel_core/nce/net++/cNetAbstractAddress.h"
#include "nel_net/cAbstractTcpFactory.h"

class cAbstractPackets;

/// Listens at an address and lets `serve` answer one client after the other, for ever.
[[noreturn]] void serveAt(nnet::cAbstractTcpFactory const& factory, nce::cNetAbstractAddress const& local,
                          bool (*serve)(cAbstractPackets&));
/// Connects to an address and returns what `call` returns. Raises what makes connecting fail.
bool callAt(nnet::cAbstractTcpFactory const& factory, nce::cNetAbstractAddress const& target,
            bool (*call)(cAbstractPackets&));
