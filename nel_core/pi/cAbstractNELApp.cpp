#include "nel_core/pi/cAbstractNELApp.h"

cAbstractNELApp::~cAbstractNELApp() = default;
