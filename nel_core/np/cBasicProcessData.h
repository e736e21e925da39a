#pragma once

#include "nel_core/export.h"
#include "nel_core/np/cAbstractProcessData.h"

namespace np {

/// Process data that no other object owns.
class NEL_EXPORT cBasicProcessData : public cAbstractProcessData {
public:
    cBasicProcessData();
    ~cBasicProcessData() override;
};

} // namespace np
