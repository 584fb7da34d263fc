#pragma once

#include "platform/export.h"

/// The version of these headers. Until 1.0 a new minor version may change the binary interface: the
/// shared library's name carries both numbers.
#define KVDRAW_VERSION_MAJOR 0
#define KVDRAW_VERSION_MINOR 1
#define KVDRAW_VERSION_PATCH 0

/// The version of the library that runs, as "major.minor.patch".
KVDRAW_API const char* KVVersion();
