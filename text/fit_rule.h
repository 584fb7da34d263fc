#pragma once

#include <cstdint>

namespace kv::text {

/// A line that is to have a given length, all in enlarged pixels.
struct FitTask {
    std::int64_t length;  ///< with extra between the characters
    std::int64_t target;
    std::int64_t count;  ///< characters
    std::int64_t extra;
    std::int64_t leastExtra;  ///< what shrinking may bring extra down to
    std::int64_t mostExtra;   ///< what stretching may bring extra up to
    bool mayStretch;
};

struct FitOutcome {
    std::int64_t extra;  ///< the distance that the line is to have
    bool shrinks;
    bool resized;  ///< the characters change their width, too
    double ratio;  ///< by this
};

/// One decision, no search: the difference from the target goes into the distance as far as its
/// bound allows, and what remains goes into the width.
FitOutcome Fit(const FitTask& line);

/// How a form makes a new font width of the ratio.
struct WidthStep {
    enum class Percent {
        kCut,      ///< of Size_WidthPer, cut to a whole number, bounded by the record
        kRounded,  ///< the same, rounded
        kPlain     ///< the ratio itself, without bounds
    };
    Percent percent;
    bool fromFirstFont;  ///< repeats the widening of the first font; else the working font's width
};

}  // namespace kv::text
