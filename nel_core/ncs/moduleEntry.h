#pragma once

#include "nel_core/export.h"
#include "nel_core/ncs/fwd.h"
#include "nel_core/nelVersion.h"
#include "nel_core/sa/fwd.h"

/// The entry symbols of a module: the functions by which a class loader asks a shared object for its module.
///
/// One source of the module uses NEL_MODULE_VERSION and one or both of the others, outside of any namespace.
extern "C" {
NEL_EXPORT void moduleInitPlugIn(ncs::cAbstractPlugIn*& result, nsa::cReferenceFrame& frame);
NEL_EXPORT void moduleInitComponent(ncs::cAbstractComponent*& result, ncs::cModuleMgr& manager,
                                    nsa::cReferenceFrame& frame);
NEL_EXPORT void moduleVersion(unsigned int& major, unsigned int& minor);
NEL_EXPORT void nelVersion(unsigned int& major, unsigned int& minor);
}

/// The module is a plug-in or core extension: a new `Class(frame)`, which is an ncs::cAbstractPlugIn.
#define NEL_MODULE_PLUGIN(Class)                                                                             \
    void moduleInitPlugIn(ncs::cAbstractPlugIn*& result, nsa::cReferenceFrame& frame)                        \
    {                                                                                                        \
        result = new Class(frame);                                                                           \
    }

/// The module is a component: a new `Class(manager, frame)`, which is an ncs::cAbstractComponent.
#define NEL_MODULE_COMPONENT(Class)                                                                          \
    void moduleInitComponent(ncs::cAbstractComponent*& result, ncs::cModuleMgr& manager,                     \
                             nsa::cReferenceFrame& frame)                                                    \
    {                                                                                                        \
        result = new Class(manager, frame);                                                                  \
    }

/// The version of the module, and that of the library that it is built against.
#define NEL_MODULE_VERSION(major_, minor_)                                                                   \
    void moduleVersion(unsigned int& major, unsigned int& minor)                                             \
    {                                                                                                        \
        major = major_;                                                                                      \
        minor = minor_;                                                                                      \
    }                                                                                                        \
    void nelVersion(unsigned int& major, unsigned int& minor)                                                \
    {                                                                                                        \
        major = NEL_VERSION_MAJOR;                                                                           \
        minor = NEL_VERSION_MINOR;                                                                           \
    }
