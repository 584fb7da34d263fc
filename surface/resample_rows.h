#pragma once

#include <cstddef>

#include <platform/types.h>

namespace kv {

/// The two neighbouring source pixels of one target position:
/// value = pixel[first] * (1 - weight) + pixel[first + 1] * weight.
struct Tap {
    LONG first = 0;
    float weight = 0;
    double rest = 1.0 - double{weight};
};

/// The values of each tap in one source row, four doubles a pixel. The second pixel's share is a
/// single-precision product, all else is in doubles: this decides bytes of the result.
void SumTaps(double* sums, const DWORD* row, const Tap* taps, std::size_t count);

/// Pixels of trunc(lower * weight + upper * (1 - weight)) from rows of sums.
void MixSums(DWORD* target, const double* upper, const double* lower, double weight,
             std::size_t count);

}  // namespace kv
