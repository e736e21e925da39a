#pragma once

#include "nel_core/export.h"

/// The base of application objects. The library keeps a pointer to one (npi::cSystem::setApp) and never looks
/// inside.
class NEL_EXPORT cAbstractNELApp {
public:
    virtual ~cAbstractNELApp();
};
