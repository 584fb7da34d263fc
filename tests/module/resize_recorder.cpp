// A module with an outside resize function that notes how it was called.

#include "resize_recorder.h"

extern "C" {

__attribute__((visibility("default"))) RecordedResize recordedResize{};

__attribute__((visibility("default"))) int ippiResize_8u_C4R(
    const BYTE* source, KVResizeSize sourceSize, int sourceStep, KVResizeRect sourceRegion,
    BYTE* target, int targetStep, KVResizeSize targetRegion, double xFactor, double yFactor,
    int interpolation) {
    ++recordedResize.calls;
    recordedResize.source = source;
    recordedResize.sourceSize = sourceSize;
    recordedResize.sourceStep = sourceStep;
    recordedResize.sourceRegion = sourceRegion;
    recordedResize.target = target;
    recordedResize.targetStep = targetStep;
    recordedResize.targetRegion = targetRegion;
    recordedResize.xFactor = xFactor;
    recordedResize.yFactor = yFactor;
    recordedResize.interpolation = interpolation;
    return recordedResize.status;
}
}
