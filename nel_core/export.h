#pragma once

/// Marks what the shared library shows to applications and modules; everything else is hidden.
#define NEL_EXPORT __attribute__((visibility("default")))
