#pragma once

#include "export.h"
#include "types.h"

/// Suspends the calling thread for at least this many milliseconds; 0 gives up the rest of its time
/// slice to any other thread that is ready. Calls with 0 that a thread makes less than 50
/// microseconds apart count as one.
KVDRAW_API void Sleep(DWORD milliseconds);
