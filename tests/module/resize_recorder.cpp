// A module with an outside resize function that notes how it was called.

#include "resize_recorder.h"

#include <algorithm>

extern "C" KVDRAW_API RecordedResize recordedResize;
RecordedResize recordedResize;

extern "C" KVDRAW_API int ippiResize_8u_C4R(const BYTE* source, KVResizeSize sourceSize,
                                            int sourceStep, KVResizeRect region, BYTE* target,
                                            int targetStep, KVResizeSize targetSize, double xFactor,
                                            double yFactor, int interpolation) {
    const int whole[] = {sourceSize.width, sourceSize.height, sourceStep,    region.x,
                         region.y,         region.width,      region.height, targetStep,
                         targetSize.width, targetSize.height};
    recordedResize = {recordedResize.calls + 1, recordedResize.status, source, target, {}};
    std::array<double, 13>& numbers = recordedResize.numbers;
    std::copy(std::begin(whole), std::end(whole), numbers.begin());
    numbers[10] = xFactor;
    numbers[11] = yFactor;
    numbers[12] = interpolation;
    return recordedResize.status;
}
