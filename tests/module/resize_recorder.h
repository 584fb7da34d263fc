#pragma once

#include <CKVDrawWApp.h>

/// The last call of the module's resize function, and the status that the next one returns.
struct RecordedResize {
    int calls;
    int status;
    const BYTE* source;
    KVResizeSize sourceSize;
    int sourceStep;
    KVResizeRect sourceRegion;
    BYTE* target;
    int targetStep;
    KVResizeSize targetRegion;
    double xFactor;
    double yFactor;
    int interpolation;
};
