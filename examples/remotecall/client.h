#pragma once

#include "cAbstractPackets.h"

/// Calls the slots that a cSlotServer offers on the other side and shows on standard output what comes of it.
/// True when everything is as it should be.
bool callRemoteSlots(cAbstractPackets& socket);
