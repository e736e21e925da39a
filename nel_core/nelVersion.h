#pragma once

/// The version of the library. The build takes it from here.
#define NEL_VERSION_MAJOR 0
#define NEL_VERSION_MINOR 1
#define NEL_VERSION_PATCH 0
