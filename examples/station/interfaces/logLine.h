#pragma once

#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/ncs/cAbstractInterface.h"
#include "nel_core/ncs/cModuleMgr.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/ucs/cString.h"

/// The context under which the application registers its logger.
constexpr char kLogger[] = "logger";
/// The interface of the logger; its slot "log" takes a line and returns the number of bytes that it took.
constexpr char kLogInterface[] = "station.log";

/// Lets the logger write a line. All that the caller knows of it are names: the component's, the interface's
/// and the slot's. Raises ncs::cNoSuchModuleException when there is no logger, and what the logger raises.
inline unsigned int logLine(ncs::cModuleMgr const& manager, nucs::cString line)
{
    unsigned int bytes = 0;
    nsa::cReferenceFrame frame;
    frame.addRef(line, false, true).addRef(bytes, false, false);
    manager.findComponent(kLogger).findInterface(kLogInterface).invokeIndirectSlot("log", frame);
    return bytes;
}
